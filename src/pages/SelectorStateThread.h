// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QString>
#include <QVector>

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

class QMutex;

// Reads and writes what stands behind a selector: for each entry of, say, "ChunkSelector" whether
// "ChunkEnable" is on. The selector is put back afterwards, also after a failure or a stop. Owned
// by SelectorChecks; one thread of its own, started when it is first needed, does the jobs in
// order.
//
// While a job moves the selector it holds the tree's feature mutex, so that no reading pass sees
// another entry's values.
//
// | operation             | thread  | lock                                  |
// |-----------------------|---------|---------------------------------------|
// | read, write, stop,    | GUI     | m_mutex, inside                       |
// | takeAnswers           |         |                                       |
// | the jobs              | its own | the feature mutex; m_mutex for moments|
// | the signals' emission | its own | none; receivers get them queued       |
class SelectorStateThread : public QObject
{
    Q_OBJECT
public:
    // A selector and the feature that it selects: a boolean, or an enumeration of "Off" and "On".
    struct Pair
    {
        QString selector;
        QString enable;
        bool isEnumeration = false;
        quint32 on = 1;
        quint32 off = 0;
    };

    explicit SelectorStateThread(QObject* parent = nullptr);
    ~SelectorStateThread() override;

    // Reads the state of each entry. `featureMutex` is not owned and must live until stop().
    void read(QMutex* featureMutex, const Pair& pair, const QVector<qint64>& entries);
    void write(QMutex* featureMutex, const Pair& pair, qint64 entry, bool on);
    // Forgets what waits, ends a running job before its next entry and waits for it: no host call
    // is made afterwards.
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
    void SigAnswered();

private:
    struct Job
    {
        QMutex* featureMutex; // Not owned.
        Pair pair;
        QVector<qint64> entries;
        bool isWrite;
        bool on;
    };

    void add(const Job& job);
    void run();
    void runJob(const Job& job);
    void answer(const Answer& found);
    void readStates(const Job& job);
    void writeState(const Job& job);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    QVector<Answer> m_answers; // guarded by m_mutex
    std::deque<Job> m_jobs;    // guarded by m_mutex
    bool m_bRunning = false;   // guarded by m_mutex: a job is being done
    bool m_bQuit = false;      // guarded by m_mutex
    std::atomic<bool> m_bStop{false};
    std::thread m_thread;
};
