// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "main/FeatureSearch.h"

#include <QPointer>

class FeaturePages;
struct ValueChange;
class ORXFeatureGroup;
class ORXFeatureTree;
class ORXFeatureTreeView;
class QPoint;
class QWidget;

// The side column of one camera, and what it does to the pages: search, way to the hits, menu of
// the favourites, and what a page says that shows nothing. Owned by the main widget; GUI thread.
class CameraColumn : public QObject
{
    Q_OBJECT
public:
    // Tree and pages are not owned.
    CameraColumn(qint64 cameraId, ORXFeatureTree* tree, FeaturePages* pages, QWidget* window);
    ~CameraColumn() override;

    // Owned.
    ORXFeatureGroup* group() const { return m_pGroup; }
    // What a page says that shows no row.
    void showEmptyTexts();
    // A page without a group to show has no row in the column, and its tab cannot be chosen.
    void showTabs();
    // What is available is known only now.
    void afterFirstRead();
    // Goes to the feature in its group of the whole tree, if it is shown there at all. Ends a
    // search that the feature does not match.
    void showFeature(const QString& name);
    // A new user has no favourites yet; the first look should not fall on an empty page.
    void leaveEmptyGroup();

private:
    ORXFeatureTreeView* view(int tab) const;
    void afterSearch(const QString& text);
    void goToHit(bool next);
    void showMenu(const QPoint& position);
    void noteChanges(const QVector<ValueChange>& changes);

    qint64 m_lCameraID;
    QPointer<ORXFeatureTree> m_pTree; // Not owned.
    FeaturePages* m_pPages;           // Not owned.
    ORXFeatureGroup* m_pGroup;        // Owned.
    FeatureSearch m_search;
};
