// SPDX-License-Identifier: Apache-2.0
#include "ccm/ColorMatrix.h"

#include "device/HostOpening.h"
#include "device/OBDeviceControl.h"
#include "device/ReentrancyScope.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "tree/ORXFeatureTree.h"
#include "tree/PageSupport.h"

#include <QDebug>

namespace {

constexpr double kCoefficientUnit = 0.0009765625; // 1/1024

const QLatin1String kTransformation("ColorTransformationEnable");
const QLatin1String kSelector("ColorTransformationValueSelector");
const QLatin1String kValue("ColorTransformationValue");
const QLatin1String kMatrix("CCMEnable");

// The fault of a settings file that the user was told last; empty once it was read without one.
QString s_lastFileReport;

} // namespace

ColorMatrix::ColorMatrix(qint64 cameraId, bool deviceMode, ORXPropertyTreeItem* enableItem,
                         QObject* parent)
    : QObject(parent)
    , m_lCameraID(cameraId)
    , m_bDeviceMode(deviceMode)
    , m_pEnableItem(enableItem)
    , m_thread(deviceMode)
{
    connect(&m_thread, &ORXCCMUpdateThread::SigJobEnded, this, &ColorMatrix::onJobEnded,
            Qt::QueuedConnection);
}

ColorMatrix::~ColorMatrix() = default;

ORXPropertyTreeItem* ColorMatrix::enableItem() const
{
    return m_pEnableItem && ORXPropertyTreeItem::isAlive(m_pEnableItem) ? m_pEnableItem : nullptr;
}

ORXFeatureTree* ColorMatrix::tree() const
{
    return PageSupport::treeOf(m_lCameraID);
}

// Reading -----------------------------------------------------------------------------------------

void ColorMatrix::setShown(bool shown)
{
    if (m_bShown == shown)
        return;
    m_bShown = shown;
    if (shown) {
        read();
    } else if (m_bReading) {
        m_bReadAgain = true;
        stopReading();
    }
}

// The worker reports no end of a reading that it has not begun.
void ColorMatrix::stopReading()
{
    m_thread.requestStop();
    QMetaObject::invokeMethod(this, &ColorMatrix::onJobEnded, Qt::QueuedConnection);
}

void ColorMatrix::read()
{
    // Not while the user is typing: editingEnded() comes back here.
    if (m_bReading || !m_bShown || (m_isEdited && m_isEdited())) {
        m_bReadAgain = true;
        return;
    }
    m_bReadAgain = false;
    m_bReading = true;
    ORXFeatureTree* whole = tree();
    if (m_bDeviceMode)
        m_rowsLock.lockSelector(whole, kSelector);
    m_thread.startReading(whole ? whole->GetFeatureMutex() : nullptr);
    // Nothing can be written while the selector moves.
    emit SigChanged();
}

void ColorMatrix::editingEnded()
{
    if (m_bReadAgain && m_bShown)
        read();
}

// As if out of sight, so that the end of this reading does not begin another one.
void ColorMatrix::requestStop()
{
    m_bShown = false;
    m_wanted.reset();
    m_bReadAgain |= m_bReading;
    m_thread.requestStop();
}

void ColorMatrix::stopHostCalls()
{
    requestStop();
    m_thread.waitUntilIdle();
    onJobEnded();
}

void ColorMatrix::onJobEnded()
{
    if (!m_bReading || m_thread.isBusy())
        return;
    m_bReading = false;
    m_rowsLock.unlock();
    take(m_thread.result());
    if (m_wanted) {
        const bool wanted = *m_wanted;
        m_wanted.reset();
        switchTo(wanted);
    } else if (m_bReadAgain) {
        editingEnded();
    }
    emit SigChanged();
}

void ColorMatrix::take(const ORXCCMUpdateThread::Result& result)
{
    // A stopped reading has found nothing; what is known stays.
    if (result.stopped)
        return;
    reportReading(result);
    m_result = result;
    // The camera's values are not known now, so they can be neither shown nor edited.
    m_bKnown = result.complete || !m_bDeviceMode;
    if (!m_bKnown)
        return;
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i] = m_bDeviceMode ? static_cast<double>(result.values[i])
                                    : result.coefficients[i] * kCoefficientUnit;
    showSwitch(result.enabled);
}

void ColorMatrix::reportReading(const ORXCCMUpdateThread::Result& result)
{
    if (result.fault.isEmpty()) {
        s_lastFileReport.clear();
    } else if (m_bDeviceMode) {
        qCritical("Reading the color correction matrix: %s", qUtf8Printable(result.fault));
        // A failed reading may have left the selector elsewhere.
        rereadInTree(kSelector);
    } else {
        reportFile(ORXRWCCMValue::fileOf(result.settingsName), result.fault, true);
    }
}

