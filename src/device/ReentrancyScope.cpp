// SPDX-License-Identifier: Apache-2.0
#include "device/ReentrancyScope.h"

#include <QCoreApplication>
#include <QTimer>

#include <utility>
#include <vector>

int ReentrancyScope::s_depth = 0;

namespace {

std::vector<std::function<void()>>& postponed()
{
    static std::vector<std::function<void()>> actions;
    return actions;
}

} // namespace

ReentrancyScope::~ReentrancyScope()
{
    if (--s_depth > 0 || postponed().empty())
        return;
    // The scope's own widgets still stand on the stack; the event loop is reached without them.
    QTimer::singleShot(0, QCoreApplication::instance(), [] {
        std::vector<std::function<void()>> actions = std::exchange(postponed(), {});
        for (const std::function<void()>& action : actions)
            runWhenInactive(action);
    });
}

void ReentrancyScope::runWhenInactive(const std::function<void()>& action)
{
    if (isActive())
        postponed().push_back(action);
    else
        action();
}
