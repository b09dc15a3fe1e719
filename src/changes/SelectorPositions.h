// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/FeatureFileOrder.h"
#include "changes/SelectorSetting.h"

// Where a worker has moved the camera's selectors, and where they stood before. All are put back
// when it goes, also after a failure or a stop. A local of a worker, which holds the tree's feature
// mutex; calls the host.
class SelectorPositions
{
public:
    // Both must outlive it.
    SelectorPositions(const FeatureNodeMap& nodes, const FeatureFileOrder::Selectors& selectors);
    ~SelectorPositions();
    SelectorPositions(const SelectorPositions&) = delete;
    SelectorPositions& operator=(const SelectorPositions&) = delete;

    // Moves a selector, after what it selects itself was put back. False when the camera refuses,
    // with its code in `error` (may be null), or when it does not tell where the selector stands.
    bool move(const QString& selector, const QString& value, int* error);
    // The same of several, one after the other.
    bool move(const QVector<SelectorSetting>& settings, int* error);
    // Where a selector stood before it was moved; null text when it was not.
    QString before(const QString& selector) const;
    // The selector was written for the user: what is there now is where it is put back to.
    void stays(const QString& selector, const QString& value);
    bool isMoved() const { return !m_moved.isEmpty(); }
    void putBack();

private:
    struct Moved
    {
        QString name;
        QString before;
        QString now; // null after a refused write
    };
    void putBackFrom(int index, const QStringList& names);
    void putBack(const Moved& moved);
    int indexOf(const QString& selector) const;

    const FeatureNodeMap& m_nodes;
    const FeatureFileOrder::Selectors& m_selectors;
    QVector<Moved> m_moved; // in the order in which they were moved first
};
