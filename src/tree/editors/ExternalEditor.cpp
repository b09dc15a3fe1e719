// SPDX-License-Identifier: Apache-2.0
#include "tree/editors/ExternalEditor.h"

#include <QWidget>

#include <map>

namespace {

struct Provided
{
    ExternalEditor::Creator create;
    ExternalEditor::Filler fill;
};

std::map<FeatureTag, Provided>& provided()
{
    static std::map<FeatureTag, Provided> editors;
    return editors;
}

} // namespace

void ExternalEditor::registerEditor(FeatureTag tag, const Creator& create, const Filler& fill)
{
    provided()[tag] = {create, fill};
}

QWidget* ExternalEditor::create(QWidget* parent, const EditorCell& cell) const
{
    const auto found = provided().find(cell.item->tag());
    return found == provided().end() ? nullptr : found->second.create(parent, cell.item);
}

void ExternalEditor::fill(QWidget* editor, const EditorCell& cell) const
{
    // Before the filler, which may disable the editor for reasons of its own.
    editor->setEnabled(cell.usable);
    const auto found = provided().find(cell.item->tag());
    if (found != provided().end() && found->second.fill)
        found->second.fill(editor, cell.item);
}
