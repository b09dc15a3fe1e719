// SPDX-License-Identifier: Apache-2.0
#include "ccm/ORXCCMUpdateThread.h"

#include "device/OBDeviceControl.h"
#include "reading/FeatureMutex.h"
#include "reading/SelectorKeeper.h"

namespace {

const QLatin1String kTransformation("ColorTransformationEnable");
const QLatin1String kSelector("ColorTransformationValueSelector");
const QLatin1String kValue("ColorTransformationValue");
const QLatin1String kMatrix("CCMEnable");

bool fail(ORXCCMUpdateThread::Result& result, const QString& fault)
{
    result.fault = fault;
    return false;
}

} // namespace

ORXCCMUpdateThread::ORXCCMUpdateThread(bool deviceMode)
    : SerialWorker("Color correction matrix", nullptr)
    , m_bDeviceMode(deviceMode)
{
}

ORXCCMUpdateThread::~ORXCCMUpdateThread()
{
    finish();
}

void ORXCCMUpdateThread::startReading(FeatureMutex* featureMutex)
{
    // The result of a job that is dropped before it begins: nobody else sets it.
    locked([this](Waiting&, CCMJob*) {
        m_result = Result();
        m_result.stopped = true;
    });
    post({featureMutex});
}

void ORXCCMUpdateThread::work(CCMJob& job)
{
    Result result;
    if (m_bDeviceMode)
        result.complete = readDevice(result, job.featureMutex);
    else
        readFile(result);
    if (stopRequested() && !result.complete) {
        result.stopped = true;
        result.fault.clear();
    }
    locked([&](Waiting&, CCMJob*) { m_result = result; });
}

void ORXCCMUpdateThread::jobEnded()
{
    emit SigJobEnded();
}

ORXCCMUpdateThread::Result ORXCCMUpdateThread::result() const
{
    return locked([this](const Waiting&, const CCMJob*) { return m_result; });
}

void ORXCCMUpdateThread::readFile(Result& result) const
{
    const QString name = ORXRWCCMValue::cameraName();
    if (stopRequested())
        return;
    result.settingsName = name;
    ORXRWCCMValue settings;
    if (!settings.createSetting(name)) {
        fail(result, settings.fault());
        return;
    }
    result.enabled = settings.content().enabled;
    if (result.enabled)
        result.coefficients = settings.content().values;
    result.complete = true;
}

bool ORXCCMUpdateThread::readDevice(Result& result, FeatureMutex* featureMutex) const
{
    FeatureLock lock(featureMutex, &stopRequest());
    bool transformed = false;
    if (!OBDeviceControl::GetBoolNodeValue(kTransformation, &transformed))
        return fail(result, QStringLiteral("ColorTransformationEnable cannot be read"));
    bool read = false;
    bool restored = true;
    if (transformed) {
        if (stopRequested())
            return false;
        if (!OBDeviceControl::SetBoolNodeValue(kTransformation, false))
            return fail(result, QStringLiteral("ColorTransformationEnable cannot be switched off"));
        read = readCoefficients(result, lock, false);
        // Also after a failure or a stop.
        const StopRequest::PuttingBack puttingBack;
        restored = OBDeviceControl::SetBoolNodeValue(kTransformation, true);
    } else {
        read = readCoefficients(result, lock, true);
    }
    if (!read)
        return false;
    if (!restored)
        return fail(result,
                    QStringLiteral("ColorTransformationEnable cannot be switched on again"));
    bool matrix = true;
    if (!OBDeviceControl::GetBoolNodeValue(kMatrix, &matrix))
        matrix = true;
    result.enabled = matrix && !transformed;
    return !stopRequested();
}

bool ORXCCMUpdateThread::readCoefficients(Result& result, FeatureLock& lock, bool mayGiveWay) const
{
    unsigned int index = 0;
    while (index < ORXRWCCMValue::kCoefficients) {
        if (stopRequested() || !lock.holds())
            return false;
        {
            SelectorKeeper keeper(kSelector);
            // The selector is moved only if it can be put back afterwards.
            if (!keeper.isKnown())
                return fail(result, kSelector + QStringLiteral(" cannot be read"));
            do {
                _ZDCC_FLOATVALUE_T record = {};
                if (!keeper.select(index, nullptr) ||
                    !OBDeviceControl::GetFloatNodeValue(kValue, &record))
                    return fail(result, QStringLiteral("coefficient %1 cannot be read").arg(index));
                result.values[index] = record.value;
                result.minimum = record.minimum;
                result.maximum = record.maximum;
            } while (++index < ORXRWCCMValue::kCoefficients && !stopRequested() &&
                     !(mayGiveWay && lock.isWaitedFor()));
        }
        if (mayGiveWay)
            lock.giveWay();
    }
    return true;
}
