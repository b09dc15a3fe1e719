// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureEdits.h"

#include "device/ReentrancyScope.h"
#include "reading/FeatureReadingControl.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/FeatureLoadingOverlay.h"
#include "tree/FeatureMessages.h"
#include "tree/FeatureWriter.h"
#include "tree/IFeatureTreeFinder.h"
#include "tree/IORXFeatureWidget.h"

#include <QCoreApplication>
#include <QDebug>
#include <QVariant>

namespace {

const QLatin1String kAcquisitionStart("AcquisitionStart");
const QLatin1String kAcquisitionStop("AcquisitionStop");
const QLatin1String kDeviceReset("DeviceReset");

// Commands that replace the settings as a whole.
bool loadsSettings(const QString& command)
{
    return command == QLatin1String("TempControlLoad") || command == QLatin1String("UserSetLoad");
}

} // namespace

FeatureEdits::FeatureEdits(IORXFeatureWidget* page, FeatureReadingControl& reading,
                           FeatureMessages& messages, FeatureLoadingOverlay& overlay)
    : QObject(page)
    , m_pPage(page)
    , m_reading(reading)
    , m_messages(messages)
    , m_overlay(overlay)
{
}

bool FeatureEdits::edit(FeatureTag tag, const QString& name, const QVariant& value)
{
    if (m_reading.hasEnded())
        return false;
    // The host may close or release the window while it writes.
    const ReentrancyScope scope;
    m_overlay.showFor(true);
    const bool written = write(tag, name, value);
    if (!written)
        m_overlay.hide();
    return written;
}

bool FeatureEdits::write(FeatureTag tag, const QString& name, const QVariant& value)
{
    const bool isCommand = tag == FeatureTag::Command;
    if (isCommand && m_bSkipAcquisitionStart && name == kAcquisitionStart) {
        m_bSkipAcquisitionStart = false;
        return false;
    }
    const FeatureWriter::Outcome outcome = FeatureWriter::write(tag, name, value);
    // The host has released the library from there: nothing follows, neither call nor message.
    if (m_reading.hasEnded())
        return outcome.state == FeatureWriter::State::Written;
    const QString camera = QString::number(m_pPage->cameraID());
    switch (outcome.state) {
    case FeatureWriter::State::NotSent:
        return false;
    case FeatureWriter::State::Refused:
        if (!isCommand) {
            m_messages.showWriteFailure(name, outcome.text, outcome.error);
            return false;
        }
        qCritical().noquote() << QCoreApplication::translate(
                                     "ORXFeatureTree", "Node '%1': Failed to execute Node. %2")
                                         .arg(name, QString::number(outcome.error)) +
                                     FeatureMessages::errorText(outcome.error);
        break;
    case FeatureWriter::State::Written:
        break;
    }
    if (isCommand) {
        qInfo().noquote() << QStringLiteral("NodeName:%1, [CameraID:%2]").arg(name, camera);
        // Not every description says that acquisition changes "TLParamsLocked".
        if (outcome.state == FeatureWriter::State::Written &&
            (name == kAcquisitionStart || name == kAcquisitionStop))
            m_reading.readLockable();
        if (outcome.state == FeatureWriter::State::Written)
            emit SigExecuted(name);
        return afterCommand(name);
    }
    qInfo().noquote() << QStringLiteral("NodeName:%1, NodeValue:%2, [CameraID:%3]")
                             .arg(name, outcome.text, camera);
    emit SigWritten(name);
    m_reading.rereadSoon(name);
    return true;
}

// Also after a refused command: what the camera has done of it only reading can tell.
bool FeatureEdits::afterCommand(const QString& name)
{
    if (name == kDeviceReset)
        return afterDeviceReset();
    if (loadsSettings(name))
        emit SigSettingsLoaded();
    m_reading.rereadSoon(name);
    return true;
}

bool FeatureEdits::afterDeviceReset()
{
    m_reading.stopTimers();
    emit SigDeviceReset();
    m_messages.showTranslated([] {
        return FeatureMessages::Message{
            QCoreApplication::translate(
                "ORXFeatureTree", "The camera is about to reboot. Reconnect the\ncamera later."),
            QString(), ZELCustomMessageBox::Hint_Information};
    });
    const IFeatureTreeFinder* finder = IFeatureTreeFinder::instance();
    if (!finder || !finder->hasFeatureTree(m_pPage->cameraID()))
        return false;
    m_overlay.hide();
    return true;
}
