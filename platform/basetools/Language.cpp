// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"

#include <atomic>

namespace {

std::atomic<bool> s_bChinese{false};

} // namespace

QString ORXInterface::language(int unused)
{
    Q_UNUSED(unused)
    return s_bChinese ? QStringLiteral("CH") : QStringLiteral("ENG");
}

void ORXInterface::setLanguage(const QString& language)
{
    s_bChinese = language == QLatin1String("CH");
}
