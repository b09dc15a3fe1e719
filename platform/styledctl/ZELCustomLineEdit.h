// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QLineEdit>

class QAction;

// Styled line edit, optionally a search box: a magnifier at the left (or Enter) emits
// cSigSearchClicked(), a cross at the right (or Escape) clears the text.
class STYLEDCTL_EXPORT ZELCustomLineEdit : public QLineEdit, public ZELCustomLook
{
    Q_OBJECT
public:
    enum StyleSelector {
        Style_Default = 0, // bordered
        Style_Cell = 1,    // editor in a tree cell
        Style_Panel = 2,   // on a panel, in tables and beside sliders
        Style_Flat = 3     // no frame until hovered or focused
    };

    explicit ZELCustomLineEdit(QWidget* parent = nullptr, StyleSelector style = Style_Default);

    void cSetSearchEnabled(bool enable);
    bool cIsSearchEnabled() const { return m_search != nullptr; }
    Shape cShape() const override { return cStyle() == Style_Flat ? Shape::Flat : Shape::Framed; }

signals:
    void cSigSearchClicked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void translate();

    // Owned (children); null while search is off.
    QAction* m_search = nullptr;
    QAction* m_clear = nullptr;
};
