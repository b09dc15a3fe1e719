// SPDX-License-Identifier: Apache-2.0
#include "region/RegionDrawWidget.h"

#include "region/RegionGeometry.h"
#include "region/RegionPainter.h"

#include <QEvent>
#include <QPainter>

RegionDrawWidget::RegionDrawWidget(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("RegionDrawWidget"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setTexts();
}

void RegionDrawWidget::setTexts()
{
    setAccessibleName(tr("Picture of the sensor area"));
    setToolTip(tr("Drag the region to move it, its edges and corners to resize it.\n"
                  "Arrow keys move it, with Shift they resize it. Escape takes a drag back."));
}

int RegionDrawWidget::usefulHeight(int width) const
{
    return qMax(minimumSizeHint().height(),
                RegionGeometry::heightForWidth(width, image(), autoArea()));
}

QSize RegionDrawWidget::sizeHint() const
{
    return {320, 260};
}
QSize RegionDrawWidget::minimumSizeHint() const
{
    return {200, 160};
}

void RegionDrawWidget::setAreas(const std::optional<RegionArea>& image,
                                const std::optional<RegionArea>& area)
{
    m_image = image;
    m_autoArea = area;
    if (!edited())
        cancelEdit();
    update();
}

void RegionDrawWidget::showEdited(const RegionArea& area)
{
    if (edited())
        (m_mode == DrawAutoFunctionArea ? m_autoArea : m_image) = area;
    update();
}

void RegionDrawWidget::setDrawMode(DrawMode mode)
{
    if (mode == m_mode)
        return;
    cancelEdit();
    m_mode = mode;
    update();
}

const RegionArea* RegionDrawWidget::edited() const
{
    const std::optional<RegionArea>& area = m_mode == DrawAutoFunctionArea ? m_autoArea : m_image;
    return m_mode != DrawNothing && area && area->isWritable() ? &*area : nullptr;
}

// Geometry ----------------------------------------------------------------------------------------

RegionGeometry RegionDrawWidget::place() const
{
    return {size(), image(), autoArea()};
}

QRectF RegionDrawWidget::toWidget(const RegionArea::Target& target) const
{
    return place().rectOf(edited(), target);
}

// Painting ----------------------------------------------------------------------------------------

void RegionDrawWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        setTexts();
        update();
    }
}

void RegionDrawWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    RegionPainter picture(painter);
    picture.drawBackground(rect());
    if (!hasAreas())
        return;
    const RegionGeometry where = place();
    picture.drawSensor(where.sensor());
    const auto draw = [&](RegionPainter::Kind kind, const RegionArea* area, const QString& label) {
        if (area)
            picture.drawArea(kind, where.rectOf(area, shownTarget(*area)), area == edited(),
                             m_image && m_autoArea ? label : QString());
    };
    draw(RegionPainter::ImageRegion, image(), tr("ROI"));
    draw(RegionPainter::AutoFunctionArea, autoArea(), tr("AOI"));
    picture.drawCaption(where.caption(), caption(where.caption().width()));
    if (hasFocus())
        picture.drawFocusFrame(rect());
}

RegionArea::Target RegionDrawWidget::shownTarget(const RegionArea& area) const
{
    return &area == edited() && m_target ? *m_target : area.current();
}

QString RegionDrawWidget::caption(int width) const
{
    const RegionArea* area = m_mode == DrawAutoFunctionArea && m_autoArea ? autoArea() : image();
    if (!area)
        return {};
    const RegionArea::Target shown = shownTarget(*area);
    const QString place = tr("%1 × %2 at (%3, %4)")
                              .arg(shown.x.size)
                              .arg(shown.y.size)
                              .arg(shown.x.offset)
                              .arg(shown.y.offset);
    QString text =
        tr("%1 of %2 × %3").arg(place).arg(area->extent().width()).arg(area->extent().height());
    if (!area->isWritable())
        text = tr("%1, locked").arg(text);
    return fontMetrics().horizontalAdvance(text) <= width ? text : place;
}
