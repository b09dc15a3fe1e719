// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"

#include <QMetaMethod>
#include <QVariant>

class QWidget;

// The cell that an editor stands in, as it is now.
struct EditorCell
{
    ORXPropertyTreeItem* item; // Has a value. Not owned.
    int column;
    ORXPropertyTreeItem::ParentType page;
    bool usable; // whether the item's editors can be used now

    // The page type 4 stands for pages with the roomier editors; no page of the library has it.
    bool isRoomy() const { return static_cast<int>(page) == 4; }
};

// What reading an editor back gave.
struct EditedValue
{
    bool write = false;
    QVariant value; // invalid: execute
    bool startTimer = false;
};

// One kind of value editor: how it is made, filled and read back. An object of it has no state and
// serves all editors of its kind (see EditorKinds). GUI thread.
class EditorKind
{
public:
    virtual ~EditorKind() = default;

    // Makes the cell's editor below `parent`, disabled or not, to be filled at once; null when the
    // cell has none. Not owned by the kind.
    virtual QWidget* create(QWidget* parent, const EditorCell& cell) const = 0;
    // Shows the item's value and state. What the user is typing survives, unless the editor locks.
    virtual void fill(QWidget* editor, const EditorCell& cell) const = 0;
    // What to write once the user has acted on the editor; nothing for those that write themselves.
    virtual EditedValue read(QWidget* editor, const EditorCell& cell) const;
    // The signal by which the editor says that the user acted on it; invalid for those that write
    // themselves.
    virtual QMetaMethod commitSignal(const QWidget& editor) const;

    // Whether a read-only item disables the editor.
    virtual bool followsReadOnly() const { return true; }
    // Whether what was done in the editor of a read-only item counts all the same.
    virtual bool writesReadOnly() const { return false; }
    // Whether the name cell has an editor, too.
    virtual bool editsName() const { return false; }
    // Whether the editor begins in the name column.
    virtual bool beginsAtName() const { return false; }
    // Whether the editor is as high as its row.
    virtual bool fillsHeight() const { return false; }

protected:
    // Names a new editor after its feature, and gives it the styled library's font if wanted.
    static void dress(QWidget* editor, const EditorCell& cell, bool globalFont);
    static bool isChinese();
};
