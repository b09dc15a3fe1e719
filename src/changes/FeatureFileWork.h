// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/FeatureFile.h"
#include "changes/FeatureFileOrder.h"
#include "changes/FeatureFileRow.h"
#include "changes/SelectorPositions.h"
#include "reading/FeatureMutex.h"

#include <functional>

class StopRequest;

// What is done between a feature file and the camera: saving, comparing, applying. A local of a
// worker; every operation calls the host. The tree's feature mutex is held, so that no reading pass
// sees a value of another entry; a pass that waits has its turn between two features, with the
// selectors where the user has them. A stop ends the work before its next call.
class FeatureFileWork
{
public:
    using Progress = std::function<void(int done, int total)>;

    // `mutex` and `stop` must outlive it; not owned.
    FeatureFileWork(const FeatureNodeMap& nodes, FeatureMutex* mutex, const StopRequest& stop,
                    const Progress& progress);

    // The values of all streamable features among `names`, in an order that can be written back;
    // `notSaved` gets one row for each value that could not be had.
    FeatureFile save(const QStringList& names, QVector<FeatureFileRow>& notSaved);
    // One row for each value in the file. A selector's line is one only where the file leaves it.
    QVector<FeatureFileRow> compare(const FeatureFile& file);
    // Writes the chosen rows in their order and reads each back. What is refused, or was changed
    // by a later write, is tried again as long as that helps.
    void apply(QVector<FeatureFileRow>& rows);

private:
    void saveGroup(const FeatureFileGroup& group, FeatureFile& file,
                   QVector<FeatureFileRow>& notSaved);
    // The settings of the group's selectors from that one on, each in turn; returns whether any
    // value was saved.
    bool saveFrom(int selector, const FeatureFileGroup& group,
                  const QVector<SelectorSetting>& settings, FeatureFile& file,
                  QVector<FeatureFileRow>& notSaved);
    bool saveFeature(const QString& name, const QVector<SelectorSetting>& settings,
                     FeatureFile& file, QVector<FeatureFileRow>& notSaved);
    QStringList settingsOf(const FeatureNode& selector) const;
    void compareRow(FeatureFileRow& row);
    bool applyRow(FeatureFileRow& row);
    bool readBack(FeatureFileRow& row);
    // Lets a reading pass have its turn.
    void giveWay(const QVector<SelectorSetting>& settings);
    bool isStopped() const;
    void stepDone();

    const FeatureNodeMap m_nodes;
    const FeatureFileOrder::Selectors m_selectors;
    const StopRequest& m_stop;
    const Progress m_progress;
    FeatureLock m_lock;
    SelectorPositions m_positions; // put back before the lock goes
    int m_done = 0;
    int m_total = 0;
};
