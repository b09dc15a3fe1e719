// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>

class QPainter;

// Small signs drawn as strokes, sharp at every scale and in every colour.
namespace ZELGlyph {

enum Shape { ArrowUp, ArrowDown, ArrowLeft, ArrowRight, Check, Dash, Close, Search };

// Centred in `rect`, as large as fits with the proportions of a square.
void paint(QPainter* painter, Shape shape, const QRectF& rect, const QColor& color,
           qreal strokeWidth = 1.5);

// Icon drawn afresh at every size; `hover` is used for the active mode, the disabled mode takes
// `color` at half strength.
QIcon icon(Shape shape, const QColor& color, const QColor& hover);

} // namespace ZELGlyph
