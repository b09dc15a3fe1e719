// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "reading/SerialWorker.h"

#include <QString>
#include <QVector>

class FeatureMutex;

// A selector and the feature that it selects: a boolean, or an enumeration of "Off" and "On".
struct SelectorPair
{
    QString selector;
    QString enable;
    bool isEnumeration = false;
    quint32 on = 1;
    quint32 off = 0;
};

// What a SelectorStateThread is to do.
struct SelectorJob
{
    FeatureMutex* featureMutex = nullptr; // Not owned.
    SelectorPair pair;
    QVector<qint64> entries;
    bool isWrite = false;
    bool on = false;
};

// Reads and writes what stands behind a selector: for each entry of, say, "ChunkSelector" whether
// "ChunkEnable" is on. The selector is put back afterwards, also after a failure or a stop. Owned
// by SelectorChecks.
//
// While the selector stands elsewhere the tree's feature mutex is held, so that no reading pass
// sees another entry's values. When a pass waits for it, the selector is put back first and the
// pass has its turn.
//
// | operation             | thread  | lock                                              |
// |-----------------------|---------|---------------------------------------------------|
// | read, write,          | GUI     | the worker's, inside                              |
// | takeAnswers, stop     |         |                                                   |
// | the jobs              | its own | the feature mutex; the worker's lock for moments  |
// | the signals' emission | its own | none; receivers get them queued                   |
class SelectorStateThread : public SerialWorker<SelectorJob>
{
    Q_OBJECT
public:
    using Pair = SelectorPair;

    explicit SelectorStateThread(QObject* parent = nullptr);
    ~SelectorStateThread() override;

    // Reads the state of each entry; takes the place of readings that wait. `featureMutex` is not
    // owned and must live until stop().
    void read(FeatureMutex* featureMutex, const Pair& pair, const QVector<qint64>& entries);
    void write(FeatureMutex* featureMutex, const Pair& pair, qint64 entry, bool on);
    // Ends the readings, at once those that wait and the running one at its next call. Returns at
    // once; writes go on.
    void stopReading();
    // Ends everything, waits for it and forgets its answers.
    void stop();

    // What a job found; the answers wait here until they are taken, or until stop().
    struct Answer
    {
        QString selector;
        bool isWrite = false;
        // Of a read, in the order of the entries: 1 on, 0 off, -1 when it could not be read.
        QVector<int> states;
        // Of a write; `feature` is the one that refused, empty on success.
        qint64 entry = 0;
        bool on = false;
        QString feature;
        int error = 0;
    };
    QVector<Answer> takeAnswers();

signals:
    // A job has ended, with or without an answer.
    void SigJobEnded();

protected:
    void work(SelectorJob& job) override;
    void jobEnded() override;

private:
    void answer(const Answer& found);
    void readStates(const SelectorJob& job);
    void writeState(const SelectorJob& job);

    QVector<Answer> m_answers; // guarded by the worker's lock
};
