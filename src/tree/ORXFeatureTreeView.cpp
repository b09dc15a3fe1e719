// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXFeatureTreeView.h"

#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustom.h"
#include "tree/IFeatureViewPage.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QPainter>
#include <QScopedValueRollback>
#include <QThread>

ORXFeatureTreeView::ORXFeatureTreeView(ORXPropertyTreeItem::ParentType type, IFeatureViewPage* page,
                                       QWidget* parent)
    : FeatureRowsView(type, parent)
    , ZELCustomQssHelper(this)
    , m_pPage(page)
{
    setObjectName(QStringLiteral("FeatureTree"));
    cSetStyleSheets({ZELCustom::Sheet_Tree, ZELCustom::Sheet_ScrollBar});
    treeModel()->resetCamearID(m_lCameraID);
    treeModel()->bindingFeatureWidget(page);
    treeDelegate()->setReasonOf(
        [page](const ORXPropertyTreeItem& item) { return page->readOnlyReason(item); });

    connect(this, &ORXFeatureTreeView::sigSetItemVisible, this,
            &ORXFeatureTreeView::onSetItemVisible);
    connect(this, &ORXFeatureTreeView::sigSetItemExpended, this,
            &ORXFeatureTreeView::onSetItemExpended);
    connect(this, &ORXFeatureTreeView::sigUpdateEditorData, this,
            &ORXFeatureTreeView::onUpdateEditorData);
    connect(this, &ORXFeatureTreeView::sigUpdateSpecialInfo, this,
            &ORXFeatureTreeView::onUpdateSpecialInfo);
    connect(this, &QTreeView::expanded, this, &ORXFeatureTreeView::OnSigExpanded);
    connect(this, &QTreeView::collapsed, this, &ORXFeatureTreeView::OnSigCollapsed);
}

void ORXFeatureTreeView::resetData(qint64 cameraId, ORXPropertyTreeItem* root)
{
    dropEditors();
    m_lCameraID = cameraId;
    treeModel()->resetCamearID(cameraId);
    showRowsBelow(root);
}

void ORXFeatureTreeView::setForbiddenUpdate(bool forbidden)
{
    m_bForbiddenUpdate = forbidden;
}

void ORXFeatureTreeView::clearModelInfo()
{
    resetData(-1, nullptr);
}

void ORXFeatureTreeView::setPlaceholderText(const QString& text)
{
    m_strPlaceholder = text;
    viewport()->update();
}

// Notifications -----------------------------------------------------------------------------------

void ORXFeatureTreeView::itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item,
                                            bool visible)
{
    if (m_bForbiddenUpdate)
        return;
    const bool direct = QThread::currentThread() == thread();
    m_notices.tell([=] {
        const QScopedValueRollback<bool> asTold(m_bDirectNotification, direct);
        emit sigSetItemVisible(cameraId, item, visible);
    });
}

void ORXFeatureTreeView::itemExpanded(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded)
{
    if (!m_bForbiddenUpdate)
        m_notices.tell([=] { emit sigSetItemExpended(cameraId, item, expanded); });
}

void ORXFeatureTreeView::itemValueChanged(qint64 cameraId, ORXPropertyTreeItem* item, int column,
                                          bool needRecreateEditor)
{
    if (m_bForbiddenUpdate)
        return;
    m_notices.tell([=] { emit sigUpdateEditorData(cameraId, item, column, needRecreateEditor); });
}

void ORXFeatureTreeView::itemSpecialInfoChanged(qint64 cameraId, ORXPropertyTreeItem* item,
                                                int info)
{
    if (!m_bForbiddenUpdate)
        m_notices.tell([=] { emit sigUpdateSpecialInfo(cameraId, item, info); });
}

// A queued notification may arrive after its item has gone, or for a camera shown before.
bool ORXFeatureTreeView::concerns(qint64 cameraId, ORXPropertyTreeItem* item) const
{
    return item && cameraId != -1 && cameraId == m_lCameraID && ORXPropertyTreeItem::isAlive(item);
}

void ORXFeatureTreeView::onSetItemVisible(qint64 cameraId, ORXPropertyTreeItem* item, bool visible)
{
    if (!concerns(cameraId, item))
        return;
    m_pPage->itemVisibleStateChanged(item);
    if (item->childCount() > 0)
        return;
    // What a reading thread said may be overtaken by now: by a search, or by another group.
    if (!m_bDirectNotification)
        visible = item->visible() && item->groupVisible() && item->searchMatch();
    showRow(item, visible);
}

void ORXFeatureTreeView::onSetItemExpended(qint64 cameraId, ORXPropertyTreeItem* item,
                                           bool expanded)
{
    if (concerns(cameraId, item))
        setExpanded(treeModel()->indexFromItem(item, 0), expanded);
}

void ORXFeatureTreeView::onUpdateEditorData(qint64 cameraId, ORXPropertyTreeItem* item, int kind,
                                            bool recreate)
{
    if (!concerns(cameraId, item))
        return;
    showValue(item, recreate);
    if (kind != 1)
        m_pPage->itemValueChanged(item);
}

void ORXFeatureTreeView::onUpdateSpecialInfo(qint64 cameraId, ORXPropertyTreeItem* item, int info)
{
    if (concerns(cameraId, item))
        m_pPage->itemSpecialInfoChanged(item, info);
}

void ORXFeatureTreeView::OnSigExpanded(const QModelIndex& index)
{
    if (ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index))
        m_pPage->itemExpandStateChanged(item, true);
}

void ORXFeatureTreeView::OnSigCollapsed(const QModelIndex& index)
{
    if (ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index))
        m_pPage->itemExpandStateChanged(item, false);
}

// Painting ----------------------------------------------------------------------------------------

void ORXFeatureTreeView::paintEvent(QPaintEvent* event)
{
    FeatureRowsView::paintEvent(event);
    const QModelIndex top = indexAt(QPoint(1, 1));
    const bool empty = !top.isValid() || (!indexBelow(top).isValid() && !top.parent().isValid());
    if (m_strPlaceholder.isEmpty() || !empty)
        return;
    QPainter painter(viewport());
    painter.setFont(ZELCustom::font(14));
    painter.setPen(
        ZELCustom::getDataBaseColor(QStringLiteral("ORXPropertyTreeModelColor_Foreground")));
    const int margin = 24;
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_strPlaceholder);
}
