// SPDX-License-Identifier: Apache-2.0
#include "main/CFeatureGroupTreeView.h"

#include "main/CFeatureGroupDelegate.h"
#include "model/ItemSearch.h"
#include "styledctl/ZELCustom.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QThread>

namespace {

// A page row that is never hidden; no page of the library has it.
constexpr int kAlwaysShownRow = 4;

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
    setRowHidden(row, QModelIndex(), !anyShown);
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
    m_bChanging = true;
    if (!m_bSearchTurns)
        m_beforeSearch.valid = false;
    const int pageRow = m_pModel->pageRowOf(index);
    const QModelIndex page = m_pModel->pageIndex(pageRow);
    QModelIndex current = index;
    if (index.parent().isValid()) {
        m_selectedGroups.insert(pageRow, index.row());
    } else {
        current = m_pModel->index(m_selectedGroups.value(pageRow), 0, page);
        if (!isExpanded(page))
            expand(page);
    }
    if (current.isValid() && current != currentIndex())
        setCurrentIndex(current);
    emit SigTabChanged(m_pages.at(pageRow).type);
    if (current.isValid()) {
        ORXPropertyTreeItem* shown = CFeatureGroupModel::itemFromIndex(current);
        const QVector<ORXPropertyTreeItem*> groups = m_pages.at(pageRow).root->children();
        for (ORXPropertyTreeItem* group : groups)
            SetItemGroupVisible(group, group == shown);
        shown->setExpanded(true, m_lCameraID);
    }
    m_bChanging = false;
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
    if (!shown || !page.isValid())
        return;
    const bool noFavorites =
        shown->itemType() == ORXPropertyTreeItem::FavoritesGroup && shown->childCount() == 0;
    if (!noFavorites && !isRowHidden(currentIndex().row(), page))
        return;
    for (int row = 0; row < m_pModel->rowCount(page); ++row) {
        const QModelIndex group = m_pModel->index(row, 0, page);
        const bool favorites = CFeatureGroupModel::itemFromIndex(group)->itemType() ==
                               ORXPropertyTreeItem::FavoritesGroup;
        if (!favorites && !isRowHidden(row, page)) {
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
    const QModelIndex group =
        m_pModel->index(m_selectedGroups.value(page), 0, m_pModel->pageIndex(page));
    if (group.isValid())
        turnTo(group);
}

void CFeatureGroupTreeView::retranslate()
{
    m_pModel->refreshTexts();
}
