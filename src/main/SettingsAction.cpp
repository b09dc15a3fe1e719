// SPDX-License-Identifier: Apache-2.0
#include "main/SettingsAction.h"

#include "device/ORXListenTools.h"
#include "device/ReentrancyScope.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "userset/ORXFeatureSaveWidget.h"

#include <QCoreApplication>

SettingsAction::SettingsAction(QWidget* window)
    : QObject(window)
    , m_pWindow(window)
{
}

void SettingsAction::run(qint64 cameraId)
{
    // The host may close or release the window while one of these stands on the stack.
    const ReentrancyScope scope;
    {
        ORXFeatureSaveWidget dialog(cameraId, m_pWindow);
        if (dialog.IsSupport()) {
            m_pDialog = &dialog;
            dialog.exec();
            return;
        }
    }
    ZELCustomMessageBox box(m_pWindow);
    m_pPrompt = &box;
    fillPrompt();
    box.exec();
}

void SettingsAction::end()
{
    if (m_pPrompt)
        m_pPrompt->reject();
}

void SettingsAction::retranslate()
{
    if (m_pPrompt)
        fillPrompt();
}

void SettingsAction::fillPrompt()
{
    m_pPrompt->cSetCaption(QCoreApplication::translate("ORXFeatureWidget", "Prompt"));
    m_pPrompt->cSetContent(QCoreApplication::translate("ORXFeatureWidget", "Not supported."));
    m_pPrompt->cSetHintStyle(ZELCustomMessageBox::Hint_Warning);
    m_pPrompt->cEndSetParameter();
}

void SettingsAction::onBeforeDeleteFeature(qint64 key)
{
    if (m_pDialog)
        m_pDialog->notify(ListenCode::kBeforeTreeRemoved, &key);
}
