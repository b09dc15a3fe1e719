// SPDX-License-Identifier: Apache-2.0
#include "changes/FeatureFileThread.h"

FeatureFileThread::FeatureFileThread(QObject* parent)
    : SerialWorker("Feature files", parent)
{
}

FeatureFileThread::~FeatureFileThread()
{
    finish();
}

void FeatureFileThread::work(FeatureFileJob& job)
{
    setProgress(0, 0);
    {
        FeatureFileWork work(job.nodes, job.mutex, stopRequest(),
                             [this](int done, int total) { setProgress(done, total); });
        switch (job.kind) {
        case FeatureFileJob::Kind::Save: {
            const QString model = job.file.model;
            job.file = work.save(job.names, job.rows);
            job.file.model = model;
            break;
        }
        case FeatureFileJob::Kind::Compare:
            job.rows = work.compare(job.file);
            break;
        case FeatureFileJob::Kind::Apply:
            work.apply(job.rows);
            break;
        }
    }
    job.wasStopped = stopRequested();
    locked([&](Waiting&, FeatureFileJob*) { m_result = std::move(job); });
}

void FeatureFileThread::jobEnded()
{
    emit SigEnded();
}

void FeatureFileThread::setProgress(int done, int total)
{
    const bool tells = locked([&](Waiting&, FeatureFileJob*) {
        const auto percent = [](const Progress& of) {
            return of.total > 0 ? 100 * qint64(of.done) / of.total : -1;
        };
        const qint64 before = percent(m_progress);
        m_progress = {done, total};
        return percent(m_progress) != before;
    });
    if (tells)
        emit SigProgress();
}

FeatureFileThread::Progress FeatureFileThread::progress() const
{
    return locked([this](const Waiting&, const FeatureFileJob*) { return m_progress; });
}

std::optional<FeatureFileJob> FeatureFileThread::takeResult()
{
    return locked([this](Waiting&, FeatureFileJob*) { return std::exchange(m_result, {}); });
}
