// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <glib.h>

// Receives the error of one call of the node-map library; frees it.
class GErrorHolder
{
public:
    GErrorHolder() = default;
    ~GErrorHolder() { g_clear_error(&m_error); }
    GErrorHolder(const GErrorHolder&) = delete;
    GErrorHolder& operator=(const GErrorHolder&) = delete;

    // For the `error` argument of one call; an earlier error is dropped.
    GError** out()
    {
        g_clear_error(&m_error);
        return &m_error;
    }
    const GError* get() const { return m_error; }

private:
    GError* m_error = nullptr; // Owned.
};
