// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/Guarded.h"

#include <QHash>
#include <QString>
#include <QVector>

// What a host in memory answers wrong. Safe from any thread.
class HostFaults : Guarded
{
public:
    // A code that get and set calls of the name return, or one call like "set Width 640"; 0 ends
    // it.
    void fail(const QString& name, int code)
    {
        locked([&] { m_values.insert(name, code); });
    }
    // A code that get-mode calls of the name return; 0 ends it.
    void failMode(const QString& name, int code)
    {
        locked([&] { m_modes.insert(name, code); });
    }
    // After this many more calls, whatever their names, every call returns the code; 0 ends it.
    void failAfter(int calls, int code);
    // One get-mode call of the name after the other answers with the next of these; none ends it.
    void takeTurns(const QString& name, const QVector<int>& modes)
    {
        locked([&] { m_turns.insert(name, modes); });
    }

    // For the host. A get or set call has come: its code, or 0.
    int value(const QString& name, const QString& call);
    // A get-mode call has come: its code, or 0 with `mode` changed where modes take turns.
    int mode(const QString& name, int* mode);

private:
    int laterCode(); // with the mutex held

    QHash<QString, int> m_values;
    QHash<QString, int> m_modes;
    QHash<QString, QVector<int>> m_turns;
    int m_callsLeft = 0;
    int m_laterCode = 0;
};
