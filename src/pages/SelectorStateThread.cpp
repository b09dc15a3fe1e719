// SPDX-License-Identifier: Apache-2.0
#include "pages/SelectorStateThread.h"

#include "device/OBDeviceControl.h"
#include "pages/StoppableFeatureLock.h"

#include <optional>
#include <utility>

namespace {

std::optional<quint32> numberOf(const QString& enumeration)
{
    _ZDCC_ENUMVALUE_T value = {};
    if (!OBDeviceControl::GetEnumNodeValue(enumeration, &value))
        return std::nullopt;
    return value.value;
}

int stateOf(const SelectorStateThread::Pair& pair)
{
    if (pair.isEnumeration) {
        const std::optional<quint32> number = numberOf(pair.enable);
        return number ? (*number == pair.on ? 1 : 0) : -1;
    }
    bool on = false;
    return OBDeviceControl::GetBoolNodeValue(pair.enable, &on) ? (on ? 1 : 0) : -1;
}

// Puts the selector back where it was, whatever happens meanwhile.
class SelectorKeeper
{
public:
    explicit SelectorKeeper(const QString& selector)
        : m_selector(selector)
        , m_before(numberOf(selector))
        , m_now(m_before)
    {
    }
    ~SelectorKeeper()
    {
        if (m_before)
            select(*m_before, nullptr);
    }
    SelectorKeeper(const SelectorKeeper&) = delete;
    SelectorKeeper& operator=(const SelectorKeeper&) = delete;

    bool isKnown() const { return m_before.has_value(); }
    bool select(quint32 entry, int* error)
    {
        if (m_now == entry)
            return true;
        // After a refused write nobody knows where it stands.
        m_now.reset();
        if (!OBDeviceControl::SetEnumNodeValue(m_selector, entry, error))
            return false;
        m_now = entry;
        return true;
    }

private:
    const QString m_selector;
    const std::optional<quint32> m_before;
    std::optional<quint32> m_now;
};

} // namespace

SelectorStateThread::SelectorStateThread(QObject* parent)
    : QObject(parent)
{
}

SelectorStateThread::~SelectorStateThread()
{
    stop();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bQuit = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void SelectorStateThread::read(QMutex* featureMutex, const Pair& pair,
                               const QVector<qint64>& entries)
{
    add({featureMutex, pair, entries, false, false});
}

void SelectorStateThread::write(QMutex* featureMutex, const Pair& pair, qint64 entry, bool on)
{
    add({featureMutex, pair, {entry}, true, on});
}

void SelectorStateThread::add(const Job& job)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_jobs.push_back(job);
        m_bStop = false;
        if (!m_thread.joinable())
            m_thread = std::thread([this] { run(); });
    }
    m_changed.notify_all();
}

void SelectorStateThread::stop()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_jobs.clear();
    m_bStop = true;
    m_changed.wait(lock, [this] { return !m_bRunning; });
    m_answers.clear();
}

void SelectorStateThread::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_bQuit) {
        if (m_jobs.empty()) {
            m_changed.wait(lock);
            continue;
        }
        const Job job = m_jobs.front();
        m_jobs.pop_front();
        m_bRunning = true;
        lock.unlock();
        runJob(job);
        lock.lock();
        m_bRunning = false;
        m_changed.notify_all();
    }
}

void SelectorStateThread::runJob(const Job& job)
{
    const StoppableFeatureLock lock(job.featureMutex, m_bStop);
    if (!lock.isLocked())
        return;
    if (job.isWrite)
        writeState(job);
    else
        readStates(job);
}

void SelectorStateThread::readStates(const Job& job)
{
    QVector<int> states(job.entries.size(), -1);
    {
        SelectorKeeper keeper(job.pair.selector);
        for (int i = 0; keeper.isKnown() && i < job.entries.size(); ++i) {
            if (m_bStop)
                return;
            if (keeper.select(static_cast<quint32>(job.entries.at(i)), nullptr))
                states[i] = stateOf(job.pair);
        }
    }
    Answer found;
    found.selector = job.pair.selector;
    found.states = states;
    answer(found);
}

void SelectorStateThread::writeState(const Job& job)
{
    const Pair& pair = job.pair;
    int error = -1;
    QString refused = pair.selector;
    {
        SelectorKeeper keeper(pair.selector);
        if (keeper.isKnown() &&
            keeper.select(static_cast<quint32>(job.entries.constFirst()), &error)) {
            const bool written =
                pair.isEnumeration ? OBDeviceControl::SetEnumNodeValue(
                                         pair.enable, job.on ? pair.on : pair.off, &error)
                                   : OBDeviceControl::SetBoolNodeValue(pair.enable, job.on, &error);
            refused = written ? QString() : pair.enable;
        }
    }
    answer({pair.selector, true, {}, job.entries.constFirst(), job.on, refused, error});
}

void SelectorStateThread::answer(const Answer& found)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_answers.append(found);
    }
    emit SigAnswered();
}

QVector<SelectorStateThread::Answer> SelectorStateThread::takeAnswers()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_answers, {});
}
