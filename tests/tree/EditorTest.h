// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeModel.h"
#include "support/TestMain.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/TestPage.h"

#include <QLineEdit>

// Base of tests of rows and their editors in a page with one group.
class EditorTest : public GuardedTest
{
protected:
    using Item = ORXPropertyTreeItem;

    void prepare() override;
    void finish() override;

    // Shows the page with a feature for each tag, of a plain value.
    void open(const QStringList& tags);
    // Shows the page with so many rows of the tag, named by rowName().
    void openRows(int rows, const char* tag = "Integer");
    static QString rowName(int row);
    ORXFeatureTreeView* view() { return m_page->treeView(); }
    Item* group() { return m_page->getRootItem(1, false)->child(0); }
    Item* row(int number) { return group()->child(number); }
    QModelIndex index(Item* of, int column = 0)
    {
        return view()->treeModel()->indexFromItem(of, column);
    }
    bool isHidden(Item* of) { return view()->isRowHidden(index(of).row(), index(of).parent()); }
    Item* current() { return ORXPropertyTreeModel::itemFromIndex(view()->currentIndex()); }
    Item* item(const char* name) { return m_page->item(QString::fromLatin1(name)); }
    QWidget* editor(const char* name) { return m_page->anyEditor(QString::fromLatin1(name)); }
    // The text of an editor that is a line edit or holds one.
    static QLineEdit* lineEdit(QWidget* editor);
    // Types over all that the editor shows, with the focus in it; commits it, too.
    static void type(QWidget* editor, const QString& text);
    static void enter(QWidget* editor, const QString& text);
    // A pass has read the value.
    static void arrives(Item* item, const QVariant& value);
    void refill(Item* changed) { changed->notifyViewUpdate(1, -1, false); }

    TestPage* m_page = nullptr; // Owned.

    template <typename Value>
    static Value* valueOf(Item* item)
    {
        return dynamic_cast<Value*>(item->value());
    }
    static void setInteger(Item* item, qint64 value, qint64 minimum, qint64 maximum, qint64 step,
                           const char* representation = "");
    // Entries named in English and Chinese, numbered by `numbers`.
    static void setEntries(Item* item, const QStringList& english, const QStringList& chinese,
                           const QVector<qint64>& numbers, qint64 current);
};
