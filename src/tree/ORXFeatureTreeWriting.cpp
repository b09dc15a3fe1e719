// SPDX-License-Identifier: Apache-2.0
// What ORXFeatureTree does about writing: values, commands, messages, the loading overlay.
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeEnumationItemValue.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/FeatureWriter.h"
#include "tree/ORXFeatureTree.h"

namespace {

constexpr int kOverlayPerCameraDeviceType = 8;
const QLatin1String kRegionDisplaySelector("RegionDisplaySelector");

} // namespace

int getLoadingIndex(int deviceType, qint64 cameraId)
{
    return deviceType == kOverlayPerCameraDeviceType ? static_cast<int>(cameraId) + 3 : 1;
}

bool ORXFeatureTree::setFeatureValue(const QString& tagName, const QString& nodeName,
                                     const QVariant& value)
{
    if (m_bDeleting)
        return false;
    // The host may close or release the window while it writes.
    const ReentrancyScope scope;
    ShowLoadingFeatures(true, true);
    const bool written = m_writer->write(tagName, nodeName, value);
    if (!written)
        ShowLoadingDlg(false, QString());
    return written;
}

bool ORXFeatureTree::setFeatureValue(ORXPropertyTreeItem* item, const QVariant& value,
                                     bool updateView)
{
    if (!item || !item->value())
        return false;
    const bool written = setFeatureValue(item->tagName(), item->value()->nodeName(0), value);
    if (updateView && ORXPropertyTreeItem::isAlive(item)) {
        item->value()->setValue(value);
        item->notifyViewUpdate(cameraID(), -1, false);
    }
    return written;
}

bool ORXFeatureTree::OnIntegerNodeValueChanged(const QString& name, qint64 value)
{
    return m_writer->writeInteger(name, value);
}

bool ORXFeatureTree::OnFloatNodeValueChanged(const QString& name, float value)
{
    return m_writer->writeFloat(name, value);
}

bool ORXFeatureTree::OnEnumerationNodeValueChanged(const QString& name, int value)
{
    return m_writer->writeEnumeration(name, value);
}

bool ORXFeatureTree::OnBooleanNodeValueChanged(const QString& name, int value)
{
    return m_writer->writeBoolean(name, value);
}

bool ORXFeatureTree::OnStringRegNodeValueChanged(const QString& name, const QString& value)
{
    return m_writer->writeString(name, value);
}

bool ORXFeatureTree::OnCommandNodeBtnClicked(const QString& name)
{
    return m_writer->executeCommand(name);
}

bool ORXFeatureTree::GetOstSettingData()
{
    const ORXPropertyTreeItem* item = propertyItemByName(kRegionDisplaySelector);
    const auto* value =
        item ? dynamic_cast<const CTreeEnumationItemValue*>(item->value()) : nullptr;
    if (!value)
        return false;
    const qint64 number = value->number();
    {
        // Waits, with events processed, until the selector is not being read.
        const ReentrancyScope scope;
        m_pPartialThread->SetDisableUpdateList({kRegionDisplaySelector});
        m_pPartialThread->SetDisableUpdateList({});
    }
    return OBDeviceControl::SetEnumNodeValue(kRegionDisplaySelector,
                                             static_cast<unsigned int>(number));
}

void ORXFeatureTree::ShowMessage(QWidget*, const QString& title, const QString& text,
                                 const QString& caption, int hintStyle)
{
    if (m_pMessageBox && m_pMessageBox->isVisible())
        return;
    delete m_pMessageBox;
    m_shownMessage = nullptr;
    m_pMessageBox = new ZELCustomMessageBox(this);
    m_pMessageBox->cSetButtons(ZELCustomMessageBox::Buttons_Ok);
    fillMessageBox({title, text, hintStyle}, caption);
    m_pMessageBox->show();
}

void ORXFeatureTree::showTranslated(const std::function<Message()>& message)
{
    if (m_pMessageBox && m_pMessageBox->isVisible())
        return;
    const Message words = message();
    ShowMessage(this, words.title, words.text, QString(), words.hintStyle);
    m_shownMessage = message;
}

void ORXFeatureTree::showWriteFailure(const QString& name, const QString& value, int error)
{
    showTranslated([name, value, error] {
        return Message{tr("Failed to set the feature value."),
                       tr("Node '%1':failed to save value '%2'").arg(name, value)
                           + QStringLiteral("\r\n") + ORXInterface::IntCode2DisplayCode(error),
                       ZELCustomMessageBox::Hint_Error};
    });
}

void ORXFeatureTree::fillMessageBox(const Message& message, const QString& caption)
{
    m_pMessageBox->cSetCaption(caption.isEmpty() ? tr("Prompt") : caption);
    m_pMessageBox->cSetContent(message.text.isEmpty() ? message.title : message.text);
    m_pMessageBox->cSetTextTitle(message.text.isEmpty() ? QString() : message.title);
    m_pMessageBox->cSetHintStyle(message.hintStyle);
    m_pMessageBox->cEndSetParameter();
}

// Whatever the tree has on screen says the same in the other language.
void ORXFeatureTree::retranslateMessages()
{
    if (m_pMessageBox && m_pMessageBox->isVisible() && m_shownMessage)
        fillMessageBox(m_shownMessage(), QString());
    if (cameraID() != -1 && ZELCustomLoadingDialog::isLoading(getLoadingIndex(
                                OBDeviceControl::GetDeviceType(), cameraID())))
        ShowLoadingDlg(true, overlayText());
}

QString ORXFeatureTree::overlayText() const
{
    return m_bOverlayForSetting ? tr("Setting features...") : tr("Updating features...");
}

void ORXFeatureTree::ShowLoadingDlg(bool show, const QString& text)
{
    if (cameraID() == -1)
        return;
    const int index = getLoadingIndex(OBDeviceControl::GetDeviceType(), cameraID());
    if (show)
        ZELCustomLoadingDialog::showLoading(text, index);
    else
        ZELCustomLoadingDialog::hideLoading(index);
}

// The overlay paints by itself as soon as it is shown, so no events need to be processed here: the
// host must not be able to close the window from inside a write.
void ORXFeatureTree::ShowLoadingFeatures(bool show, bool setting)
{
    if (cameraID() == -1)
        return;
    if (OBDeviceControl::GetDeviceType() != kOverlayPerCameraDeviceType && !setting)
        return;
    if (!show && m_pPartialThread->isPassRunning())
        return;
    if (show)
        ZELCustomLoadingDialog::setHostWindow(window(), getLoadingIndex(
                                                            OBDeviceControl::GetDeviceType(),
                                                            cameraID()));
    if (show)
        m_bOverlayForSetting = setting;
    ShowLoadingDlg(show, overlayText());
}
