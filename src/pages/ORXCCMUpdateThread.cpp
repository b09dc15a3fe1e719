// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXCCMUpdateThread.h"

#include "device/OBDeviceControl.h"
#include "pages/ORXCCMWidget.h"
#include "pages/StoppableFeatureLock.h"
#include "reading/ThreadAnnotations.h"
#include "reading/ThreadWait.h"

#include <QSet>

namespace {

constexpr char kName[] = "Color correction matrix"; // in the log
const QLatin1String kTransformation("ColorTransformationEnable");
const QLatin1String kSelector("ColorTransformationValueSelector");
const QLatin1String kValue("ColorTransformationValue");
const QLatin1String kMatrix("CCMEnable");

QSet<ORXCCMUpdateThread*>& threads()
{
    static QSet<ORXCCMUpdateThread*> all;
    return all;
}

bool fail(ORXCCMUpdateThread::Result& result, const QString& fault)
{
    result.fault = fault;
    return false;
}

} // namespace

ORXCCMUpdateThread::ORXCCMUpdateThread(qint64 cameraId, bool deviceMode)
    : m_lCameraID(cameraId)
    , m_bDeviceMode(deviceMode)
{
    threads().insert(this);
    // By name: the queue's types are settled here then, and a thread that ends needs nothing of
    // this class for them.
    connect(this, SIGNAL(finished()), this, SLOT(onFinished()), Qt::QueuedConnection);
}

ORXCCMUpdateThread::~ORXCCMUpdateThread()
{
    threads().remove(this);
}

void ORXCCMUpdateThread::startReading(QMutex* featureMutex)
{
    m_bStop = false;
    m_pFeatureMutex = featureMutex;
    start();
}

void ORXCCMUpdateThread::abandon()
{
    requestStop();
    m_bAbandoned = true;
    // Otherwise onFinished() is still to come.
    if (!isRunning())
        destroy();
}

void ORXCCMUpdateThread::onFinished()
{
    if (m_bAbandoned && !isRunning())
        destroy();
}

// A thread that no longer runs may still be telling so: only its end ends its use of the object.
void ORXCCMUpdateThread::destroy()
{
    waitForThread(*this, kName);
    delete this;
}

void ORXCCMUpdateThread::stopAll()
{
    const QSet<ORXCCMUpdateThread*> all = threads();
    for (ORXCCMUpdateThread* thread : all)
        thread->requestStop();
    for (ORXCCMUpdateThread* thread : all) {
        if (thread->m_bAbandoned)
            thread->destroy();
        else
            waitForThread(*thread, kName);
    }
}

void ORXCCMUpdateThread::run()
{
    Result result;
    {
        const StoppableFeatureLock lock(m_pFeatureMutex, m_bStop);
        if (lock.isLocked() && !m_bStop) {
            if (m_bDeviceMode)
                result.complete = readDevice(result);
            else
                readFile(result);
        }
    }
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_result = result;
    }
    OBFT_HAPPENS_BEFORE(this);
}

ORXCCMUpdateThread::Result ORXCCMUpdateThread::result() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_result;
}

void ORXCCMUpdateThread::setEnabledFlag(bool enabled)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_result.enabled = enabled;
}

void ORXCCMUpdateThread::readFile(Result& result)
{
    result.settingsName = ORXRWCCMValue::cameraName();
    ORXRWCCMValue settings;
    if (!settings.createSetting(result.settingsName)) {
        fail(result, settings.fault());
        return;
    }
    result.enabled = ORXCCMWidget::getSDKCCMEnable(result.settingsName, result.coefficients.data());
    result.complete = true;
}

bool ORXCCMUpdateThread::readDevice(Result& result) const
{
    bool transformed = false;
    if (!OBDeviceControl::GetBoolNodeValue(kTransformation, &transformed))
        return fail(result, QStringLiteral("ColorTransformationEnable cannot be read"));
    if (m_bStop)
        return false;
    if (transformed && !OBDeviceControl::SetBoolNodeValue(kTransformation, false))
        return fail(result, QStringLiteral("ColorTransformationEnable cannot be switched off"));
    const bool read = readCoefficients(result);
    // Whatever has happened: the camera is left as it was found, as far as it lets us.
    const bool restored = !transformed || OBDeviceControl::SetBoolNodeValue(kTransformation, true);
    if (!read)
        return false;
    if (!restored)
        return fail(result,
                    QStringLiteral("ColorTransformationEnable cannot be switched on again"));
    bool matrix = true;
    if (!OBDeviceControl::GetBoolNodeValue(kMatrix, &matrix))
        matrix = true;
    result.enabled = matrix && !transformed;
    return true;
}

bool ORXCCMUpdateThread::readCoefficients(Result& result) const
{
    _ZDCC_ENUMVALUE_T selected = {};
    const bool knowsSelected = OBDeviceControl::GetEnumNodeValue(kSelector, &selected);
    bool done = true;
    unsigned int index = 0;
    for (; index < ORXRWCCMValue::kCoefficients && done && !m_bStop; ++index) {
        _ZDCC_FLOATVALUE_T record = {};
        done = OBDeviceControl::SetEnumNodeValue(kSelector, index) &&
               OBDeviceControl::GetFloatNodeValue(kValue, &record);
        result.values[index] = record.value;
        result.minimum = record.minimum;
        result.maximum = record.maximum;
    }
    // Stands at the last index that was selected.
    if (knowsSelected && index > 0 && selected.value != index - 1)
        OBDeviceControl::SetEnumNodeValue(kSelector, selected.value);
    if (!done)
        return fail(result, QStringLiteral("coefficient %1 cannot be read").arg(index - 1));
    return index == ORXRWCCMValue::kCoefficients && !m_bStop;
}
