// SPDX-License-Identifier: Apache-2.0
#include "pages/RegionDrawWidget.h"

#include "pages/RegionGeometry.h"
#include "pages/RegionPainter.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMap>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace {

constexpr double kGrabPx = 7.0; // how far from an edge it can be grabbed

qint64 rounded(double value)
{
    return static_cast<qint64>(std::floor(value + 0.5));
}

} // namespace

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

int RegionDrawWidget::sidesAt(const QPointF& position) const
{
    const RegionArea* area = edited();
    if (!area)
        return NoSide;
    const QRectF rect = toWidget(area->current());
    if (!rect.adjusted(-kGrabPx, -kGrabPx, kGrabPx, kGrabPx).contains(position))
        return NoSide;
    // In a small region there must be a middle left to move it by.
    const double grabX = qMin(kGrabPx, rect.width() / 4);
    const double grabY = qMin(kGrabPx, rect.height() / 4);
    int sides = NoSide;
    if (position.x() <= rect.left() + grabX)
        sides |= Left;
    else if (position.x() >= rect.right() - grabX)
        sides |= Right;
    if (position.y() <= rect.top() + grabY)
        sides |= Top;
    else if (position.y() >= rect.bottom() - grabY)
        sides |= Bottom;
    return sides == NoSide ? AllSides : sides;
}

RegionArea::Target RegionDrawWidget::targetAt(const QPointF& position) const
{
    const RegionArea* area = edited();
    RegionArea::Target target = area->current();
    const QPointF way = (position - m_pressed) / place().scale();
    if (m_sides == AllSides)
        return {area->x().moved(target.x.offset + rounded(way.x())),
                area->y().moved(target.y.offset + rounded(way.y()))};
    if (m_sides & Left)
        target.x = area->x().withBegin(target.x.offset + rounded(way.x()));
    if (m_sides & Right)
        target.x = area->x().withEnd(target.x.end() + rounded(way.x()));
    if (m_sides & Top)
        target.y = area->y().withBegin(target.y.offset + rounded(way.y()));
    if (m_sides & Bottom)
        target.y = area->y().withEnd(target.y.end() + rounded(way.y()));
    return target;
}

// Mouse and keyboard ------------------------------------------------------------------------------

void RegionDrawWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_target)
        return;
    m_sides = sidesAt(event->localPos());
    if (m_sides == NoSide)
        return;
    m_pressed = event->localPos();
    m_target = edited()->current();
    update();
}

void RegionDrawWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_sides == NoSide || !m_target) {
        showCursor(event->localPos());
        return;
    }
    m_target = targetAt(event->localPos());
    update();
}

void RegionDrawWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_sides == NoSide)
        return;
    if (m_target)
        m_target = targetAt(event->localPos());
    m_sides = NoSide;
    finishEdit();
}

void RegionDrawWidget::showCursor(const QPointF& position)
{
    static const QMap<int, Qt::CursorShape> kShapes = {{AllSides, Qt::SizeAllCursor},
                                                       {Left, Qt::SizeHorCursor},
                                                       {Right, Qt::SizeHorCursor},
                                                       {Top, Qt::SizeVerCursor},
                                                       {Bottom, Qt::SizeVerCursor},
                                                       {Left | Top, Qt::SizeFDiagCursor},
                                                       {Right | Bottom, Qt::SizeFDiagCursor},
                                                       {Right | Top, Qt::SizeBDiagCursor},
                                                       {Left | Bottom, Qt::SizeBDiagCursor}};
    setCursor(kShapes.value(sidesAt(position), Qt::ArrowCursor));
}

void RegionDrawWidget::keyPressEvent(QKeyEvent* event)
{
    static const QMap<int, QPoint> kSteps = {{Qt::Key_Left, {-1, 0}},
                                             {Qt::Key_Right, {1, 0}},
                                             {Qt::Key_Up, {0, -1}},
                                             {Qt::Key_Down, {0, 1}}};
    const RegionArea* area = edited();
    if (event->key() == Qt::Key_Escape && m_target) {
        cancelEdit();
        return;
    }
    const QPoint step = kSteps.value(event->key());
    if (!area || step.isNull() || m_sides != NoSide) {
        QWidget::keyPressEvent(event);
        return;
    }
    const RegionArea::Target from = m_target.value_or(area->current());
    const RegionAxis x(area->x().limits(), from.x);
    const RegionAxis y(area->y().limits(), from.y);
    RegionArea::Target target = from;
    if (event->modifiers() & Qt::ShiftModifier) {
        if (step.x() != 0)
            target.x = x.withEnd(from.x.end() + step.x() * x.limits().sizeIncrement);
        if (step.y() != 0)
            target.y = y.withEnd(from.y.end() + step.y() * y.limits().sizeIncrement);
    } else {
        if (step.x() != 0)
            target.x = x.moved(from.x.offset + step.x() * x.limits().offsetIncrement);
        if (step.y() != 0)
            target.y = y.moved(from.y.offset + step.y() * y.limits().offsetIncrement);
    }
    m_byKeys = true;
    m_target = target;
    update();
}

// A held key repeats; the camera hears of the last step only.
void RegionDrawWidget::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat() || !m_byKeys)
        QWidget::keyReleaseEvent(event);
    else
        finishEdit();
}

void RegionDrawWidget::focusOutEvent(QFocusEvent* event)
{
    if (m_byKeys)
        finishEdit();
    QWidget::focusOutEvent(event);
    update();
}

void RegionDrawWidget::finishEdit()
{
    const RegionArea* area = edited();
    const std::optional<RegionArea::Target> target = m_target;
    m_target.reset();
    m_byKeys = false;
    update();
    if (area && target && !area->writesTo(*target).isEmpty())
        emit SigEdited(*target);
}

void RegionDrawWidget::cancelEdit()
{
    m_target.reset();
    m_byKeys = false;
    m_sides = NoSide;
    update();
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
