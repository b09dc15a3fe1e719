// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomQssHelper.h"

#include <QTableView>

// A list of whole rows under a head, in the theme. Owned by its parent; GUI thread.
class ThemedTable : public QTableView, public ZELCustomQssHelper
{
    Q_OBJECT
public:
    // The model is not owned.
    ThemedTable(QAbstractItemModel* model, QWidget* parent);

    // Shares of the width, one for each column; kept while the table is resized.
    void setShares(const QVector<int>& shares);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fitColumns();

    QVector<int> m_shares;
};
