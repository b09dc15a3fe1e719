// SPDX-License-Identifier: Apache-2.0
#include "main/CFeatureGroupTreeView.h"

#include "main/CFeatureGroupDelegate.h"
#include "model/ItemSearch.h"
#include "styledctl/ZELCustom.h"
#include "styledctl/ZELTouchScrolling.h"
#include "tree/ContextMenuKey.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QThread>

namespace {

constexpr int kKeepMs = 20; // a whole camera may be lost item by item
// A page row that is never hidden; no page of the library has it.
constexpr int kAlwaysShownRow = 4;

bool isEmptyFavorites(const ORXPropertyTreeItem& group)
{
    return group.itemType() == ORXPropertyTreeItem::FavoritesGroup &&
           (group.childCount() == 0 || !group.visible());
}

} // namespace

CFeatureGroupTreeView::CFeatureGroupTreeView(const QList<ORXPropertyTreeItem*>& roots,
                                             qint64 cameraId, QWidget* parent)
    : QTreeView(parent)
    , m_lCameraID(cameraId)
{
    for (int tab = 0; tab < roots.size(); ++tab) {
        if (roots.at(tab))
            m_pages.append({roots.at(tab), static_cast<ORXPropertyTreeItem::ParentType>(tab)});
    }
    m_pModel = new CFeatureGroupModel(m_pages, this);
    m_pDelegate = new CFeatureGroupDelegate(this);
    setModel(m_pModel);
    setItemDelegate(m_pDelegate);
    setObjectName(QStringLiteral("FeatureTree"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFrameShape(QFrame::NoFrame);
    setRootIsDecorated(false);
    setIndentation(0);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
    setStyleSheet(ZELCustom::styleSheet(ZELCustom::Sheet_Tree) +
                  ZELCustom::styleSheet(ZELCustom::Sheet_ScrollBar));
    setContextMenuPolicy(Qt::CustomContextMenu);
    new ContextMenuKey(this);
    new ZELTouchScrolling(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setSectionResizeMode(QHeaderView::Stretch);
    header()->hide();

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
        m_selectedGroups.insert(row, 0);
        const QVector<ORXPropertyTreeItem*> groups = root->children();
        for (ORXPropertyTreeItem* group : groups)
            setGroupShown(row, group);
        ResetRootVisible(root, row);
    }
}

// The favourites group always shows, so that the user finds it.
void CFeatureGroupTreeView::setGroupShown(int pageRow, ORXPropertyTreeItem* group)
{
    if (group->itemType() == ORXPropertyTreeItem::FavoritesGroup)
        return;
    const QModelIndex index = m_pModel->groupIndex(pageRow, group);
    if (index.isValid())
        setRowHidden(index.row(), index.parent(), !group->visible());
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

void CFeatureGroupTreeView::ResetRootVisible(ORXPropertyTreeItem* root, int row)
{
    if (row == kAlwaysShownRow)
        return;
    const QModelIndex page = m_pModel->pageIndex(row);
    bool anyShown = false;
    for (int group = 0; group < root->childCount() && !anyShown; ++group)
        anyShown = !isRowHidden(group, page);
    if (anyShown == !isRowHidden(row, QModelIndex()))
        return;
    setRowHidden(row, QModelIndex(), !anyShown);
    emit SigPageShown(m_pages.at(row).type, anyShown);
}

void CFeatureGroupTreeView::itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item, bool)
{
    // The flag belongs to the GUI thread; a reading thread always tells.
    if (cameraId != m_lCameraID || (QThread::currentThread() == thread() && m_bSearchNotifies))
        return;
    emit SigChildVisibleChanged(item);
}

void CFeatureGroupTreeView::OnChildVisibleChanged(ORXPropertyTreeItem* item)
{
    // The signal may have been queued before the item was destroyed.
    if (!ORXPropertyTreeItem::isAlive(item))
        return;
    if (m_pModel->isSearching()) {
        m_pModel->forgetHits();
        viewport()->update();
        m_hitsTimer.start();
    }
    for (int row = 0; row < m_pages.size(); ++row) {
        const FeaturePage& page = m_pages.at(row);
        ORXPropertyTreeItem* group = item;
        ORXPropertyTreeItem* above = group->parent(page.type);
        while (above && above->itemType() != ORXPropertyTreeItem::CustomItem) {
            group = above;
            above = group->parent(page.type);
        }
        if (!above || above != page.root ||
            group->itemType() == ORXPropertyTreeItem::FavoritesGroup)
            continue;
        setGroupShown(row, group);
        ResetRootVisible(page.root, row);
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
        m_beforeSearch.valid = false;
    const int pageRow = m_pModel->pageRowOf(index);
    if (index.parent().isValid()) {
        m_selectedGroups.insert(pageRow, index.row());
        showGroup(pageRow, index);
        return;
    }
    if (!isExpanded(index)) {
        const QScopedValueRollback<bool> changing(m_bChanging, true);
        expand(index);
    }
    showGroup(pageRow, groupToShow(pageRow));
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
    if (m_shownGroups.value(pageRow) == shown)
        return;
    m_shownGroups.insert(pageRow, shown);
    emit SigGroupChanged(m_pages.at(pageRow).type);
}

bool CFeatureGroupTreeView::isGroupShown(const QModelIndex& group) const
{
    return group.isValid() && !isRowHidden(group.row(), group.parent());
}

// The group that was selected last, else the first one with something to show; invalid when there
// is none.
QModelIndex CFeatureGroupTreeView::groupToShow(int pageRow) const
{
    const QModelIndex page = m_pModel->pageIndex(pageRow);
    const QModelIndex selected = m_pModel->index(m_selectedGroups.value(pageRow), 0, page);
    if (isGroupShown(selected))
        return selected;
    QModelIndex noFavorites;
    for (int row = 0; row < m_pModel->rowCount(page); ++row) {
        const QModelIndex group = m_pModel->index(row, 0, page);
        if (!isGroupShown(group))
            continue;
        if (!isEmptyFavorites(*CFeatureGroupModel::itemFromIndex(group)))
            return group;
        noFavorites = group;
    }
    return noFavorites;
}

// Groups come and go with what is read. What the user selected is not forgotten: the page comes
// back to it when it is opened again.
void CFeatureGroupTreeView::keepGroupShown(int pageRow)
{
    if (pageRow != m_nShownPage || m_bChanging ||
        (currentIndex().parent().isValid() && isGroupShown(currentIndex())))
        return;
    const QScopedValueRollback<bool> searchTurns(m_bSearchTurns, m_pModel->isSearching());
    if (!m_pModel->isSearching() || !showNextHitGroup())
        showGroup(pageRow, groupToShow(pageRow));
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

void CFeatureGroupTreeView::showTab(int tabIndex)
{
    for (int row = 0; row < m_pages.size(); ++row) {
        if (m_pages.at(row).type != tabIndex)
            continue;
        const QModelIndex page = m_pModel->pageIndex(row);
        if (isExpanded(page))
            OnChangedIndex(page);
        else
            expand(page);
    }
}

void CFeatureGroupTreeView::leaveEmptyGroup()
{
    const ORXPropertyTreeItem* shown = CFeatureGroupModel::itemFromIndex(currentIndex());
    const QModelIndex page = currentIndex().parent();
    if (!shown || !page.isValid() || !isEmptyFavorites(*shown))
        return;
    for (int row = 0; row < m_pModel->rowCount(page); ++row) {
        const QModelIndex group = m_pModel->index(row, 0, page);
        if (isGroupShown(group) && group != currentIndex()) {
            OnChangedIndex(group);
            return;
        }
    }
}

// Search ------------------------------------------------------------------------------------------

void CFeatureGroupTreeView::SetSearchText(const QString& text)
{
    const bool search = !text.trimmed().isEmpty();
    if (search && !m_pModel->isSearching())
        m_beforeSearch = {true, m_pModel->pageRowOf(currentIndex()), m_selectedGroups};
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

bool CFeatureGroupTreeView::hasHits(int pageRow, int groupRow) const
{
    const QModelIndex page = m_pModel->pageIndex(pageRow);
    return !isRowHidden(pageRow, QModelIndex()) && !isRowHidden(groupRow, page) &&
           m_pModel->hitCount(m_pModel->index(groupRow, 0, page)) > 0;
}

bool CFeatureGroupTreeView::showNextHitGroup()
{
    const QModelIndex current = currentIndex();
    const int pages = m_pages.size();
    if (!m_pModel->isSearching() || !current.isValid() || pages == 0)
        return false;
    const int currentPage = m_pModel->pageRowOf(current);
    const int currentGroup = current.parent().isValid() ? current.row() : -1;
    // Round through all groups, starting behind the current one and ending before it.
    for (int step = 0; step <= pages; ++step) {
        const int page = (currentPage + step) % pages;
        const int groups = m_pModel->rowCount(m_pModel->pageIndex(page));
        const int first = step == 0 ? currentGroup + 1 : 0;
        const int end = step == pages ? qMax(currentGroup, 0) : groups;
        for (int group = first; group < end; ++group) {
            if (!hasHits(page, group))
                continue;
            turnTo(m_pModel->index(group, 0, m_pModel->pageIndex(page)));
            return true;
        }
    }
    return false;
}

void CFeatureGroupTreeView::turnTo(const QModelIndex& index)
{
    m_selectedGroups.insert(index.parent().row(), index.row());
    // Opening a page shows its selected group.
    if (!isExpanded(index.parent()))
        expand(index.parent());
    OnChangedIndex(index);
    scrollTo(index);
}

void CFeatureGroupTreeView::leaveSearch()
{
    if (!m_beforeSearch.valid)
        return;
    m_beforeSearch.valid = false;
    const int page = m_beforeSearch.pageRow;
    if (m_selectedGroups == m_beforeSearch.selectedGroups &&
        page == m_pModel->pageRowOf(currentIndex()))
        return;
    m_selectedGroups = m_beforeSearch.selectedGroups;
    const QModelIndex group = groupToShow(page);
    if (group.isValid())
        turnTo(group);
}

bool CFeatureGroupTreeView::isPageShown(int tabIndex) const
{
    for (int row = 0; row < m_pages.size(); ++row) {
        if (m_pages.at(row).type == tabIndex)
            return !isRowHidden(row, QModelIndex());
    }
    return false;
}

void CFeatureGroupTreeView::retranslate()
{
    m_pModel->refreshTexts();
}
