// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "reading/ReadingPass.h"

#include <QHash>

#include <deque>

// Features that wait to be read, each once, with all that any request wants of it. Guarded by the
// lock of whoever owns it.
class QueuedNames
{
public:
    void add(const QString& name, ReadingPass::UpdateFlags flags)
    {
        if (!m_flags.contains(name))
            m_names.push_back(name);
        m_flags[name] |= flags;
    }

    // The one that waits longest; false when there is none.
    bool take(QString& name, ReadingPass::UpdateFlags& flags)
    {
        if (m_names.empty())
            return false;
        name = m_names.front();
        m_names.pop_front();
        flags = m_flags.take(name);
        return true;
    }

    void clear()
    {
        m_names.clear();
        m_flags.clear();
    }

private:
    std::deque<QString> m_names;
    QHash<QString, ReadingPass::UpdateFlags> m_flags; // of each name
};
