// SPDX-License-Identifier: Apache-2.0
#include "main/CFeatureGroupTreeView.h"

#include "main/CFeatureGroupDelegate.h"
#include "model/ItemSearch.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELLateSheet.h"
#include "styledctl/ZELTouchScrolling.h"
#include "tree/ContextMenuKey.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QThread>

namespace {

constexpr int kKeepMs = 20; // a whole camera may be lost item by item
QVector<FeaturePage> pagesOf(const QList<ORXPropertyTreeItem*>& roots)
{
    QVector<FeaturePage> pages;
    for (int tab = 0; tab < roots.size(); ++tab) {
        if (roots.at(tab))
            pages.append({roots.at(tab), static_cast<ORXPropertyTreeItem::ParentType>(tab)});
    }
    return pages;
}

} // namespace

CFeatureGroupTreeView::CFeatureGroupTreeView(const QList<ORXPropertyTreeItem*>& roots,
                                             qint64 cameraId, QWidget* parent)
    : QTreeView(parent)
    , m_pages(pagesOf(roots))
    , m_lCameraID(cameraId)
    , m_pModel(new CFeatureGroupModel(m_pages, this))
    , m_pDelegate(new CFeatureGroupDelegate(this))
    , m_rows(this, m_pModel, m_pages)
    , m_dots(&m_rows, m_pModel)
{
    // Before the model: each step would lay out the rows again.
    setUpLook();
    ensurePolished();
    setModel(m_pModel);
    setItemDelegate(m_pDelegate);

    const QModelIndex firstPage = m_pModel->pageIndex(0);
    expand(firstPage);
    const QModelIndex firstGroup = m_pModel->index(0, 0, firstPage);
    if (firstGroup.isValid()) {
        setCurrentIndex(firstGroup);
        OnChangedIndex(firstGroup);
    }
    connect(this, &QTreeView::expanded, this, &CFeatureGroupTreeView::OnExpanded);
    connect(this, &QTreeView::clicked, this, &CFeatureGroupTreeView::OnChangedIndex);
    connect(this, &CFeatureGroupTreeView::SigChildVisibleChanged, this,
            &CFeatureGroupTreeView::OnChildVisibleChanged);
    m_keepTimer.setSingleShot(true);
    m_keepTimer.setInterval(kKeepMs);
    connect(&m_keepTimer, &QTimer::timeout, this, [this] { keepGroupShown(m_nShownPage); });
    m_hitsTimer.setSingleShot(true);
    m_hitsTimer.setInterval(0);
    connect(&m_hitsTimer, &QTimer::timeout, this, &CFeatureGroupTreeView::SigHitsChanged);
    setUpRows();
}

void CFeatureGroupTreeView::setUpLook()
{
    setObjectName(QStringLiteral("FeatureTree"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFrameShape(QFrame::NoFrame);
    setRootIsDecorated(false);
    setIndentation(0);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
    ZELLateSheet::set(this, ZELCustom::styleSheet(ZELCustom::Sheet_Tree) +
                                ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar));
    setContextMenuPolicy(Qt::CustomContextMenu);
    new ContextMenuKey(this);
    new ZELTouchScrolling(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->hide();
}

CFeatureGroupTreeView::~CFeatureGroupTreeView()
{
    for (const FeaturePage& page : qAsConst(m_pages)) {
        if (ORXPropertyTreeItem::isAlive(page.root))
            RegisterView(page.root, true);
    }
}

void CFeatureGroupTreeView::setUpRows()
{
    for (int row = 0; row < m_pages.size(); ++row) {
        ORXPropertyTreeItem* root = m_pages.at(row).root;
        RegisterView(root, false);
        m_places.select(row, 0);
        const QVector<ORXPropertyTreeItem*> groups = root->children();
        for (ORXPropertyTreeItem* group : groups)
            m_rows.updateGroup(row, *group);
        ResetRootVisible(root, row);
    }
}

void CFeatureGroupTreeView::RegisterView(ORXPropertyTreeItem* item, bool remove)
{
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children)
        RegisterView(child, remove);
    if (remove)
        item->removeView(this);
    else if (children.isEmpty())
        item->registerView(this);
}

void CFeatureGroupTreeView::ResetRootVisible(ORXPropertyTreeItem*, int row)
{
    if (m_rows.updatePage(row))
        emit SigPageShown(m_pages.at(row).type, m_rows.isPageShown(row));
}

void CFeatureGroupTreeView::itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item, bool)
{
    // The flag belongs to the GUI thread; a reading thread always tells.
    if (cameraId != m_lCameraID || (QThread::currentThread() == thread() && m_bSearchNotifies))
        return;
    m_notices.tell([=] { emit SigChildVisibleChanged(item); });
}

