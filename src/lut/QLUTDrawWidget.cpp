// SPDX-License-Identifier: Apache-2.0
#include "lut/QLUTDrawWidget.h"

#include "basetools/ORXInterface.h"
#include "device/ReentrancyScope.h"
#include "lut/LUTPainter.h"
#include "lut/LUTTextFile.h"
#include "lut/ORXLUTThread.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELTheme.h"

#include <QDebug>
#include <QEvent>
#include <QPainter>

int QLUTDrawWidget::s_nPointCount = LUTLimits::kDefaultPoints;

QLUTDrawWidget::QLUTDrawWidget(QWidget* parent)
    : QWidget(parent)
    , m_pThread(new ORXLUTThread(this))
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(sizeHint());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setRange(s_nPointCount - 1, m_plot.maxValue());
    ClearDraw();
    connectThread();
    connect(ZELTheme::instance(), &ZELTheme::cSigThemeChanged, this, [this] { update(); });
}

QLUTDrawWidget::~QLUTDrawWidget()
{
    // The page may be half gone already.
    blockSignals(true);
    endTransfer();
    // Before the members go: afterwards no call of the host is under way.
    delete m_pThread;
}

QSize QLUTDrawWidget::sizeHint() const
{
    return {LUTPainter::kWidthPx, LUTPainter::kHeightPx};
}

// Line --------------------------------------------------------------------------------------------

void QLUTDrawWidget::setRange(int maximumIndex, int maximumValue)
{
    m_plot.setRange(maximumIndex + 1, maximumValue);
    s_nPointCount = m_plot.pointCount();
    for (LUTLine* each : m_lines)
        each->setRange(s_nPointCount, maximumValue);
}

void QLUTDrawWidget::SetDrawLineChanged(int type)
{
    if (type == m_nDrawLine || type < FoldLine || type > FreeLine)
        return;
    line().clearSelection();
    m_nDrawLine = type;
    line().clearSelection();
    update();
}

void QLUTDrawWidget::ClearDraw()
{
    if (m_bTransferring)
        return;
    m_freeLine.ClearFreePoints();
    const LUTPoints table = m_freeLine.boundedTable();
    m_foldLine.rebuildFrom(table);
    m_smoothCurve.rebuildFrom(table);
    update();
}

LUTPoints QLUTDrawWidget::GetSettinngPoints() const
{
    return currentLine().boundedTable();
}

void QLUTDrawWidget::SetLUTInfo(int, int, const LUTPoints& points, int lineType)
{
    if (lineType < FoldLine || lineType > FreeLine)
        return;
    LUTLine* target = m_lines[lineType];
    target->replaceBy(LUTTable::expand(points, target->pointCount()));
    update();
}

// Painting ----------------------------------------------------------------------------------------

void QLUTDrawWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    LUTPainter picture(painter, m_plot);
    picture.InitBackground(rect(), {tr("Index"), tr("Value")});
    if (!isEnabled())
        painter.setOpacity(0.45);
    picture.drawDynamicLine(currentLine());
    picture.drawHandles(currentLine(), hasFocus());
    if (hasFocus())
        picture.drawFocusFrame();
    if (m_bTransferring && m_nProgressTotal > 0)
        picture.drawProgress(tr("%1 of %2 points").arg(m_nProgressDone).arg(m_nProgressTotal),
                             m_nProgressDone, m_nProgressTotal);
}

void QLUTDrawWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::EnabledChange) {
        line().clearSelection();
        update();
    }
}

// Files -------------------------------------------------------------------------------------------

void QLUTDrawWidget::LoadFromFile()
{
    // The table on its way would replace what was imported.
    if (!m_bTransferring)
        OnLoadFromFile();
}

void QLUTDrawWidget::SaveToFile()
{
    OnSaveToFile();
}

void QLUTDrawWidget::OnLoadFromFile()
{
    QString path;
    {
        const ReentrancyScope scope;
        path =
            ORXInterface::getOpenFileName(window(), tr("Open txt File"), tr("txt Files (*.txt)"));
    }
    LUTPoints points;
    // One more than the last index is let through, as the plot has it.
    const int maximumIndex = s_nPointCount;
    switch (LUTTextFile::read(path, maximumIndex, m_plot.maxValue(), s_nPointCount, &points)) {
    case LUTTextFile::ReadResult::NotOpened:
        return;
    case LUTTextFile::ReadResult::BadFormat:
        showMessage(tr("Failed to import file. Incorrect file format."),
                    ZELCustomMessageBox::Hint_Error);
        return;
    case LUTTextFile::ReadResult::Read:
        SetLUTInfo(maximumIndex, m_plot.maxValue(), points, m_nDrawLine);
        showMessage(tr("Importing from file completed."), ZELCustomMessageBox::Hint_Information);
        return;
    }
}

void QLUTDrawWidget::OnSaveToFile()
{
    QString path;
    {
        const ReentrancyScope scope;
        path = ORXInterface::getSaveFileName(window(), tr("Save as txt File"),
                                             tr("txt File (*.txt)"), QStringLiteral("txt"));
    }
    if (path.isEmpty())
        return;
    if (LUTTextFile::write(path, GetSettinngPoints())) {
        showMessage(tr("Exporting to file completed."), ZELCustomMessageBox::Hint_Information);
        return;
    }
    // Log filters know the line. The failed file is gone, the one it was to replace is not.
    qCritical("%s", "Save success,but file is error.");
    showMessage(tr("File opreation failed, possable storage disk is full."),
                ZELCustomMessageBox::Hint_Error);
}

// One box at a time; it does not hold up the caller, which may be the end of a transfer.
void QLUTDrawWidget::showMessage(const QString& text, int hintStyle)
{
    delete m_pMessageBox;
    m_pMessageBox = new ZELCustomMessageBox(this);
    m_pMessageBox->cSetButtons(ZELCustomMessageBox::Buttons_Ok);
    m_pMessageBox->cSetContent(text);
    m_pMessageBox->cSetHintStyle(hintStyle);
    m_pMessageBox->cEndSetParameter();
    m_pMessageBox->show();
}
