// SPDX-License-Identifier: Apache-2.0
#include "device/StopRequest.h"

namespace {

thread_local const StopRequest* t_request = nullptr;
thread_local int t_puttingBack = 0;

} // namespace

StopRequest::Scope::Scope(const StopRequest& request)
    : m_before(t_request)
{
    t_request = &request;
}

StopRequest::Scope::~Scope()
{
    t_request = m_before;
}

StopRequest::PuttingBack::PuttingBack()
{
    ++t_puttingBack;
}

StopRequest::PuttingBack::~PuttingBack()
{
    --t_puttingBack;
}

bool StopRequest::isHere()
{
    return t_request && t_request->isRequested() && t_puttingBack == 0;
}
