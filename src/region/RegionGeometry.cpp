// SPDX-License-Identifier: Apache-2.0
#include "region/RegionGeometry.h"

#include <QWidget>
#include <QtMath>

namespace {

constexpr int kMargin = 14;
constexpr int kCaptionHeight = 22;
constexpr double kSmallestScale = 1e-9;

QSize extentOf(const RegionArea* image, const RegionArea* autoArea)
{
    return image ? image->extent() : autoArea ? autoArea->extent() : QSize(1, 1);
}

} // namespace

RegionGeometry::RegionGeometry(const QSize& widget, const RegionArea* image,
                               const RegionArea* autoArea)
    : m_pImage(image)
    , m_pAutoArea(autoArea)
    , m_width(widget.width())
{
    const QSizeF extent = extentOf(image, autoArea);
    const double x = (widget.width() - 2 * kMargin) / extent.width();
    const double y = (widget.height() - 2 * kMargin - kCaptionHeight) / extent.height();
    m_scale = qMax(kSmallestScale, qMin(x, y));
    const QSizeF shown = extent * m_scale;
    m_sensor = QRectF(QPointF((widget.width() - shown.width()) / 2,
                              (widget.height() - kCaptionHeight - shown.height()) / 2),
                      shown);
}

QRectF RegionGeometry::rectOf(const RegionArea* area, const RegionArea::Target& target) const
{
    QPointF origin = m_sensor.topLeft();
    if (area && area == m_pAutoArea && m_pImage)
        origin += QPointF(m_pImage->rect().topLeft()) * m_scale;
    return QRectF(double(target.x.offset) * m_scale, double(target.y.offset) * m_scale,
                  double(target.x.size) * m_scale, double(target.y.size) * m_scale)
        .translated(origin);
}

QRect RegionGeometry::caption() const
{
    return {kMargin / 2, qCeil(m_sensor.bottom()) + kMargin / 2, m_width - kMargin, kCaptionHeight};
}

int RegionGeometry::heightForWidth(int width, const RegionArea* image, const RegionArea* autoArea)
{
    const QSize extent = extentOf(image, autoArea);
    const double picture = double(width - 2 * kMargin) * extent.height() / extent.width();
    return static_cast<int>(qMin(picture, double(QWIDGETSIZE_MAX / 2))) + 2 * kMargin +
           kCaptionHeight;
}
