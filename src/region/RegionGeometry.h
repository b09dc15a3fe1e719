// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "region/RegionArea.h"

#include <QPointF>
#include <QRectF>
#include <QSize>

// Where the picture of a sensor stands in a widget: as large as fits, in the middle, with a line of
// text below it. A local of the widget that it looks at.
class RegionGeometry
{
public:
    // Null for an area that the camera lacks; not owned.
    RegionGeometry(const QSize& widget, const RegionArea* image, const RegionArea* autoArea);

    // Widget pixels for each pixel of the sensor.
    double scale() const { return m_scale; }
    QRectF sensor() const { return m_sensor; }
    // Where a rectangle of the area's own pixels stands. An automatic looks at the image, so its
    // area begins where the image region begins.
    QRectF rectOf(const RegionArea* area, const RegionArea::Target& target) const;
    // Of the line of text.
    QRect caption() const;

    // Height of a widget of that width whose picture leaves no room at the sides.
    static int heightForWidth(int width, const RegionArea* image, const RegionArea* autoArea);

private:
    const RegionArea* m_pImage;    // Not owned.
    const RegionArea* m_pAutoArea; // Not owned.
    int m_width;
    double m_scale;
    QRectF m_sensor;
};
