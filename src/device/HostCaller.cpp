// SPDX-License-Identifier: Apache-2.0
#include "device/HostCaller.h"

#include <QSet>

namespace {

QSet<HostCaller*>& callers()
{
    static QSet<HostCaller*> all;
    return all;
}

} // namespace

HostCaller::HostCaller()
{
    callers().insert(this);
}

HostCaller::~HostCaller()
{
    callers().remove(this);
}

void HostCaller::requestStopOfAll()
{
    for (HostCaller* caller : qAsConst(callers()))
        caller->requestStop();
}
