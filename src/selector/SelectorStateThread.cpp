// SPDX-License-Identifier: Apache-2.0
#include "selector/SelectorStateThread.h"

#include "device/OBDeviceControl.h"
#include "reading/FeatureMutex.h"
#include "reading/SelectorKeeper.h"

#include <algorithm>
#include <utility>

namespace {

int stateOf(const SelectorPair& pair)
{
    if (pair.isEnumeration) {
        const std::optional<quint32> number = readEntryNumber(pair.enable);
        return number ? (*number == pair.on ? 1 : 0) : -1;
    }
    bool on = false;
    return OBDeviceControl::GetBoolNodeValue(pair.enable, &on) ? (on ? 1 : 0) : -1;
}

void dropReadings(std::deque<SelectorJob>& jobs)
{
    const auto reads = [](const SelectorJob& job) { return !job.isWrite; };
    jobs.erase(std::remove_if(jobs.begin(), jobs.end(), reads), jobs.end());
}

} // namespace

SelectorStateThread::SelectorStateThread(QObject* parent)
    : SerialWorker("Check boxes", parent)
{
}

SelectorStateThread::~SelectorStateThread()
{
    finish();
}

void SelectorStateThread::read(FeatureMutex* featureMutex, const Pair& pair,
                               const QVector<qint64>& entries)
{
    // Takes the place of readings that wait. One that runs may have passed what has changed since.
    locked([](Waiting& waiting, SelectorJob*) { dropReadings(waiting); });
    post({featureMutex, pair, entries, false, false});
}

void SelectorStateThread::write(FeatureMutex* featureMutex, const Pair& pair, qint64 entry, bool on)
{
    post({featureMutex, pair, {entry}, true, on});
}

void SelectorStateThread::stopReading()
{
    locked([this](Waiting& waiting, SelectorJob* running) {
        dropReadings(waiting);
        if (running && !running->isWrite)
            stopRunningJob();
    });
}

void SelectorStateThread::stop()
{
    stopAndWait();
    takeAnswers();
}

void SelectorStateThread::work(SelectorJob& job)
{
    if (job.isWrite)
        writeState(job);
    else
        readStates(job);
}

void SelectorStateThread::jobEnded()
{
    emit SigJobEnded();
}

void SelectorStateThread::readStates(const SelectorJob& job)
{
    QVector<int> states(job.entries.size(), -1);
    FeatureLock lock(job.featureMutex, &stopRequest());
    for (int i = 0; i < states.size() && lock.holds();) {
        {
            SelectorKeeper keeper(job.pair.selector);
            if (!keeper.isKnown())
                break;
            do {
                if (keeper.select(static_cast<quint32>(job.entries.at(i)), nullptr))
                    states[i] = stateOf(job.pair);
            } while (++i < states.size() && !stopRequested() && !lock.isWaitedFor());
        }
        lock.giveWay();
    }
    if (stopRequested())
        return;
    Answer found;
    found.selector = job.pair.selector;
    found.states = states;
    answer(found);
}

void SelectorStateThread::writeState(const SelectorJob& job)
{
    const SelectorPair& pair = job.pair;
    int error = -1;
    QString refused = pair.selector;
    const FeatureLock lock(job.featureMutex, &stopRequest());
    if (!lock.holds())
        return;
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
    // Stopped before the camera was asked: that is no refusal.
    if (!refused.isEmpty() && stopRequested())
        return;
    answer({pair.selector, true, {}, job.entries.constFirst(), job.on, refused, error});
}

void SelectorStateThread::answer(const Answer& found)
{
    locked([&](Waiting&, SelectorJob*) { m_answers.append(found); });
}

QVector<SelectorStateThread::Answer> SelectorStateThread::takeAnswers()
{
    return locked([this](Waiting&, SelectorJob*) { return std::exchange(m_answers, {}); });
}
