// SPDX-License-Identifier: Apache-2.0
// What ORXFeatureTree does about writing: values, commands, messages, the loading overlay.
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeEnumationItemValue.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/FeatureWriter.h"
#include "tree/IFeatureTreeFinder.h"
#include "tree/ORXFeatureTree.h"

#include <QDebug>
#include <QEvent>
#include <QRegularExpression>

namespace {

constexpr int kOverlayPerCameraDeviceType = 8;
const QLatin1String kRegionDisplaySelector("RegionDisplaySelector");
const QLatin1String kAcquisitionStart("AcquisitionStart");
const QLatin1String kAcquisitionStop("AcquisitionStop");
const QLatin1String kDeviceReset("DeviceReset");

// Commands that replace the settings as a whole.
bool loadsSettings(const QString& command)
{
    return command == QLatin1String("TempControlLoad") || command == QLatin1String("UserSetLoad");
}

// For a text that is shown as rich text. An ampersand stays as it is where it begins no entity.
QString quoted(QString text)
{
    static const QRegularExpression kEntityStart(QStringLiteral("&(?=#?\\w+;)"));
    text.replace(kEntityStart, QStringLiteral("&amp;"));
    text.replace(QLatin1Char('>'), QLatin1String("&gt;"));
    text.replace(QLatin1Char('<'), QLatin1String("&lt;"));
    return text;
}

QString errorText(int error)
{
    return QStringLiteral("\r\n") + ORXInterface::IntCode2DisplayCode(error);
}

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
    const bool written = writeFeature(featureTag(tagName), nodeName, value);
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
    return writeFeature(FeatureTag::Integer, name, value);
}

bool ORXFeatureTree::OnFloatNodeValueChanged(const QString& name, float value)
{
    return writeFeature(FeatureTag::Float, name, value);
}

bool ORXFeatureTree::OnEnumerationNodeValueChanged(const QString& name, int value)
{
    return writeFeature(FeatureTag::Enumeration, name, value);
}

bool ORXFeatureTree::OnBooleanNodeValueChanged(const QString& name, int value)
{
    return writeFeature(FeatureTag::Boolean, name, value);
}

bool ORXFeatureTree::OnStringRegNodeValueChanged(const QString& name, const QString& value)
{
    return writeFeature(FeatureTag::String, name, value);
}

bool ORXFeatureTree::OnCommandNodeBtnClicked(const QString& name)
{
    return writeFeature(FeatureTag::Command, name, QVariant());
}

bool ORXFeatureTree::writeFeature(FeatureTag tag, const QString& name, const QVariant& value)
{
    const bool isCommand = tag == FeatureTag::Command;
    if (isCommand && m_bSkipAcquisitionStart && name == kAcquisitionStart) {
        m_bSkipAcquisitionStart = false;
        return false;
    }
    const FeatureWriter::Outcome outcome = FeatureWriter::write(tag, name, value);
    // The host has released the library from there: nothing follows, neither call nor message.
    if (m_bDeleting)
        return outcome.state == FeatureWriter::State::Written;
    const QString camera = QString::number(cameraID());
    switch (outcome.state) {
    case FeatureWriter::State::NotSent:
        return false;
    case FeatureWriter::State::Refused:
        if (!isCommand) {
            showWriteFailure(name, outcome.text, outcome.error);
            return false;
        }
        qCritical().noquote() << tr("Node '%1': Failed to execute Node. %2")
                                         .arg(name, QString::number(outcome.error)) +
                                     errorText(outcome.error);
        break;
    case FeatureWriter::State::Written:
        break;
    }
    if (isCommand) {
        qInfo().noquote() << QStringLiteral("NodeName:%1, [CameraID:%2]").arg(name, camera);
        if (outcome.state == FeatureWriter::State::Written &&
            (name == kAcquisitionStart || name == kAcquisitionStop))
            readLockable();
        return afterCommand(name);
    }
    qInfo().noquote() << QStringLiteral("NodeName:%1, NodeValue:%2, [CameraID:%3]")
                             .arg(name, outcome.text, camera);
    rereadSoon(name);
    return true;
}

// Also after a refused command: what the camera has done of it only reading can tell.
bool ORXFeatureTree::afterCommand(const QString& name)
{
    if (name == kDeviceReset)
        return afterDeviceReset();
    if (loadsSettings(name)) {
        if (!GetOstSettingData())
            qCritical("%s", "GetOstSettingData failed");
        emit SigFeatureChangeOsd();
    }
    rereadSoon(name);
    return true;
}

