// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomWidget.h"

#include <QList>

class CFeatureGroupTreeView;
class ORXPropertyTreeItem;
class ZELCustomLineEdit;

// The side column of one camera: a search box and below it the pages and their groups. Owned by the
// main widget; GUI thread.
class ORXFeatureGroup : public ZELCustomWidget
{
    Q_OBJECT
public:
    // One root for each tab, null where a page has none; not owned.
    ORXFeatureGroup(const QList<ORXPropertyTreeItem*>& roots, qint64 cameraId, QWidget* parent);

    void ClearSearch();
    CFeatureGroupTreeView* groupView() const { return m_pView; }

signals:
    void SigTabChanged(int index);

public slots:
    void OnSearch();

protected:
    void changeEvent(QEvent* event) override;

private:
    ZELCustomLineEdit* m_pSearch;   // Owned (child).
    CFeatureGroupTreeView* m_pView; // Owned (child).
    QString m_strLastSearch;
};
