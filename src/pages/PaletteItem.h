// SPDX-License-Identifier: Apache-2.0
#pragma once

class CuratedPage;
class ORXPropertyTreeItem;
class QVariant;

// The page item of the palettes, a copy of the camera's "PalettesMode" in a group of its own. Owned
// by the page; GUI thread.
class PaletteItem
{
public:
    // The page is not owned.
    explicit PaletteItem(CuratedPage& page);

    // Leaves the item that the page's table has made to a camera that has palettes.
    void create(ORXPropertyTreeItem* root);
    // As the camera's feature was read last.
    void update();

private:
    bool write(const QVariant& value);

    CuratedPage& m_page; // Not owned.
};
