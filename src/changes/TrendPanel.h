// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/TrendPicture.h"
#include "changes/TrendStore.h"

#include <QTimer>
#include <QWidget>

class ORXFeatureTree;
class QModelIndex;

// How the number of the current feature went during the last ten minutes, or as far as it is known,
// with its minimum, mean and maximum. What was read anyway is shown; nothing is read for it.
// Booleans and entries are shown as steps with their names. Owned by its parent; GUI thread.
class TrendPanel : public QWidget
{
    Q_OBJECT
public:
    // `tree` is not owned, and outlives it.
    TrendPanel(ORXFeatureTree* tree, QWidget* parent);

    const TrendPicture& picture() const { return m_picture; }
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void append(const QVector<ValueChange>& changes);
    void choose(const QModelIndex& index);
    void refresh();

    ORXFeatureTree* m_pTree; // Not owned.
    TrendStore m_store;
    QString m_strFeature; // its name; may be that of a feature that is gone
    TrendPicture m_picture;
    QTimer m_timer; // while it is seen
};
