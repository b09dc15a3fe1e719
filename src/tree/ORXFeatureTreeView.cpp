// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXFeatureTreeView.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELTouchScrolling.h"
#include "tree/ContextMenuKey.h"
#include "tree/EditorFocus.h"
#include "tree/IFeatureViewPage.h"
#include "tree/ORXFeatureScrollBar.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QThread>
#include <QWheelEvent>

ORXFeatureTreeView::ORXFeatureTreeView(ORXPropertyTreeItem::ParentType type, IFeatureViewPage* page,
                                       QWidget* parent)
    : QTreeView(parent)
    , ZELCustomQssHelper(this)
    , m_pPage(page)
    , m_pageType(type)
    , m_pModel(new ORXPropertyTreeModel(type, this))
    , m_pDelegate(new ORXPropertyTreeDelegate(type, this))
{
    setObjectName(QStringLiteral("FeatureTree"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBar(new ORXFeatureScrollBar(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    cSetStyleSheets({ZELCustom::Sheet_Tree, ZELCustom::Sheet_ScrollBar});
    setContextMenuPolicy(Qt::CustomContextMenu);
    new ContextMenuKey(this);
    new ZELTouchScrolling(this);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pModel->resetCamearID(m_lCameraID);
    m_pModel->bindingFeatureWidget(page);
    setModel(m_pModel);
    setItemDelegate(m_pDelegate);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->hide();

    m_editorTimer.setSingleShot(true);
    m_editorTimer.setInterval(0);
    connect(&m_editorTimer, &QTimer::timeout, this, [this] {
        keepCurrentShown();
        syncEditors();
        tellRowsInSight();
    });
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
    // Later: the editor handles the event first. Its row, and with it the editor, may go meanwhile.
    connect(m_pDelegate, &ORXPropertyTreeDelegate::sigEditingEnded, this, [this](QWidget* editor) {
        const auto tell = [this, ended = QPointer<QWidget>(editor)] {
            if (ended)
                onEditingEnded(ended);
        };
        QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
    });
    connect(qApp, &QApplication::focusChanged, this, &ORXFeatureTreeView::onFocusChanged);
}

ORXFeatureTreeView::~ORXFeatureTreeView()
{
    // A focused editor changes the focus when it is destroyed, after this object's own part.
    disconnect(qApp, nullptr, this, nullptr);
    dropEditors();
}

void ORXFeatureTreeView::resetData(qint64 cameraId, ORXPropertyTreeItem* root)
{
    dropEditors();
    m_lCameraID = cameraId;
    m_pRootItem = root;
    m_inSight.clear();
    m_openEditors.clear();
    m_pDelegate->setCurMoveItem(nullptr);
    m_pModel->resetCamearID(cameraId);
    m_pModel->updateData(root);
    updateRowsVisible(root, true);
    m_bRowsChanged = true;
    scheduleEditors();
}

void ORXFeatureTreeView::setForbiddenUpdate(bool forbidden)
{
    m_bForbiddenUpdate = forbidden;
}

void ORXFeatureTreeView::setDisableScroll()
{
    m_bDisableScroll = true;
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ORXFeatureTreeView::clearModelInfo()
{
    resetData(-1, nullptr);
}

void ORXFeatureTreeView::setIsCanEdit(bool canEdit)
{
    m_pModel->setIsCanEdit(canEdit);
    m_pDelegate->setIsCanEdit(canEdit);
    updateAllEditorData();
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
    if (QThread::currentThread() != thread()) {
        emit sigSetItemVisible(cameraId, item, visible);
        return;
    }
    const QScopedValueRollback<bool> direct(m_bDirectNotification, true);
    emit sigSetItemVisible(cameraId, item, visible);
}

void ORXFeatureTreeView::itemExpanded(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded)
{
    if (!m_bForbiddenUpdate)
        emit sigSetItemExpended(cameraId, item, expanded);
}

void ORXFeatureTreeView::itemValueChanged(qint64 cameraId, ORXPropertyTreeItem* item, int column,
                                          bool needRecreateEditor)
{
    if (!m_bForbiddenUpdate)
        emit sigUpdateEditorData(cameraId, item, column, needRecreateEditor);
}

void ORXFeatureTreeView::itemSpecialInfoChanged(qint64 cameraId, ORXPropertyTreeItem* item,
                                                int info)
{
    if (!m_bForbiddenUpdate)
        emit sigUpdateSpecialInfo(cameraId, item, info);
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
    if (setRowHiddenIfChanged(item, !visible)) {
        doParentItemVisible(item->parent(m_pageType), item->indexInParent(m_pageType));
        scheduleEditors();
    } else if (visible) {
        repaintItem(item);
    }
}

// Not by update(index): that lays a changed tree out at once, and one layout has to serve all the
// changes of a pass or a search.
void ORXFeatureTreeView::repaintItem(ORXPropertyTreeItem* item)
{
    if (m_editorTimer.isActive() || m_inSight.contains(item))
        viewport()->update();
}

bool ORXFeatureTreeView::setRowHiddenIfChanged(ORXPropertyTreeItem* item, bool hidden)
{
    const QModelIndex index = m_pModel->indexFromItem(item, 0);
    if (!index.isValid() || isRowHidden(index.row(), index.parent()) == hidden)
        return false;
    if (hidden)
        closeEditorsBelow(item);
    setRowHidden(index.row(), index.parent(), hidden);
    return true;
}

// The search for a shown row starts at the one that changed: rows are mostly hidden and shown in
// order, and a whole group must not cost a scan of all its rows for each of them.
void ORXFeatureTreeView::doParentItemVisible(ORXPropertyTreeItem* item, int changedRow)
{
    while (item && item != m_pRootItem) {
        const QModelIndex index = m_pModel->indexFromItem(item, 0);
        const int rows = item->childCount();
        bool anyShown = false;
        for (int i = 0; i < rows && !anyShown; ++i)
            anyShown = !isRowHidden((qMax(0, changedRow) + i) % rows, index);
        if (!setRowHiddenIfChanged(item, !anyShown))
            return;
        changedRow = item->indexInParent(m_pageType);
        item = item->parent(m_pageType);
    }
}

void ORXFeatureTreeView::updateRowsVisible(ORXPropertyTreeItem* item, bool visible)
{
    if (!item)
        return;
    const bool shown = item->visible() && visible && item->groupVisible();
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children)
        updateRowsVisible(child, shown);
    if (item != m_pRootItem)
        setRowHiddenIfChanged(item, !shown);
    scheduleEditors();
}

void ORXFeatureTreeView::onSetItemExpended(qint64 cameraId, ORXPropertyTreeItem* item,
                                           bool expanded)
{
    if (concerns(cameraId, item))
        setExpanded(m_pModel->indexFromItem(item, 0), expanded);
}

void ORXFeatureTreeView::onUpdateEditorData(qint64 cameraId, ORXPropertyTreeItem* item, int kind,
                                            bool recreate)
{
    if (!concerns(cameraId, item))
        return;
    repaintItem(item);
    if (m_openEditors.contains(item)) {
        if (recreate) {
            const QWidget* editor = editorOf(item);
            // The rest of what is being typed must not land in the new editor.
            const bool keepsFocus =
                editor && EditorFocus::isInside(editor) && !EditorFocus::hasPendingEdit(editor);
            closeEditors(item);
            openEditors(item);
            if (keepsFocus)
                focusCell(m_pModel->indexFromItem(item, 1), Qt::OtherFocusReason);
        }
        for (int column = 0; column < 2; ++column) {
            if (QWidget* editor = editorOf(item, column))
                m_pDelegate->setEditorData(editor, m_pModel->indexFromItem(item, column));
        }
    } else {
        // The item's value may have come from its mirror, which the user edits.
        ORXPropertyTreeDelegate::noteShownState(item);
        // Its first value came.
        if (m_inSight.contains(item) && hasEditor(*item))
            scheduleEditors();
    }
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
    scheduleEditors();
}

void ORXFeatureTreeView::OnSigCollapsed(const QModelIndex& index)
{
    if (ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index)) {
        closeEditorsBelow(item);
        m_pPage->itemExpandStateChanged(item, false);
    }
    scheduleEditors();
}

// Sizes and events --------------------------------------------------------------------------------

int ORXFeatureTreeView::getVisibleHeight() const
{
    return m_pRootItem ? visibleHeightBelow(m_pRootItem) : 0;
}

int ORXFeatureTreeView::visibleHeightBelow(ORXPropertyTreeItem* item) const
{
    int height = 0;
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children) {
        const QModelIndex index = m_pModel->indexFromItem(child, 0);
        if (!child->value() || isRowHidden(index.row(), index.parent()))
            continue;
        if (child->tag() == FeatureTag::CCM)
            height += ORXPropertyTreeDelegate::kMatrixRowHeight;
        else if (item != m_pRootItem)
            height += ORXPropertyTreeDelegate::kRowHeight;
        if (child->childCount() > 0 && isExpanded(index))
            height += visibleHeightBelow(child);
    }
    return height;
}

void ORXFeatureTreeView::wheelEvent(QWheelEvent* event)
{
    if (m_bDisableScroll)
        event->ignore();
    else
        QTreeView::wheelEvent(event);
}

void ORXFeatureTreeView::mousePressEvent(QMouseEvent* event)
{
    if (!isThin(indexAt(event->pos())))
        QTreeView::mousePressEvent(event);
    event->ignore();
}

void ORXFeatureTreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!isThin(indexAt(event->pos())))
        QTreeView::mouseDoubleClickEvent(event);
}

void ORXFeatureTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    event->ignore();
}

void ORXFeatureTreeView::mouseMoveEvent(QMouseEvent* event)
{
    QTreeView::mouseMoveEvent(event);
    event->ignore();
}

void ORXFeatureTreeView::changeEvent(QEvent* event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        viewport()->update();
        updateAllEditorData();
    }
}

void ORXFeatureTreeView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
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

void ORXFeatureTreeView::drawBranches(QPainter* painter, const QRect& rect,
                                      const QModelIndex& index) const
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    if (item && item->tag() != FeatureTag::CCM && !isThin(index))
        QTreeView::drawBranches(painter, rect, index);
}
