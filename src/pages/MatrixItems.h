// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

class ColorMatrix;
class CuratedPage;
class ORXPropertyTreeItem;
class QString;

// The page items of the colour correction matrix, and the matrix of the shown camera behind them:
// in the camera where it has the features, else in the file of the host's software where there is
// one; else not at all. Owned by the page; GUI thread.
class MatrixItems
{
public:
    // The page is not owned.
    explicit MatrixItems(CuratedPage& page);
    ~MatrixItems();

    // The items of a page that is being built. Whether there is a file is known later, when the
    // camera's name was read.
    void create(ORXPropertyTreeItem* root);
    // Makes what reads and writes the matrix of the shown camera.
    void attach(ORXPropertyTreeItem* root);
    // Forgets that; no host call may be under way.
    void detach();
    // The matrix of the shown camera; null when it has none.
    ColorMatrix* matrix() const { return m_matrix.get(); }

    // A feature of the camera was read with another value.
    void noteChange(const QString& nodeName);
    // As the passes have left the camera's features: which items show; reads what has changed.
    void update();

private:
    void settleMatrixOfFile(ORXPropertyTreeItem* matrix);

    CuratedPage& m_page; // Not owned.
    std::unique_ptr<ColorMatrix> m_matrix;
    bool m_bChanged = false; // in the camera, since the last update
};
