// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/GuiNotices.h"
#include "main/CFeatureGroupModel.h"
#include "main/GroupDots.h"
#include "main/GroupPlaces.h"
#include "main/GroupRows.h"
#include "model/IORXFeatureNotify.h"

#include <QMap>
#include <QTimer>
#include <QTreeView>

class CFeatureGroupDelegate;

// The list of pages and their groups. Clicking a group shows only that group's features in its
// page; groups without a visible feature do not show, and a page whose shown group goes turns to
// its first one that has something to show. Owned by its ORXFeatureGroup; GUI thread, but for
// itemVisibleChanged, which only gives notice.
class CFeatureGroupTreeView : public QTreeView, public IORXFeatureNotify
{
    Q_OBJECT
public:
    // One root for each tab, null where a page has none. Roots are not owned and must outlive the
    // view.
    CFeatureGroupTreeView(const QList<ORXPropertyTreeItem*>& roots, qint64 cameraId,
                          QWidget* parent);
    ~CFeatureGroupTreeView() override;

    // Empty text ends the search. A page or group that the search itself has turned to, because the
    // shown one had no hit, is left again at its end.
    void SetSearchText(const QString& text);
    // Turns to the next group with hits, first of this page, then of the others; false when there
    // is none but the current one.
    bool showNextHitGroup();
    // Hits of the search in the shown group and in all pages.
    int currentHits() const;
    int allHits() const;
    void SetItemGroupVisible(ORXPropertyTreeItem* item, bool visible);
    // Hides the page's row when none of its groups shows.
    void ResetRootVisible(ORXPropertyTreeItem* root, int row);
    // Registers this view with every leaf below `item`, or removes it.
    void RegisterView(ORXPropertyTreeItem* item, bool remove);
    // Opens a tab's page and its last group, as a click on its row does.
    void showTab(int tabIndex);
    // Moves on from an empty favourites group to the first group that shows something.
    void leaveEmptyGroup();
    // Whether a tab's page has a group to show.
    bool isPageShown(int tabIndex) const;
    void retranslate();
    // The values of these have changed; groups that are not shown say so until they are. See
    // GroupDots.
    void noteChanges(const QVector<ORXPropertyTreeItem*>& items);
    void forgetChanges() { m_dots.clear(); }

    void itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item, bool visible) override;

signals:
    void SigTabChanged(int index);
    // Another group of the page shows than before.
    void SigGroupChanged(int tabIndex);
    // A page has got a group to show, or has none any more.
    void SigPageShown(int tabIndex, bool shown);
    void SigChildVisibleChanged(ORXPropertyTreeItem* item);
    // The hits of the search may have changed with what is visible; once for many changes.
    void SigHitsChanged();

public slots:
    void OnChangedIndex(const QModelIndex& index);
    void OnExpanded(const QModelIndex& index);
    void OnChildVisibleChanged(ORXPropertyTreeItem* item);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void setUpLook();
    void setUpRows();
    int pageRowOfTab(int tabIndex) const;
    void turnTo(const QModelIndex& index);
    void leaveSearch();
    void keepGroupShown(int pageRow);
    void showGroup(int pageRow, const QModelIndex& group);

    QVector<FeaturePage> m_pages;
    qint64 m_lCameraID;
    CFeatureGroupModel* m_pModel;       // Owned (child).
    CFeatureGroupDelegate* m_pDelegate; // Owned (child).
    GroupRows m_rows;
    GroupDots m_dots;
    GroupPlaces m_places;
    QMap<int, const ORXPropertyTreeItem*> m_shownGroups; // by page row. Not owned.
    int m_nShownPage = 0;                                // its row
    GuiNotices m_notices;
    QTimer m_keepTimer; // many changes of items turn the page once
    QTimer m_hitsTimer;
    bool m_bChanging = false;
    bool m_bArrowPressed = false;   // and the button is still down
    bool m_bSearchTurns = false;    // the search turns to a group, not the user
    bool m_bSearchNotifies = false; // items tell of a search, which changes no group's row
};