void CFeatureGroupTreeView::OnChildVisibleChanged(ORXPropertyTreeItem* item)
{
    // The notice may have been given before the item was destroyed.
    if (!ORXPropertyTreeItem::isAlive(item))
        return;
    if (m_pModel->isSearching()) {
        m_pModel->forgetHits();
        viewport()->update();
        m_hitsTimer.start();
    }
    for (int row = 0; row < m_pages.size(); ++row) {
        const ORXPropertyTreeItem* group = m_rows.groupOf(row, item);
        if (!group || group->itemType() == ORXPropertyTreeItem::FavoritesGroup)
            continue;
        m_rows.updateGroup(row, *group);
        if (!group->visible())
            m_dots.look(group);
        ResetRootVisible(m_pages.at(row).root, row);
        if (row == m_nShownPage && !m_keepTimer.isActive())
            m_keepTimer.start();
    }
}

void CFeatureGroupTreeView::SetItemGroupVisible(ORXPropertyTreeItem* item, bool visible)
{
    item->setGroupVisible(visible, m_lCameraID);
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children)
        SetItemGroupVisible(child, visible);
}

void CFeatureGroupTreeView::OnChangedIndex(const QModelIndex& index)
{
    if (!index.isValid() || m_bChanging)
        return;
    if (!m_bSearchTurns)
        m_places.forgetPlace();
    const int pageRow = m_pModel->pageRowOf(index);
    if (index.parent().isValid()) {
        m_places.select(pageRow, index.row());
        showGroup(pageRow, index);
        return;
    }
    if (!isExpanded(index)) {
        const QScopedValueRollback<bool> changing(m_bChanging, true);
        expand(index);
    }
    showGroup(pageRow, m_rows.groupToShow(pageRow, m_places.selected(pageRow)));
}

// Shows a group of a page, or the page alone when it has none.
void CFeatureGroupTreeView::showGroup(int pageRow, const QModelIndex& group)
{
    const QScopedValueRollback<bool> changing(m_bChanging, true);
    m_nShownPage = pageRow;
    const QModelIndex current = group.isValid() ? group : m_pModel->pageIndex(pageRow);
    if (current != currentIndex())
        setCurrentIndex(current);
    emit SigTabChanged(m_pages.at(pageRow).type);
    if (!group.isValid())
        return;
    ORXPropertyTreeItem* shown = CFeatureGroupModel::itemFromIndex(group);
    const QVector<ORXPropertyTreeItem*> groups = m_pages.at(pageRow).root->children();
    for (ORXPropertyTreeItem* each : groups)
        SetItemGroupVisible(each, each == shown);
    shown->setExpanded(true, m_lCameraID);
    m_dots.look(shown);
    if (m_shownGroups.value(pageRow) == shown)
        return;
    m_shownGroups.insert(pageRow, shown);
    emit SigGroupChanged(m_pages.at(pageRow).type);
}

void CFeatureGroupTreeView::noteChanges(const QVector<ORXPropertyTreeItem*>& items)
{
    m_dots.noteChanged(items, m_shownGroups.value(m_nShownPage));
}

// Groups come and go with what is read. What the user selected is not forgotten: the page comes
// back to it when it is opened again.
void CFeatureGroupTreeView::keepGroupShown(int pageRow)
{
    if (pageRow != m_nShownPage || m_bChanging ||
        (currentIndex().parent().isValid() && m_rows.isGroupShown(currentIndex())))
        return;
    const QScopedValueRollback<bool> searchTurns(m_bSearchTurns, m_pModel->isSearching());
    if (!m_pModel->isSearching() || !showNextHitGroup())
        showGroup(pageRow, m_rows.groupToShow(pageRow, m_places.selected(pageRow)));
}

