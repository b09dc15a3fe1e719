// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/EditorKind.h"

class QIcon;

// Entries of an enumeration: a combo box.
class EntryEditor : public EditorKind
{
public:
    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    void fill(QWidget* editor, const EditorCell& cell) const override;
    EditedValue read(QWidget* editor, const EditorCell& cell) const override;
    QMetaMethod commitSignal(const QWidget& editor) const override;

protected:
    // The picture beside the entry at that position of the list.
    virtual QIcon icon(int position) const;
};
