// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>

class QPainter;
struct TrendPicture;

// Paints a trend into a rectangle: summary and name above, values at the left, times below. Texts
// for which there is no room are left out. GUI thread.
namespace TrendPainter {

void paint(QPainter* painter, const QRect& area, const TrendPicture& picture);

} // namespace TrendPainter
