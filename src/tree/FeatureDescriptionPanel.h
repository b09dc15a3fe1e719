// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QTextEdit>

class ORXPropertyTreeItem;

// Says what a feature does, in the interface language. Owned by its parent; GUI thread.
class FeatureDescriptionPanel : public QTextEdit
{
    Q_OBJECT
public:
    explicit FeatureDescriptionPanel(QWidget* parent);

    // Null empties the panel. The item may be destroyed meanwhile.
    void showItem(const ORXPropertyTreeItem* item);
    // What the item says may have changed.
    void refresh();
    void refreshIfShown(const ORXPropertyTreeItem* item);
    // The language has changed.
    void retranslate();

signals:
    // The panel shows the item, or shows it anew; null, or gone, for none.
    void SigShown(const ORXPropertyTreeItem* item);

private:
    const ORXPropertyTreeItem* m_pItem = nullptr; // Not owned.
    QString m_strShown;                           // HTML
};
