// SPDX-License-Identifier: Apache-2.0
#include "tree/ORXFeatureTreeView.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "reading/ThreadAnnotations.h"
#include "styledctl/ZELCustom.h"
#include "tree/IORXFeatureWidget.h"
#include "tree/ORXFeatureScrollBar.h"
#include "tree/ORXPropertyTreeDelegate.h"

#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

ORXFeatureTreeView::ORXFeatureTreeView(ORXPropertyTreeItem::ParentType type,
                                       IORXFeatureWidget* page)
    : QTreeView(page)
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
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pModel->resetCamearID(m_lCameraID);
    m_pModel->bindingFeatureWidget(page);
    setModel(m_pModel);
    setItemDelegate(m_pDelegate);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->hide();

    m_editorTimer.setSingleShot(true);
    m_editorTimer.setInterval(0);
    connect(&m_editorTimer, &QTimer::timeout, this, &ORXFeatureTreeView::syncEditors);
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

ORXFeatureTreeView::~ORXFeatureTreeView() = default;

void ORXFeatureTreeView::resetData(qint64 cameraId, ORXPropertyTreeItem* root)
{
    m_lCameraID = cameraId;
    m_pRootItem = root;
    m_openEditors.clear();
    m_pDelegate->setCurMoveItem(nullptr);
    m_pModel->resetCamearID(cameraId);
    m_pModel->updateData(root);
    scheduleEditors();
}

void ORXFeatureTreeView::setForbiddenUpdate(bool forbidden) { m_bForbiddenUpdate = forbidden; }

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
    if (!m_bForbiddenUpdate)
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
    return item && cameraId != -1 && cameraId == m_lCameraID
           && ORXPropertyTreeItem::isAlive(item);
}

void ORXFeatureTreeView::onSetItemVisible(qint64 cameraId, ORXPropertyTreeItem* item, bool visible)
{
    if (!concerns(cameraId, item))
        return;
    m_pPage->itemVisibleStateChanged(item);
    if (item->childCount() > 0)
        return;
    if (setRowHiddenIfChanged(item, !visible)) {
        doParentItemVisible(item->parent(m_pageType));
        scheduleEditors();
    } else if (visible) {
        update(m_pModel->indexFromItem(item, 0));
    }
}

bool ORXFeatureTreeView::setRowHiddenIfChanged(ORXPropertyTreeItem* item, bool hidden)
{
    const QModelIndex index = m_pModel->indexFromItem(item, 0);
    if (!index.isValid() || isRowHidden(index.row(), index.parent()) == hidden)
        return false;
    setRowHidden(index.row(), index.parent(), hidden);
    return true;
}

void ORXFeatureTreeView::doParentItemVisible(ORXPropertyTreeItem* item)
{
    while (item && item != m_pRootItem) {
        const QModelIndex index = m_pModel->indexFromItem(item, 0);
        bool anyShown = false;
        for (int row = 0; row < item->childCount() && !anyShown; ++row)
            anyShown = !isRowHidden(row, index);
        setRowHiddenIfChanged(item, !anyShown);
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
    update(m_pModel->indexFromItem(item, 0));
    if (m_openEditors.contains(item)) {
        const QModelIndex cell = m_pModel->indexFromItem(item, 1);
        if (recreate) {
            closePersistentEditor(cell);
            openEditor(cell);
        }
        if (QWidget* editor = indexWidget(cell))
            m_pDelegate->setEditorData(editor, cell);
        if (QWidget* nameEditor = editorOf(item, 0))
            m_pDelegate->setEditorData(nameEditor, m_pModel->indexFromItem(item, 0));
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
    if (ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index))
        m_pPage->itemExpandStateChanged(item, false);
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
    QTreeView::mousePressEvent(event);
    event->ignore();
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

// From a row the keyboard reaches its editor with Enter or F2.
void ORXFeatureTreeView::keyPressEvent(QKeyEvent* event)
{
    const bool wantsEditor = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter
                             || event->key() == Qt::Key_F2;
    QWidget* editor =
        wantsEditor ? editorOf(ORXPropertyTreeModel::itemFromIndex(currentIndex())) : nullptr;
    if (editor && editor->isEnabled()) {
        editor->setFocus(Qt::TabFocusReason);
        event->accept();
        return;
    }
    QTreeView::keyPressEvent(event);
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
    // Groups directly below the root are a thin line; the side column names them.
    const bool thin = !index.parent().isValid();
    if (item && item->tag() != FeatureTag::CCM && !thin)
        QTreeView::drawBranches(painter, rect, index);
}
