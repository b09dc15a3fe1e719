// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QPointer>
#include <QTimer>

class ORXFeatureTree;
class ORXPropertyTreeItem;

// Waits in a nested event loop until the camera says that it has loaded a user set. It has the
// status read again all the time, since not every camera's description has it polled, and never
// waits for ever: it ends when the camera stops answering, when its tree goes, when it is told to,
// and after the longest time in any case. Owned by the dialog that waits; GUI thread.
class UserSetLoadWait : public QObject
{
    Q_OBJECT
public:
    enum class Outcome {
        Ended,      // the status does not say "Load" any more
        Abandoned,  // abandon() was called, the tree went, or the program ends
        CameraLost, // the status could not be read for Limits::lostMs
        TimedOut    // the status still said "Load" after Limits::longestMs
    };

    // Milliseconds.
    struct Limits
    {
        int checkMs = 200;
        int askMs = 400;   // between two readings that are asked for
        int calmMs = 5000; // a single reading without "Load" counts after this time
        int lostMs = 3000;
        int longestMs = 60000;
    };

    // `status` is the tree's item of the text that says "Loading".
    UserSetLoadWait(ORXFeatureTree* tree, ORXPropertyTreeItem* status, const Limits& limits);

    // Whether the camera has the status at all: a feature that the description knows may be missing
    // in this model, and then there is nothing to wait for.
    bool canWait() const;
    Outcome run();
    // The status was read: it says whether the camera is still loading.
    void noteReading(bool loading);
    void abandon();

private:
    void check();
    bool isLost();
    void askAgain();
    void finish(Outcome outcome);

    QPointer<ORXFeatureTree> m_pTree; // Not owned.
    ORXPropertyTreeItem* m_pStatus;   // Not owned.
    const Limits m_limits;
    QEventLoop m_loop;
    QTimer m_timer;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceAsked;
    QElapsedTimer m_sinceCalm; // valid while the last reading was without "Load"
    QElapsedTimer m_sinceLost; // valid while the status cannot be read
    int m_nReadings = 0;
    Outcome m_outcome = Outcome::Abandoned;
    bool m_bFinished = false;
};
