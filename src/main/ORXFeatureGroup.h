// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomWidget.h"

#include <QList>

class CFeatureGroupTreeView;
class ORXPropertyTreeItem;
class ZELCustomLabel;
class ZELCustomLineEdit;

// The side column of one camera: a search box and below it the pages and their groups. Owned by its
// CameraColumn; GUI thread.
class ORXFeatureGroup : public ZELCustomWidget
{
    Q_OBJECT
public:
    // One root for each tab, null where a page has none; not owned.
    ORXFeatureGroup(const QList<ORXPropertyTreeItem*>& roots, qint64 cameraId, QWidget* parent);

    void ClearSearch();
    // The keyboard goes to the search box, its text selected.
    void focusSearch();
    // Searches the same text once more, after names have changed.
    void searchAgain();
    // The text that is searched for; empty without a search.
    QString searchText() const { return m_strLastSearch; }
    CFeatureGroupTreeView* groupView() const { return m_pView; }

signals:
    void SigTabChanged(int index);
    // The hits of a search are known; after a search has ended the text is empty.
    void SigSearched(const QString& text);
    // Down in the search box: the keyboard wants to go to the hits.
    void SigGoToHits();
    // Enter in the search box.
    void SigNextHit();

public slots:
    void OnSearch();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search(const QString& text);
    void retranslate();
    void showNoMatch();
    void afterHitsChanged();

    ZELCustomLineEdit* m_pSearch;   // Owned (child).
    ZELCustomLabel* m_pNoMatch;     // Owned (child).
    CFeatureGroupTreeView* m_pView; // Owned (child).
    QString m_strLastSearch;
    int m_nHits = 0; // that were shown last
};
