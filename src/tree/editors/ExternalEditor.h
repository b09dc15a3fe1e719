// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/editors/EditorKind.h"

#include <functional>

// Editors that a folder above provides (the colour correction matrix). They span their row and
// write by themselves.
class ExternalEditor : public EditorKind
{
public:
    // Makes the editor of an item, below `parent`, not owned by the creator.
    using Creator = std::function<QWidget*(QWidget* parent, ORXPropertyTreeItem* item)>;
    // Shows the item's value; may disable the editor for reasons of its own. May be null.
    using Filler = std::function<void(QWidget* editor, ORXPropertyTreeItem* item)>;
    // Replaces what was registered for the tag before.
    static void registerEditor(FeatureTag tag, const Creator& create, const Filler& fill);

    QWidget* create(QWidget* parent, const EditorCell& cell) const override;
    void fill(QWidget* editor, const EditorCell& cell) const override;
    bool followsReadOnly() const override { return false; }
    bool beginsAtName() const override { return true; }
    bool fillsHeight() const override { return true; }
};
