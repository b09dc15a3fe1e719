// SPDX-License-Identifier: Apache-2.0
#include "lut/QLUTDrawWidget.h"

#include "lut/LUTKeys.h"
#include "lut/LUTPainter.h"
#include "styledctl/ZELTheme.h"
#include "tree/IFeatureTreeFinder.h"
#include "tree/ORXFeatureTree.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>

namespace {

const QPoint kOffset(LUTPlot::kOffsetPx, LUTPlot::kOffsetPx);

} // namespace

QLUTDrawWidget::QLUTDrawWidget(QWidget* parent)
    : QWidget(parent)
    , m_message(this)
    , m_files(this, m_curve, m_message)
    , m_transfer(this, m_message)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Curve of the look-up table"));
    setMinimumSize(sizeHint());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const auto repaint = [this] { update(); };
    connect(&m_transfer, &LUTCameraTransfer::SigProgress, this, repaint);
    connect(&m_transfer, &LUTCameraTransfer::SigTransferring, this, repaint);
    connect(&m_transfer, &LUTCameraTransfer::SigTransferring, this,
            &QLUTDrawWidget::SigTransferring);
    connect(&m_transfer, &LUTCameraTransfer::SigUpdateLUTInfo, this,
            &QLUTDrawWidget::UpdateLutInfo);
    connect(&m_transfer, &LUTCameraTransfer::SigWritten, this, &QLUTDrawWidget::UpdateFeatureTree);
    connect(ZELTheme::instance(), &ZELTheme::cSigThemeChanged, this, repaint);
}

QLUTDrawWidget::~QLUTDrawWidget() = default;

QSize QLUTDrawWidget::sizeHint() const
{
    return {LUTPainter::kWidthPx, LUTPainter::kHeightPx};
}

// Line --------------------------------------------------------------------------------------------

void QLUTDrawWidget::SetDrawLineChanged(int type)
{
    if (m_curve.setType(type))
        update();
}

void QLUTDrawWidget::ClearDraw()
{
    if (isTransferring())
        return;
    m_curve.clear();
    update();
}

LUTPoints QLUTDrawWidget::GetSettinngPoints() const
{
    return currentLine().boundedTable();
}

void QLUTDrawWidget::SetLUTInfo(int, int, const LUTPoints& points, int lineType)
{
    if (m_curve.replaceBy(points, lineType))
        update();
}

// Camera and files --------------------------------------------------------------------------------

void QLUTDrawWidget::LoadFromCamera()
{
    m_curve.line().clearSelection();
    m_transfer.LoadFromCamera(PointCount());
}

void QLUTDrawWidget::SetToCamera()
{
    m_curve.line().clearSelection();
    m_transfer.SetToCamera(GetSettinngPoints());
}

void QLUTDrawWidget::resetCameraID(qint64 cameraId)
{
    m_transfer.resetCameraID(cameraId);
}

void QLUTDrawWidget::StopTransfer(bool wait)
{
    m_transfer.StopTransfer(wait);
}

void QLUTDrawWidget::UpdateLutInfo(int maximumIndex, int maximumValue, float xScale, float yScale)
{
    const LUTPoints points = m_transfer.points();
    // Another camera was chosen since, or a table of another size was read since.
    if (points.size() != maximumIndex + 1)
        return;
    m_curve.showTable(points, maximumValue, xScale, yScale);
    update();
    UpdateFeatureTree();
}

void QLUTDrawWidget::UpdateFeatureTree()
{
    const qint64 cameraId = m_transfer.cameraID();
    IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    if (finder && finder->hasFeatureTree(cameraId)) {
        ORXFeatureTree* tree = finder->featureTree(cameraId, false);
        for (const auto& name : {QStringLiteral("LUTIndex"), QStringLiteral("LUTValue")})
            tree->UpdateFeatures(FEATURES_UPDATE_INVALIDATED, name,
                                 QGetFeaturesThread::UpdateFlags(UpdateFlagSets::kRefresh), false,
                                 false);
    }
    emit SigUpdateFeatureTree();
}

void QLUTDrawWidget::LoadFromFile()
{
    // The end of a transfer would replace what was imported.
    if (!isTransferring() && m_files.OnLoadFromFile())
        update();
}

void QLUTDrawWidget::SaveToFile()
{
    m_files.OnSaveToFile();
}

// Painting ----------------------------------------------------------------------------------------

void QLUTDrawWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    LUTPainter picture(painter, plot());
    picture.InitBackground(rect(), {tr("Index"), tr("Value")});
    if (!isEnabled())
        painter.setOpacity(0.45);
    picture.drawDynamicLine(currentLine());
    picture.drawHandles(currentLine(), hasFocus());
    if (hasFocus())
        picture.drawFocusFrame();
    const int done = m_transfer.done();
    const int total = m_transfer.total();
    if (isTransferring() && total > 0)
        picture.drawProgress(tr("%1 of %2 points").arg(done).arg(total), done, total);
}

void QLUTDrawWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setAccessibleName(tr("Curve of the look-up table"));
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::EnabledChange) {
        m_curve.line().clearSelection();
        update();
    }
}

// Mouse and keyboard ------------------------------------------------------------------------------

void QLUTDrawWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || isTransferring())
        return;
    if (m_curve.line().press(event->pos() - kOffset, plot()))
        update();
}

void QLUTDrawWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_curve.line().drag(event->pos() - kOffset, plot()))
        return;
    update();
    showReading(event->pos());
}

void QLUTDrawWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_curve.line().release(event->pos() - kOffset, plot()))
        update();
}

void QLUTDrawWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || isTransferring())
        return;
    // Where it makes no point it is an ordinary press, the second of two quick ones.
    if (!m_curve.line().addPoint(event->pos() - kOffset, plot()))
        mousePressEvent(event);
    update();
}

// The wheel scrolls the page; it never changes the curve.
void QLUTDrawWidget::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void QLUTDrawWidget::keyPressEvent(QKeyEvent* event)
{
    const bool editable = !isTransferring() && !currentLine().isDragging();
    if (editable && LUTKeys::press(m_curve.line(), *event))
        update();
    else
        QWidget::keyPressEvent(event);
}

void QLUTDrawWidget::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void QLUTDrawWidget::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

bool QLUTDrawWidget::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    showReading(static_cast<QHelpEvent*>(event)->pos());
    return true;
}

void QLUTDrawWidget::showReading(const QPoint& position)
{
    const QPoint pixel = position - kOffset;
    if (!LUTPlot::contains(pixel)) {
        QToolTip::hideText();
        return;
    }
    const int index = qMin(plot().indexAt(pixel.x()), PointCount() - 1);
    QToolTip::showText(mapToGlobal(position),
                       tr("Index: %1\nValue: %2").arg(index).arg(plot().valueAt(pixel.y())), this);
}
