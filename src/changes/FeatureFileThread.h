// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/FeatureFileWork.h"
#include "reading/SerialWorker.h"

#include <optional>

// What a FeatureFileThread is to do, and then what came of it.
struct FeatureFileJob
{
    enum class Kind { Save, Compare, Apply };

    Kind kind = Kind::Save;
    FeatureNodeMap nodes;
    FeatureMutex* mutex = nullptr; // Not owned.
    QStringList names;             // of what is saved
    FeatureFile file;              // saved, or compared
    // Of a save what is not in the file; of the others one for each value.
    QVector<FeatureFileRow> rows;
    bool wasStopped = false;
};

// Saves, compares and applies feature files on a thread of its own. Owned by whoever shows what
// comes of it.
//
// | operation              | thread  | lock                                             |
// |------------------------|---------|--------------------------------------------------|
// | start, takeResult      | GUI     | the worker's, inside                             |
// | progress               | any     | the worker's, inside                             |
// | the jobs               | its own | the tree's feature mutex                         |
// | the signals' emission  | its own | none; receivers get them queued                  |
class FeatureFileThread : public SerialWorker<FeatureFileJob>
{
    Q_OBJECT
public:
    explicit FeatureFileThread(QObject* parent = nullptr);
    ~FeatureFileThread() override;

    // The job's mutex must live until the job has ended.
    void start(const FeatureFileJob& job) { post(job); }
    // The ended job, once.
    std::optional<FeatureFileJob> takeResult();

    struct Progress
    {
        int done = 0;
        int total = 0; // 0: not known yet
    };
    Progress progress() const;

signals:
    void SigProgress(); // at the most once for each percent
    void SigEnded();

protected:
    void work(FeatureFileJob& job) override;
    void jobEnded() override;

private:
    void setProgress(int done, int total);

    Progress m_progress;                    // guarded by the worker's lock
    std::optional<FeatureFileJob> m_result; // guarded by the worker's lock
};
