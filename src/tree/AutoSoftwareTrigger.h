// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/SteadyBeat.h"

#include <QObject>

// Executes "TriggerSoftware" at a steady beat, on a thread of its own: neither a busy window nor a
// slow camera shifts the beat, and a beat that falls due while the camera still works on the one
// before is dropped. Owned by a tree; GUI thread.
class AutoSoftwareTrigger : public QObject
{
    Q_OBJECT
public:
    explicit AutoSoftwareTrigger(QObject* parent);

    // Every `intervalMs` milliseconds (1 to 1,000,000,000) from now on.
    void start(unsigned int intervalMs);
    // Returns at once; a command under way is not waited for.
    void stop();
    // No command is under way any more when this returns.
    void stopAndWait();
    // No further command; stop() is still to come.
    void requestStop() { m_beat.requestStop(); }
    // Once; dropped while the one before still runs.
    void runOnce() { m_beat.runOnce(); }
    // A feature is not available any more: the switch of the trigger vanishes with its command, so
    // that nobody else could end it.
    void featureWent(const QString& name);

signals:
    // Switched on, or off by whatever reason.
    void SigChanged(bool enabled);

private:
    SteadyBeat m_beat;
};
