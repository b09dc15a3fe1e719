// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "region/RegionArea.h"
#include "region/RegionEdit.h"

#include <QWidget>

class RegionGeometry;

// A picture of the sensor: the image region in it, and the automatics' area in the image. One of
// the two can be edited: moved and resized by the mouse, or with the keyboard (arrows move, with
// Shift they resize, by the camera's increments; Escape takes a drag back). Nothing is written
// here: a finished edit is told by a signal. Owned by the page; GUI thread.
class RegionDrawWidget : public QWidget
{
    Q_OBJECT
public:
    enum DrawMode { DrawNothing = 0, DrawImageRegion = 1, DrawAutoFunctionArea = 2 };

    explicit RegionDrawWidget(QWidget* parent = nullptr);

    // What the camera has; nothing for an area that it lacks. An edit under way goes on.
    void setAreas(const std::optional<RegionArea>& image, const std::optional<RegionArea>& area);
    // What was edited, as the camera has just taken it.
    void showEdited(const RegionArea& area);
    void setDrawMode(DrawMode mode);
    DrawMode drawMode() const { return m_mode; }
    bool hasAreas() const { return m_image || m_autoArea; }

    // The area that can be edited; null when there is none now.
    const RegionArea* edited() const;
    // Where a rectangle of the edited area's pixels stands in this widget.
    QRectF toWidget(const RegionArea::Target& target) const;

    // Above this height a picture of that width gets no larger.
    int usefulHeight(int width) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void SigEdited(const RegionArea::Target& target);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    const RegionArea* image() const { return m_image ? &*m_image : nullptr; }
    const RegionArea* autoArea() const { return m_autoArea ? &*m_autoArea : nullptr; }
    RegionGeometry place() const;
    RegionArea::Target shownTarget(const RegionArea& area) const;
    int sidesAt(const QPointF& position) const;
    void showCursor(const QPointF& position);
    void finishEdit();
    void cancelEdit();
    QString caption(int width) const;
    void setTexts();

    std::optional<RegionArea> m_image;
    std::optional<RegionArea> m_autoArea;
    DrawMode m_mode = DrawNothing;
    RegionEdit m_edit; // under way
};

Q_DECLARE_METATYPE(RegionArea::Target)
