// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "support/FakeHost.h"
#include "support/TestMain.h"
#include "tree/IFeatureTreeFinder.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <memory>

class ZELCustomMessageBox;

// Finds the trees that a test made.
class Finder : public IFeatureTreeFinder
{
public:
    ORXFeatureTree* featureTree(qint64 cameraId, bool) override { return trees.value(cameraId); }
    bool hasFeatureTree(qint64 cameraId) const override { return trees.contains(cameraId); }
    QMap<qint64, ORXFeatureTree*> trees;
};

// Base of tests of a whole feature tree: each function gets a tree of camera 1 over a host in
// memory, built but not read, at the level that shows everything.
class FeatureTreeTest : public GuardedTest
{
protected:
    using Item = ORXPropertyTreeItem;

    void prepare() override;
    void finish() override;
    bool failsOnGuiThreadReads() const override { return true; }

    std::unique_ptr<ORXFeatureTree> makeTree(qint64 cameraId);
    // Reads the whole tree, then waits until nothing is under way.
    void readOnce();
    Item* item(const char* name) { return m_tree->propertyItemByName(QString::fromLatin1(name)); }
    template <typename Editor>
    Editor* editor(const char* name)
    {
        return qobject_cast<Editor*>(m_tree->treeView()->editorOf(item(name)));
    }
    ORXFeatureTreeView* view() const { return m_tree->treeView(); }
    QModelIndex index(Item* of) const { return view()->treeModel()->indexFromItem(of, 0); }
    bool isHidden(Item* of) const
    {
        return view()->isRowHidden(index(of).row(), index(of).parent());
    }
    // Reads everything once; afterwards only what is asked for is read, and nothing is polled.
    void readWithoutPolling();
    // Text of the loading overlay; empty when it is not shown.
    static QString overlay();
    ZELCustomMessageBox* messageBox();

    std::unique_ptr<FakeHost> m_host;
    Finder m_finder;
    std::unique_ptr<ORXFeatureTree> m_tree;
};
