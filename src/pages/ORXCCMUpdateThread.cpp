// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXCCMUpdateThread.h"

#include "device/OBDeviceControl.h"
#include "reading/ThreadAnnotations.h"
#include "reading/ThreadWait.h"
#include "pages/ORXCCMWidget.h"

#include <QDebug>
#include <QSet>

#include <mutex>

namespace {

const QLatin1String kTransformation("ColorTransformationEnable");
const QLatin1String kSelector("ColorTransformationValueSelector");
const QLatin1String kValue("ColorTransformationValue");
const QLatin1String kMatrix("CCMEnable");

QSet<ORXCCMUpdateThread*>& threads()
{
    static QSet<ORXCCMUpdateThread*> all;
    return all;
}

// Held while a thread works with the selector; never by the GUI thread.
std::mutex& cameraMutex()
{
    static std::mutex mutex;
    return mutex;
}

} // namespace

ORXCCMUpdateThread::ORXCCMUpdateThread(qint64 cameraId, bool deviceMode)
    : m_lCameraID(cameraId)
    , m_bDeviceMode(deviceMode)
{
    threads().insert(this);
    connect(this, &QThread::finished, this, &ORXCCMUpdateThread::onFinished, Qt::QueuedConnection);
}

ORXCCMUpdateThread::~ORXCCMUpdateThread()
{
    threads().remove(this);
}

void ORXCCMUpdateThread::startReading()
{
    m_bStop = false;
    m_result = Result();
    start();
}

void ORXCCMUpdateThread::abandon()
{
    requestStop();
    m_bAbandoned = true;
    // Otherwise onFinished() is still to come.
    if (!isRunning())
        delete this;
}

void ORXCCMUpdateThread::onFinished()
{
    if (m_bAbandoned && !isRunning())
        delete this;
}

void ORXCCMUpdateThread::stopAll()
{
    const QSet<ORXCCMUpdateThread*> all = threads();
    for (ORXCCMUpdateThread* thread : all)
        thread->requestStop();
    for (ORXCCMUpdateThread* thread : all) {
        waitForThread(*thread, "Color correction matrix");
        if (thread->m_bAbandoned)
            delete thread;
    }
}

void ORXCCMUpdateThread::run()
{
    // An editor may be gone while its thread still puts the camera back.
    const std::lock_guard<std::mutex> oneAtATime(cameraMutex());
    if (m_bStop)
        return;
    if (m_bDeviceMode)
        m_result.complete = readDevice();
    else
        readFile();
    OBFT_HAPPENS_BEFORE(&m_result);
}

const ORXCCMUpdateThread::Result& ORXCCMUpdateThread::result() const
{
    OBFT_HAPPENS_AFTER(&m_result);
    return m_result;
}

void ORXCCMUpdateThread::readFile()
{
    m_result.settingsName = ORXRWCCMValue::cameraName();
    ORXRWCCMValue settings;
    if (!settings.createSetting(m_result.settingsName)) {
        fail(settings.fault());
        return;
    }
    m_result.enabled =
        ORXCCMWidget::getSDKCCMEnable(m_result.settingsName, m_result.coefficients.data());
    m_result.complete = true;
}

bool ORXCCMUpdateThread::fail(const QString& fault)
{
    m_result.fault = fault;
    return false;
}

bool ORXCCMUpdateThread::readDevice()
{
    bool transformed = false;
    if (!OBDeviceControl::GetBoolNodeValue(kTransformation, &transformed))
        return fail(QStringLiteral("ColorTransformationEnable cannot be read"));
    if (m_bStop)
        return false;
    if (transformed && !OBDeviceControl::SetBoolNodeValue(kTransformation, false))
        return fail(QStringLiteral("ColorTransformationEnable cannot be switched off"));
    const bool read = readCoefficients();
    // Whatever has happened: the camera is left as it was found, as far as it lets us.
    const bool restored = !transformed || OBDeviceControl::SetBoolNodeValue(kTransformation, true);
    if (!read)
        return false;
    if (!restored)
        return fail(QStringLiteral("ColorTransformationEnable cannot be switched on again"));
    bool matrix = true;
    if (!OBDeviceControl::GetBoolNodeValue(kMatrix, &matrix))
        matrix = true;
    m_result.enabled = matrix && !transformed;
    return true;
}

bool ORXCCMUpdateThread::readCoefficients()
{
    _ZDCC_ENUMVALUE_T selected = {};
    const bool knowsSelected = OBDeviceControl::GetEnumNodeValue(kSelector, &selected);
    bool done = true;
    unsigned int index = 0;
    for (; index < ORXRWCCMValue::kCoefficients && done && !m_bStop; ++index) {
        _ZDCC_FLOATVALUE_T record = {};
        done = OBDeviceControl::SetEnumNodeValue(kSelector, index) &&
               OBDeviceControl::GetFloatNodeValue(kValue, &record);
        m_result.values[index] = record.value;
        m_result.minimum = record.minimum;
        m_result.maximum = record.maximum;
    }
    // Stands at the last index that was selected.
    if (knowsSelected && index > 0 && selected.value != index - 1)
        OBDeviceControl::SetEnumNodeValue(kSelector, selected.value);
    if (!done)
        return fail(QStringLiteral("coefficient %1 cannot be read").arg(index - 1));
    return index == ORXRWCCMValue::kCoefficients && !m_bStop;
}
