// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class QPainter;
class QRect;
class QRectF;

// Paints the picture of a sensor and of the areas in it. Free of state; GUI thread.
class RegionPainter
{
public:
    explicit RegionPainter(QPainter& painter);

    void drawBackground(const QRect& widget);
    void drawSensor(const QRectF& rect);
    enum Kind { ImageRegion, AutoFunctionArea };
    // An area that is edited has handles and a full line. The label stands inside, where it fits.
    void drawArea(Kind kind, const QRectF& rect, bool edited, const QString& label);
    void drawCaption(const QRect& line, const QString& text);
    void drawFocusFrame(const QRect& widget);

private:
    void drawLabel(const QRectF& rect, const QString& label);
    void drawHandles(const QRectF& rect);

    QPainter& m_painter; // Not owned.
};