bool ColorMatrix::enabledInFile(const QString& name, int* values)
{
    ORXRWCCMValue settings;
    if (!settings.createSetting(name) || !settings.content().enabled)
        return false;
    std::copy(settings.content().values.cbegin(), settings.content().values.cend(), values);
    return true;
}

// The whole tree does not know of what was written here.
void ColorMatrix::rereadInTree(const QString& feature)
{
    ORXFeatureTree* whole = m_bDeviceMode ? tree() : nullptr;
    if (whole && whole->propertyItemByName(feature))
        whole->rereadInvalidated(feature);
}

// Writing -----------------------------------------------------------------------------------------

bool ColorMatrix::writeCell(int index, float value)
{
    // The host may release the library from inside its callback.
    const ReentrancyScope scope;
    const QPointer<ColorMatrix> self(this);
    const HostOpening opening;
    int error = 0;
    QString feature = kSelector;
    QString text = QString::number(index);
    bool written =
        OBDeviceControl::SetEnumNodeValue(feature, static_cast<unsigned int>(index), &error);
    if (written && !opening.isOver()) {
        feature = kValue;
        text = QString::number(static_cast<double>(value));
        written = OBDeviceControl::SetFloatNodeValue(feature, value, &error);
    }
    if (!self || opening.isOver())
        return false;
    if (written)
        m_values[static_cast<std::size_t>(index)] = static_cast<double>(value);
    else if (ORXFeatureTree* whole = tree())
        whole->showWriteFailure(feature, text, error);
    rereadInTree(kSelector);
    return written;
}

void ColorMatrix::switchTo(bool on)
{
    // A running reading would switch the transformation back afterwards; and the name of the
    // settings file is known only after the first reading.
    const bool nameless = !m_bDeviceMode && m_result.settingsName.isEmpty();
    if (m_bReading || nameless) {
        m_wanted = on;
        if (m_bReading && !nameless)
            stopReading();
        else if (!m_bReading)
            read();
        return;
    }
    const QPointer<ColorMatrix> self(this);
    const HostOpening opening;
    const bool switched = m_bDeviceMode ? enableInCamera(on) : enableInFile(on);
    if (!self || opening.isOver())
        return;
    if (switched)
        m_result.enabled = on;
    rereadInTree(kTransformation);
    rereadInTree(kMatrix);
    showSwitch(switched ? on : m_result.enabled);
    emit SigChanged();
    // The coefficients of a file are read only when it is on. After a refusal, or when nothing is
    // known yet, the camera is read as well.
    if (self && (!switched || !m_bDeviceMode || !m_bKnown))
        read();
}

bool ColorMatrix::enableInFile(bool on)
{
    if (m_settings.createSetting(m_result.settingsName) && m_settings.writeEnable(on))
        return true;
    reportFile(m_settings.fileName(), m_settings.fault(), false);
    return false;
}

// The matrix of the user and the standard transformation exclude each other.
bool ColorMatrix::enableInCamera(bool on)
{
    const ReentrancyScope scope;
    const QPointer<ColorMatrix> self(this);
    const HostOpening opening;
    int error = 0;
    QString feature = kTransformation;
    bool value = !on;
    bool written = OBDeviceControl::SetBoolNodeValue(feature, value, &error);
    if (!self || opening.isOver())
        return false;
    // Where the camera has no switch of its own, the transformation decides alone.
    const ORXFeatureTree* whole = tree();
    if (written && whole && whole->propertyItemByName(kMatrix)) {
        feature = kMatrix;
        value = on;
        written = OBDeviceControl::SetBoolNodeValue(feature, value, &error);
        if (!self || opening.isOver())
            return false;
    }
    // The same message as for every feature that cannot be written.
    if (!written) {
        if (ORXFeatureTree* shown = tree())
            shown->showWriteFailure(feature, QString::number(int(value)), error);
    }
    return written;
}

void ColorMatrix::showSwitch(bool on)
{
    ORXPropertyTreeItem* enable = enableItem();
    if (!enable || !enable->value())
        return;
    enable->value()->setValue(on);
    enable->notifyViewUpdate(m_lCameraID, 1, false);
}

// With `once`, for readings, a fault is told only the first time: the file is read whenever the
// matrix comes into sight.
void ColorMatrix::reportFile(const QString& file, const QString& fault, bool once)
{
    const QString report = file + QStringLiteral(": ") + fault;
    if (once && s_lastFileReport == report)
        return;
    s_lastFileReport = report;
    qCritical("Color correction settings %s", qUtf8Printable(report));
    if (ORXFeatureTree* whole = tree())
        whole->ShowMessage(whole, tr("The color correction settings cannot be used."),
                           tr("The file is left as it is:") + QStringLiteral("\r\n") + file,
                           QString(), ZELCustomMessageBox::Hint_Warning);
}