void CFeatureGroupTreeView::OnExpanded(const QModelIndex& index)
{
    if (!index.isValid() || index.parent().isValid())
        return;
    for (int row = 0; row < m_pages.size(); ++row) {
        if (row != index.row())
            collapse(m_pModel->pageIndex(row));
    }
    OnChangedIndex(index);
}

// The arrow of an open page closes it; what is shown stays.
void CFeatureGroupTreeView::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    m_bArrowPressed = event->button() == Qt::LeftButton && isExpanded(index) &&
                      CFeatureGroupDelegate::arrowPlace(visualRect(index)).contains(event->pos());
    if (m_bArrowPressed)
        collapse(index);
    else
        QTreeView::mousePressEvent(event);
}

void CFeatureGroupTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_bArrowPressed)
        m_bArrowPressed = false;
    else
        QTreeView::mouseReleaseEvent(event);
}

// The keyboard walks through the groups as the mouse does.
void CFeatureGroupTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (hasFocus() && current.parent().isValid())
        OnChangedIndex(current);
}

int CFeatureGroupTreeView::pageRowOfTab(int tabIndex) const
{
    for (int row = 0; row < m_pages.size(); ++row) {
        if (m_pages.at(row).type == tabIndex)
            return row;
    }
    return -1;
}

void CFeatureGroupTreeView::showTab(int tabIndex)
{
    const int row = pageRowOfTab(tabIndex);
    if (row < 0)
        return;
    const QModelIndex page = m_pModel->pageIndex(row);
    if (isExpanded(page))
        OnChangedIndex(page);
    else
        expand(page);
}

bool CFeatureGroupTreeView::isPageShown(int tabIndex) const
{
    const int row = pageRowOfTab(tabIndex);
    return row >= 0 && m_rows.isPageShown(row);
}

void CFeatureGroupTreeView::leaveEmptyGroup()
{
    const QModelIndex group = m_rows.insteadOfEmpty(currentIndex());
    if (group.isValid())
        OnChangedIndex(group);
}

// Search ------------------------------------------------------------------------------------------

void CFeatureGroupTreeView::SetSearchText(const QString& text)
{
    const bool search = !text.trimmed().isEmpty();
    if (search && !m_pModel->isSearching())
        m_places.rememberPlace(m_pModel->pageRowOf(currentIndex()));
    QVector<ORXPropertyTreeItem*> roots;
    for (const FeaturePage& page : qAsConst(m_pages))
        roots.append(page.root);
    {
        const QScopedValueRollback<bool> guard(m_bSearchNotifies, true);
        ItemSearch::apply(roots, text, m_lCameraID);
    }
    m_pModel->setSearching(search);
    const QScopedValueRollback<bool> guard(m_bSearchTurns, true);
    if (!search)
        leaveSearch();
    else if (currentHits() == 0)
        showNextHitGroup();
    viewport()->update();
}

int CFeatureGroupTreeView::currentHits() const
{
    return m_pModel->hitCount(currentIndex());
}

int CFeatureGroupTreeView::allHits() const
{
    return m_pModel->hitCount();
}

bool CFeatureGroupTreeView::showNextHitGroup()
{
    const QModelIndex next = m_rows.nextWithHits(currentIndex());
    if (next.isValid())
        turnTo(next);
    return next.isValid();
}

void CFeatureGroupTreeView::turnTo(const QModelIndex& index)
{
    m_places.select(index.parent().row(), index.row());
    // Opening a page shows its selected group.
    if (!isExpanded(index.parent()))
        expand(index.parent());
    OnChangedIndex(index);
    scrollTo(index);
}

void CFeatureGroupTreeView::leaveSearch()
{
    const int page = m_places.goBack(m_pModel->pageRowOf(currentIndex()));
    if (page < 0)
        return;
    const QModelIndex group = m_rows.groupToShow(page, m_places.selected(page));
    if (group.isValid())
        turnTo(group);
}

void CFeatureGroupTreeView::retranslate()
{
    m_pModel->refreshTexts();
}
