// SPDX-License-Identifier: Apache-2.0
#include "region/RegionDrawWidget.h"

#include "basetools/QtDifferences.h"
#include "region/RegionGeometry.h"
#include "region/RegionPainter.h"

#include <QKeyEvent>
#include <QMap>
#include <QMouseEvent>
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
    return &area == edited() && m_edit.target() ? *m_edit.target() : area.current();
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

// Mouse and keyboard ------------------------------------------------------------------------------

int RegionDrawWidget::sidesAt(const QPointF& position) const
{
    const RegionArea* area = edited();
    return area ? RegionEdit::sidesAt(position, toWidget(area->current())) : RegionEdit::NoSide;
}

void RegionDrawWidget::mousePressEvent(QMouseEvent* event)
{
    const int sides = sidesAt(QtDifferences::mousePosition(*event));
    if (event->button() != Qt::LeftButton || m_edit.target() || sides == RegionEdit::NoSide)
        return;
    m_edit.press(sides, QtDifferences::mousePosition(*event), *edited());
    update();
}

void RegionDrawWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_edit.isDragging()) {
        showCursor(QtDifferences::mousePosition(*event));
        return;
    }
    m_edit.drag(QtDifferences::mousePosition(*event), place().scale(), *edited());
    update();
}

void RegionDrawWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_edit.isDragging())
        return;
    m_edit.drag(QtDifferences::mousePosition(*event), place().scale(), *edited());
    finishEdit();
}

void RegionDrawWidget::showCursor(const QPointF& position)
{
    using Edit = RegionEdit;
    static const QMap<int, Qt::CursorShape> kShapes = {
        {Edit::AllSides, Qt::SizeAllCursor},
        {Edit::Left, Qt::SizeHorCursor},
        {Edit::Right, Qt::SizeHorCursor},
        {Edit::Top, Qt::SizeVerCursor},
        {Edit::Bottom, Qt::SizeVerCursor},
        {Edit::Left | Edit::Top, Qt::SizeFDiagCursor},
        {Edit::Right | Edit::Bottom, Qt::SizeFDiagCursor},
        {Edit::Right | Edit::Top, Qt::SizeBDiagCursor},
        {Edit::Left | Edit::Bottom, Qt::SizeBDiagCursor}};
    setCursor(kShapes.value(sidesAt(position), Qt::ArrowCursor));
}

void RegionDrawWidget::keyPressEvent(QKeyEvent* event)
{
    static const QMap<int, QPoint> kSteps = {{Qt::Key_Left, {-1, 0}},
                                             {Qt::Key_Right, {1, 0}},
                                             {Qt::Key_Up, {0, -1}},
                                             {Qt::Key_Down, {0, 1}}};
    const QPoint step = kSteps.value(event->key());
    if (event->key() == Qt::Key_Escape && m_edit.target()) {
        cancelEdit();
    } else if (!edited() || step.isNull() || m_edit.isDragging()) {
        QWidget::keyPressEvent(event);
    } else {
        m_edit.step(step, event->modifiers().testFlag(Qt::ShiftModifier), *edited());
        update();
    }
}

// A held key repeats; the camera hears of the last step only.
void RegionDrawWidget::keyReleaseEvent(QKeyEvent* event)
{
    if (event->isAutoRepeat() || !m_edit.isByKeys())
        QWidget::keyReleaseEvent(event);
    else
        finishEdit();
}

void RegionDrawWidget::focusOutEvent(QFocusEvent* event)
{
    if (m_edit.isByKeys())
        finishEdit();
    QWidget::focusOutEvent(event);
    update();
}

void RegionDrawWidget::finishEdit()
{
    const RegionArea* area = edited();
    const std::optional<RegionArea::Target> target = m_edit.target();
    cancelEdit();
    if (area && target && !area->writesTo(*target).isEmpty())
        emit SigEdited(*target);
}

void RegionDrawWidget::cancelEdit()
{
    m_edit = {};
    update();
}