bool ORXFeatureTree::afterDeviceReset()
{
    stopTimersForReset();
    ClearTreeViewInfo();
    setIsCanEdit(false);
    showTranslated([] {
        return Message{tr("The camera is about to reboot. Reconnect the\ncamera later."), QString(),
                       ZELCustomMessageBox::Hint_Information};
    });
    const IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    if (!finder || !finder->hasFeatureTree(cameraID()))
        return false;
    ShowLoadingDlg(false, QString());
    return true;
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
    if (m_bDeleting) // released meanwhile
        return false;
    return OBDeviceControl::SetEnumNodeValue(kRegionDisplaySelector,
                                             static_cast<unsigned int>(number));
}

void ORXFeatureTree::ShowMessage(QWidget*, const QString& title, const QString& text,
                                 const QString& caption, int hintStyle)
{
    showMessageBox({title, text, hintStyle}, caption);
}

void ORXFeatureTree::showTranslated(const std::function<Message()>& message)
{
    if (showMessageBox(message(), QString()))
        m_shownMessage = message;
}

bool ORXFeatureTree::showMessageBox(const Message& message, const QString& caption)
{
    if (m_pMessageBox && m_pMessageBox->isVisible())
        return false;
    delete m_pMessageBox;
    m_shownMessage = nullptr;
    m_pMessageBox = new ZELCustomMessageBox(this);
    m_pMessageBox->cSetButtons(ZELCustomMessageBox::Buttons_Ok);
    fillMessageBox(message, caption);
    m_pMessageBox->show();
    // A write that is refused while the window closes comes later than the window's own event.
    window()->installEventFilter(this);
    QTimer::singleShot(0, this, &ORXFeatureTree::hideMessageWithWindow);
    return true;
}

bool ORXFeatureTree::eventFilter(QObject* watched, QEvent* event)
{
    // Queued: a window that changes its flags is hidden for a moment.
    if (watched == window() && event->type() == QEvent::Hide && !event->spontaneous())
        QTimer::singleShot(0, this, &ORXFeatureTree::hideMessageWithWindow);
    return IORXFeatureWidget::eventFilter(watched, event);
}

// Without its window the box would stand alone on the screen.
void ORXFeatureTree::hideMessageWithWindow()
{
    const bool wasShown = window()->testAttribute(Qt::WA_WState_ExplicitShowHide);
    if (m_pMessageBox && wasShown && !window()->isVisible())
        m_pMessageBox->hide();
}

void ORXFeatureTree::showWriteFailure(const QString& name, const QString& value, int error)
{
    showTranslated([name, value, error] {
        return Message{tr("Failed to set the feature value."),
                       tr("Node '%1':failed to save value '%2'").arg(quoted(name), quoted(value)) +
                           errorText(error),
                       ZELCustomMessageBox::Hint_Error, Qt::RichText};
    });
}

void ORXFeatureTree::fillMessageBox(const Message& message, const QString& caption)
{
    m_pMessageBox->cSetCaption(caption.isEmpty() ? tr("Prompt") : caption);
    m_pMessageBox->cSetContent(message.text.isEmpty() ? message.title : message.text);
    m_pMessageBox->cSetContentFormat(message.format);
    m_pMessageBox->cSetTextTitle(message.text.isEmpty() ? QString() : message.title);
    m_pMessageBox->cSetHintStyle(message.hintStyle);
    m_pMessageBox->cEndSetParameter();
}

// Whatever the tree has on screen says the same in the other language.
void ORXFeatureTree::retranslateMessages()
{
    if (m_pMessageBox && m_pMessageBox->isVisible() && m_shownMessage)
        fillMessageBox(m_shownMessage(), QString());
    if (cameraID() != -1 && ZELCustomLoadingDialog::isLoading(
                                getLoadingIndex(OBDeviceControl::GetDeviceType(), cameraID())))
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
        ZELCustomLoadingDialog::setHostWindow(
            window(), getLoadingIndex(OBDeviceControl::GetDeviceType(), cameraID()));
    if (show)
        m_bOverlayForSetting = setting;
    ShowLoadingDlg(show, overlayText());
}
