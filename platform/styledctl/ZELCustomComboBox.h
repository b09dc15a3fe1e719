// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomLook.h"

#include <QComboBox>

// Styled combo box. The mouse wheel changes the selection only with the keyboard focus; otherwise
// the wheel event is left to the view below.
class STYLEDCTL_EXPORT ZELCustomComboBox : public QComboBox, public ZELCustomLook
{
    Q_OBJECT
public:
    enum StyleSelector {
        Style_Default = 0, // bordered
        Style_Cell = 1,    // editor in a tree cell
        Style_Panel = 2,   // on a panel, a little taller
        Style_Flat = 3     // no frame until hovered or focused
    };

    // `variant` 0 is the only one at present.
    explicit ZELCustomComboBox(QWidget* parent = nullptr, StyleSelector style = Style_Default,
                               int variant = 0);

    // Text before the current entry, in the colour of secondary texts; empty for none.
    void cSetCaption(const QString& caption);
    QString cCaption() const { return m_caption; }

    // Draws the box as it looks now with its top left corner at `rect`, for drag pictures.
    void cDrawControl(QPainter* painter, const QRect& rect) const;

    // As wide as the longest entry, within limits.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void showPopup() override;
    Shape cShape() const override { return cStyle() == Style_Flat ? Shape::Flat : Shape::Framed; }

protected:
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QSize hintFor(int textWidth) const;

    QString m_caption;
};
