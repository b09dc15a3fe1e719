// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTMessage.h"

#include "styledctl/ZELCustomMessageBox.h"

LUTMessage::LUTMessage(QWidget* editor)
    : m_pEditor(editor)
{
}

void LUTMessage::show(const QString& text, int hintStyle)
{
    delete m_pBox;
    m_pBox = new ZELCustomMessageBox(m_pEditor);
    m_pBox->cSetButtons(ZELCustomMessageBox::Buttons_Ok);
    m_pBox->cSetContent(text);
    m_pBox->cSetHintStyle(hintStyle);
    m_pBox->cEndSetParameter();
    m_pBox->show();
}

bool LUTMessage::showsError() const
{
    return m_pBox && m_pBox->isVisible() && m_pBox->cHintStyle() == ZELCustomMessageBox::Hint_Error;
}
