// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/HostCaller.h"
#include "device/StopRequest.h"
#include "reading/ThreadAnnotations.h"

#include <QDebug>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

// One thread that does jobs one after the other, and what every worker of the library shares: a
// queue, one meaning of "stop", and one lock under which results are handed over. The thread is
// started with the first job and then waits for the next one, so no request can fall between two
// runs. Owned by whoever posts the jobs.
//
// | operation                            | thread | lock                                      |
// |--------------------------------------|--------|-------------------------------------------|
// | post, requestStop, waitUntilIdle,    | GUI    | the worker's, inside                      |
// | stopAndWait, finish                  |        |                                           |
// | isBusy, locked                       | any    | the worker's, inside                      |
// | work, jobEnded, stopRequested        | worker | none; every call of the host goes through |
// |                                      |        | OBDeviceControl, which knows the stop     |
//
// After a stop was requested the host's call under way ends, and besides that only what puts the
// camera back (StopRequest::PuttingBack). A job that is posted afterwards runs as if there had been
// no stop.
template <typename Job>
class SerialWorker : public QThread, public HostCaller
{
public:
    // `name` is what the log calls it; a literal.
    SerialWorker(const char* name, QObject* parent)
        : QThread(parent)
        , m_name(name)
    {
    }
    // A subclass ends the thread in its own destructor, before its members go.
    ~SerialWorker() override { Q_ASSERT(!isRunning()); }

    // Whether a job runs or waits.
    bool isBusy() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_pRunning || !m_waiting.empty();
    }

    // Drops the waiting jobs and ends the running one.
    void requestStop() override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_waiting.clear();
        m_stop.request();
    }

    // Returns when no job runs or waits, without limit; a host call that takes more than a second
    // is reported in the log.
    void waitUntilIdle()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        const auto idle = [this] { return !m_pRunning && m_waiting.empty(); };
        if (m_changed.wait_for(lock, std::chrono::seconds(1), idle))
            return;
        qInfo("%s: waiting for a call of the host to return", m_name);
        m_changed.wait(lock, idle);
    }

    void stopAndWait()
    {
        requestStop();
        waitUntilIdle();
    }

protected:
    using Waiting = std::deque<Job>;

    // Does one job. Worker.
    virtual void work(Job& job) = 0;
    // A job has ended; the next one has not begun. Worker, without the lock.
    virtual void jobEnded() {}

    void post(Job job)
    {
        locked([&](Waiting& waiting, Job*) { waiting.push_back(std::move(job)); });
        wake();
    }

    // Calls `look(waiting, running)` under the lock; `running` is null between jobs.
    template <typename Look>
    auto locked(Look look)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return look(m_waiting, m_pRunning);
    }
    template <typename Look>
    auto locked(Look look) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const Job* running = m_pRunning;
        return look(m_waiting, running);
    }

    // The thread looks for jobs.
    void wake()
    {
        if (!isRunning())
            start(QThread::InheritPriority);
        m_changed.notify_all();
    }

    // Ends the running job alone. Called inside locked().
    void stopRunningJob() { m_stop.request(); }
    const StopRequest& stopRequest() const { return m_stop; }
    bool stopRequested() const { return m_stop.isRequested(); }

    // Ends the thread for good; waits as stopAndWait().
    void finish()
    {
        stopAndWait();
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_bFinish = true;
        }
        m_changed.notify_all();
        wait();
        OBFT_HAPPENS_AFTER(this);
    }

    void run() final
    {
        doJobs();
        OBFT_HAPPENS_BEFORE(this);
    }

private:
    void doJobs()
    {
        const StopRequest::Scope scope(m_stop);
        std::unique_lock<std::mutex> lock(m_mutex);
        while (true) {
            m_changed.wait(lock, [this] { return m_bFinish || !m_waiting.empty(); });
            if (m_bFinish)
                return;
            Job job = std::move(m_waiting.front());
            m_waiting.pop_front();
            m_pRunning = &job;
            m_stop.clear();
            lock.unlock();
            work(job);
            lock.lock();
            m_pRunning = nullptr;
            lock.unlock();
            m_changed.notify_all();
            jobEnded();
            lock.lock();
        }
    }

    const char* const m_name;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    Waiting m_waiting;         // guarded by m_mutex
    Job* m_pRunning = nullptr; // guarded by m_mutex
    bool m_bFinish = false;    // guarded by m_mutex
    StopRequest m_stop;        // set and cleared under m_mutex
};
