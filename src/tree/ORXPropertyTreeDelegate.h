// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"
#include "tree/RowPainter.h"

#include <QStyledItemDelegate>
#include <QTimer>

#include <functional>

class EditorKind;

// Delegate of every page's view: has the value editors made, filled and read by the kind that the
// tag asks for (EditorKinds), places them, and has the rows painted. Owned by its view; GUI thread.
//
// An editor writes only while on_CommitData or on_CommitData_Combox runs, that is after the user
// acted on it; filling an editor never writes (see EditorFillGuard).
class ORXPropertyTreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    static constexpr int kRowHeight = 38;        // device-independent pixels
    static constexpr int kMatrixRowHeight = 128; // row of the colour correction matrix

    ORXPropertyTreeDelegate(ORXPropertyTreeItem::ParentType type, QObject* parent);
    ~ORXPropertyTreeDelegate() override;

    void setIsCanEdit(bool canEdit);
    // The row that shows the drop line, above it or below; null for none. Not owned.
    void setCurMoveItem(const ORXPropertyTreeItem* item, bool below = false);
    // Forgets the row that shows the drop line.
    void clearInfo();
    // The marks of changes that the rows carry; null for none. Not owned.
    void setMarks(const ChangeMarks* marks) { m_rowPainter.setMarks(marks); }
    // Whether the item's editors can be used now; a page may still disable its own.
    bool isUsable(const ORXPropertyTreeItem& item) const;
    // Who says why an item's value cannot be edited, in the interface language; empty for nothing.
    using ReasonOf = std::function<QString(const ORXPropertyTreeItem& item)>;
    void setReasonOf(const ReasonOf& reasonOf) { m_reasonOf = reasonOf; }
    // Gives assistive technology the name of the editor of a cell, and the reason why it cannot be
    // used.
    void describe(QWidget* editor, const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

signals:
    // The user is about to leave the editor or takes back what was typed; values that were held
    // back meanwhile can be shown.
    void sigEditingEnded(QWidget* editor);

public slots:
    void on_CommitData();
    void on_CommitData_Combox(int state);
    void on_CommandTimeout();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The kind of the item's editors; null without an item, a value or a kind.
    static const EditorKind* kindOf(const ORXPropertyTreeItem* item);
    void commit();
    // Why the item's value cannot be edited; empty when it can.
    QString reasonOf(const ORXPropertyTreeItem& item) const;

    bool m_bCommitting = false;
    bool m_bCanEdit = true;
    ORXPropertyTreeItem::ParentType m_pageType;
    mutable QTimer m_commandTimer;
    RowPainter m_rowPainter;
    ReasonOf m_reasonOf;
    bool m_bDestroying = false;
};
