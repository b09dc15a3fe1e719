// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/EntryEditor.h"

// Palettes of a thermal picture: a wide combo box that shows the colours of each. It covers the
// name of its row, and says it itself.
class PaletteEditor : public EntryEditor
{
public:
    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    void fill(QWidget* editor, const EditorCell& cell) const override;
    bool beginsAtName() const override { return true; }

protected:
    QIcon icon(int position) const override;
};
