// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DemoCamera.h"
#include "HostCallbacks.h"
#include "OBFeatureTree/OBFeatureTree.h"
#include "main/CFeatureGroupModel.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "main/ORXMainFeatureWidget.h"
#include "model/ORXPropertyTreeModel.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QTest>

// The window, opened through the exported functions on the demo camera, and what a user does in
// it. Released again when it goes.
class DemoWindow
{
public:
    explicit DemoWindow(DemoCamera& camera, int language = 0)
        : m_callbacks(camera)
    {
        OB_FT_Init(camera.descriptionXml().c_str(), nullptr, nullptr);
        OB_FT_SetCallBackFunc(HostCallbacks::getFeature, HostCallbacks::setFeature,
                              HostCallbacks::getMode, HostCallbacks::invalidate,
                              HostCallbacks::action, &m_callbacks);
        OB_FT_SetWidgetSize(900, 900);
        OB_FT_Start(nullptr, language);
    }
    ~DemoWindow() { OB_FT_Release(); }
    DemoWindow(const DemoWindow&) = delete;
    DemoWindow& operator=(const DemoWindow&) = delete;

    ORXMainFeatureWidget* widget() const { return ORXMainFeatureWidget::instance(nullptr); }
    ORXFeatureTree* tree() const { return widget()->featureTree(1, false); }
    ORXFeatureTreeView* view() const { return tree()->treeView(); }
    ORXPropertyTreeItem* item(const char* name) const
    {
        return tree()->propertyItemByName(QString::fromLatin1(name));
    }
    bool waitForFirstRead() const
    {
        return QTest::qWaitFor([this] { return tree()->HadUpdatedOnce(); }, kSlowMs);
    }
    // Clicks the group of the whole tree that holds the item, in the side column.
    void clickGroupOf(const ORXPropertyTreeItem* item) const
    {
        const ORXPropertyTreeItem* group = item;
        while (group->parent(ORXPropertyTreeItem::FeatureTreePage) != tree()->rootItem())
            group = group->parent(ORXPropertyTreeItem::FeatureTreePage);
        CFeatureGroupTreeView* groups = widget()->featureGroup(1)->groupView();
        const QModelIndex row =
            groups->model()->index(group->indexInParent(ORXPropertyTreeItem::FeatureTreePage), 0,
                                   groups->model()->index(0, 0));
        groups->scrollTo(row);
        QTest::mouseClick(groups->viewport(), Qt::LeftButton, {}, groups->visualRect(row).center());
    }
    // Brings a row of the whole tree into sight; the middle of its name.
    QPoint rowOf(ORXPropertyTreeItem* item) const
    {
        const QModelIndex row = view()->treeModel()->indexFromItem(item, 0);
        view()->scrollTo(row);
        return view()->visualRect(row).center();
    }
    // Waits until the editor of a row can be used; null when it never can.
    QWidget* editorOf(ORXPropertyTreeItem* item) const
    {
        rowOf(item);
        QWidget* editor = nullptr;
        const bool ready = QTest::qWaitFor(
            [&] {
                editor = view()->editorOf(item);
                return editor && editor->isVisible() && editor->isEnabled();
            },
            kSlowMs);
        return ready ? editor : nullptr;
    }

    static constexpr int kSlowMs = 20000; // a pass under a sanitizer on a busy machine

private:
    HostCallbacks m_callbacks;
};
