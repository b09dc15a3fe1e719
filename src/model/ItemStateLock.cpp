// SPDX-License-Identifier: Apache-2.0
#include "model/ItemStateLock.h"

std::recursive_mutex& ItemStateLock::mutex()
{
    static std::recursive_mutex mutex;
    return mutex;
}
