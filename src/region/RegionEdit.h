// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "region/RegionArea.h"

#include <QPoint>
#include <QPointF>
#include <QRectF>

// An edit of a region under way, by the mouse or by keys: what is taken hold of, where that began,
// and where the region is to go. Knows neither widgets nor the camera; owned by RegionDrawWidget,
// GUI thread.
class RegionEdit
{
public:
    // Which sides of the region follow the pointer; all together: it is moved.
    enum Side { NoSide = 0, Left = 1, Right = 2, Top = 4, Bottom = 8, AllSides = 15 };

    // The sides that a press takes hold of; `rect` is the region, both in pixels of the widget.
    static int sidesAt(const QPointF& position, const QRectF& rect);

    // The mouse takes hold of sides, at least of one.
    void press(int sides, const QPointF& position, const RegionArea& area);
    bool isDragging() const { return m_sides != NoSide; }
    // The pointer has come to the position; `scale` is widget pixels for each pixel of the sensor.
    void drag(const QPointF& position, double scale, const RegionArea& area);
    // A key moves the region by the camera's increments or, with `resize`, its end.
    void step(const QPoint& step, bool resize, const RegionArea& area);
    bool isByKeys() const { return m_byKeys; }

    // Where the region is to go; nothing while there is no edit.
    const std::optional<RegionArea::Target>& target() const { return m_target; }

private:
    int m_sides = NoSide; // held by the mouse
    bool m_byKeys = false;
    QPointF m_pressed;
    std::optional<RegionArea::Target> m_target;
};
