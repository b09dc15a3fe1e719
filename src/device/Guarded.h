// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#include <exception>

// Runs `action`; an exception ends here, in the log behind `where`. False when there was one.
template <typename Action>
bool guarded(const char* where, const Action& action)
{
    try {
        action();
        return true;
    } catch (const std::exception& error) {
        qCritical("%s: %s", where, error.what());
    } catch (...) {
        qCritical("%s: unknown exception", where);
    }
    return false;
}
