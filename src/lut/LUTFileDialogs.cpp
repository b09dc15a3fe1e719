// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTFileDialogs.h"

#include "basetools/ORXInterface.h"
#include "device/ReentrancyScope.h"
#include "lut/LUTCurve.h"
#include "lut/LUTMessage.h"
#include "lut/LUTTextFile.h"
#include "styledctl/ZELCustomMessageBox.h"

#include <QDebug>

LUTFileDialogs::LUTFileDialogs(QWidget* editor, LUTCurve& curve, LUTMessage& message)
    : m_pEditor(editor)
    , m_curve(curve)
    , m_message(message)
{
}

bool LUTFileDialogs::OnLoadFromFile()
{
    QString path;
    {
        const ReentrancyScope scope;
        path = ORXInterface::getOpenFileName(m_pEditor->window(), tr("Open txt File"),
                                             tr("txt Files (*.txt)"));
    }
    LUTPoints points;
    // One more than the last index is let through, as the plot has it.
    const int maximumIndex = LUTCurve::pointCount();
    switch (
        LUTTextFile::read(path, maximumIndex, m_curve.plot().maxValue(), maximumIndex, &points)) {
    case LUTTextFile::ReadResult::Read:
        m_message.show(tr("Importing from file completed."), ZELCustomMessageBox::Hint_Information);
        return m_curve.replaceBy(points, m_curve.type());
    case LUTTextFile::ReadResult::BadFormat:
        m_message.show(tr("Failed to import file. Incorrect file format."),
                       ZELCustomMessageBox::Hint_Error);
        break;
    case LUTTextFile::ReadResult::NotOpened:
        break;
    }
    return false;
}

void LUTFileDialogs::OnSaveToFile()
{
    QString path;
    {
        const ReentrancyScope scope;
        path = ORXInterface::getSaveFileName(m_pEditor->window(), tr("Save as txt File"),
                                             tr("txt File (*.txt)"), QStringLiteral("txt"));
    }
    if (path.isEmpty())
        return;
    if (LUTTextFile::write(path, m_curve.line().boundedTable())) {
        m_message.show(tr("Exporting to file completed."), ZELCustomMessageBox::Hint_Information);
        return;
    }
    // Log filters know the line. The failed file is gone, the one it was to replace is not.
    qCritical("%s", "Save success,but file is error.");
    m_message.show(tr("File opreation failed, possable storage disk is full."),
                   ZELCustomMessageBox::Hint_Error);
}
