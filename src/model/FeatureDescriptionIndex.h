// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNodeMap.h"
#include "model/InvalidationGraph.h"
#include "model/NodesReadAhead.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QStringList>

#include <future>

// Look-up tables of one camera's description: what depends on what, so that a write to one feature
// tells which others must be read again. Belongs to the camera's tree; GUI thread. Reading threads
// get copies of the tables, which nobody changes afterwards.
//
// Order of building: GenerateDomElementMap, then (once the items exist) setItemNames and the
// other Generate... operations. Walks along references take linear time and survive circles.
// Unknown names give empty results.
class FeatureDescriptionIndex
{
public:
    // Nodes ---------------------------------------------------------------------------------------
    void GenerateDomElementMap(pugi::xml_node root);
    void GenerateDomElementMap(const NodesReadAhead::Nodes& read);
    const FeatureNodeMap& nodes() const { return m_nodes; }
    FeatureNodePtr GetDomElementNode(const QString& name) const { return m_nodes.node(name); }
    // Text of the first "ImposedAccessMode" or "AccessMode".
    static QString GetValueAccessMode(const FeatureNodePtr& node);
    // Text of the first "pValue" or "pIsLocked"; false when there is none.
    static bool GetPValueText(const FeatureNodePtr& node, QString& text);
    static bool GetPIsLockedText(const FeatureNodePtr& node, QString& text);

    // The names that have an item in the tree, in name order; the feature tables cover only them.
    void setItemNames(const QStringList& names);

    // Invalidators --------------------------------------------------------------------------------
    // Built on the loading lane, unless it came with the nodes; who asks before its end waits.
    void ResetFeaturesInvalidatorMap();
    // The features whose values a change of `name` makes stale, `name` itself included, each once.
    QList<QString> GetFeatureInvalidatorList(const QString& name) const;
    // Whether `name` is in the list, or has a pValue that is.
    bool IsFeatureInQList(const QString& name, const QList<QString>& list) const;
    QList<QString> GetFeaturesNameByPValue(const QString& value) const;
    QList<QString> GetFeaturePVariableList(const QString& name) const;
    QList<QString> GetFeaturesHaveSamePVariable(const QString& name) const;

    // Pairs and selectors -------------------------------------------------------------------------
    void GenerateFeaturePValueList();
    void GenerateFeaturePairList();
    bool GetFeatureInPair(const QString& name, QString& partner) const;
    void GenerateFeaturePSelectedList(const QString& name, QList<QString>& list) const;
    void GeneratePSelectedList();
    bool GetFeaturePSelectedList(const QString& name, QList<QString>& list) const;

    // Locks and polling ---------------------------------------------------------------------------
    void GenerateFeaturesTLParamsLocked();
    const QList<QString>& lockableFeatures() const { return m_lockable; }
    int GetPollingTime(const QString& name) const; // milliseconds, 0 for none
    bool IsNoCacheFeature(const QString& name) const;
    // Built on the loading lane.
    void GenerateFeatureNoCacheList();
    // Feature to re-read interval, a multiple of 50 ms. Waits until it is built.
    const QMap<QString, int>& pollingMap() const;
    // The same for who waits later, on any thread; invalid before it is begun.
    std::shared_future<QMap<QString, int>> polling() const { return m_polling; }

private:
    const InvalidationGraph& invalidation() const;

    FeatureNodeMap m_nodes;
    QStringList m_itemNames;
    QSet<QString> m_itemNameSet;
    std::shared_future<InvalidationGraph> m_invalidation; // invalid before it is begun
    QHash<QString, QString> m_pValues;
    QHash<QString, QStringList> m_namesByPValue; // reverse of m_pValues, in name order
    QHash<QString, QString> m_pairs;
    QHash<QString, QList<QString>> m_selected;
    QList<QString> m_lockable;
    std::shared_future<QMap<QString, int>> m_polling; // invalid before it is begun
};
