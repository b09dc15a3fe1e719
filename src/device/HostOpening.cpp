// SPDX-License-Identifier: Apache-2.0
#include "device/HostOpening.h"

std::atomic<unsigned> HostOpening::s_number{0};
std::atomic<bool> HostOpening::s_open{true};

void HostOpening::begin()
{
    ++s_number;
    s_open = true;
}

void HostOpening::end()
{
    s_open = false;
}
