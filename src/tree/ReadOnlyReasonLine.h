// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>
#include <QTextBrowser>

class ORXPropertyTreeItem;
class ReadOnlyReason;

// The line below a feature's description that says why the feature cannot be edited, with links to
// the features that decide it; hidden when there is nothing to say. Tab goes from link to link,
// Enter follows one. Owned by its parent; GUI thread.
class ReadOnlyReasonLine : public QTextBrowser
{
    Q_OBJECT
public:
    // `reason` is not owned, and outlives it.
    ReadOnlyReasonLine(const ReadOnlyReason& reason, QWidget* parent);

    // Null empties the line. The item may be destroyed meanwhile.
    void showItem(const ORXPropertyTreeItem* item);
    // What the item says may have changed; matters when the line names it.
    void itemChanged(const ORXPropertyTreeItem& item);
    bool hasLinks() const { return focusPolicy() != Qt::NoFocus; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // The user wants to see the feature in its group.
    void SigShowFeature(const QString& name);
    // The user has pressed Escape.
    void SigLeft();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void refresh();
    void showHtml(const QString& html);
    void selectLink(const QString& href);
    void fitHeight();

    const ReadOnlyReason& m_reason;               // Not owned.
    const ORXPropertyTreeItem* m_pItem = nullptr; // Not owned.
    QStringList m_deciders;                       // that the line names
    QString m_strShown;                           // HTML
};
