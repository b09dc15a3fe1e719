// SPDX-License-Identifier: Apache-2.0
// The jobs of ORXLUTThread: whole tables over the camera's two features.
#include "device/OBDeviceControl.h"
#include "lut/LUTPlot.h"
#include "lut/ORXLUTThread.h"

#include <QDebug>

#include <algorithm>
#include <limits>

namespace {

constexpr int kProgressSteps = 100;
constexpr float kScaledPx = LUTPlot::kSizePx - 1.0F;

QString indexName()
{
    return QStringLiteral("LUTIndex");
}
QString valueName()
{
    return QStringLiteral("LUTValue");
}

bool readInteger(const QString& name, long long& value, long long& maximum, long long& minimum)
{
    _ZDCC_INTVALUE_EX_T record = {};
    if (!OBDeviceControl::GetIntegerNodeValue(name, &record))
        return false;
    value = record.value;
    maximum = record.maximum;
    minimum = record.minimum;
    return true;
}

// A limit of the camera as a number that tables can be made of; 0 when it is of no use.
int usableLimit(const QString& name, long long maximum, long long highest)
{
    if (maximum < 1) {
        qCritical("LUT: %s ends at %lld, which gives no table", qPrintable(name), maximum);
        return 0;
    }
    if (maximum > highest)
        qCritical("LUT: %s ends at %lld; only values up to %lld are used", qPrintable(name),
                  maximum, highest);
    return static_cast<int>(std::min(maximum, highest));
}

} // namespace

void ORXLUTThread::GetPointFromCamera()
{
    long long value = 0;
    long long minimum = 0;
    long long maximumIndex = 0;
    long long maximumValue = 0;
    if (!GetLutIndex(value, maximumIndex, minimum) || !GetLutValue(value, maximumValue, minimum)) {
        if (stopRequested())
            m_report.outcome = LUTTransferReport::Stopped;
        else
            qCritical("%s", "LUT: the camera does not tell the size of its table");
        return;
    }
    const int lastIndex = usableLimit(indexName(), maximumIndex, LUTLimits::kMostPoints - 1);
    const int highestValue =
        usableLimit(valueName(), maximumValue, std::numeric_limits<qint32>::max());
    if (lastIndex > 0 && highestValue > 0)
        GetPointGroup(lastIndex, highestValue);
}

void ORXLUTThread::GetPointGroup(int maximumIndex, int maximumValue)
{
    m_fXScale = kScaledPx / static_cast<float>(maximumIndex);
    m_fYScale = kScaledPx / static_cast<float>(maximumValue);
    m_report.total = maximumIndex + 1;
    LUTPoints points;
    points.reserve(m_report.total);
    for (int i = 0; i <= maximumIndex && !stopRequested(); ++i) {
        long long value = 0;
        long long maximum = 0;
        long long minimum = 0;
        // A value without its index would be that of another place.
        const bool read = SetLutIndex(i) && GetLutValue(value, maximum, minimum);
        if (stopRequested())
            break;
        if (!read) {
            qCritical("LUT: reading failed after %d of %d points", m_report.done, m_report.total);
            return;
        }
        points.append({i, static_cast<qint32>(qBound<qint64>(0, value, maximumValue))});
        countPoint();
    }
    if (points.size() <= maximumIndex || !publish(points)) {
        qInfo("LUT: reading stopped after %d of %d points", m_report.done, m_report.total);
        m_report.outcome = LUTTransferReport::Stopped;
        return;
    }
    m_report.outcome = LUTTransferReport::Completed;
    emit SigUpdateLUTInfo(maximumIndex, maximumValue, m_fXScale, m_fYScale);
}

void ORXLUTThread::SetPointToCamera()
{
    m_report.total = m_pJob->points.size();
    for (int position = 0; position < m_report.total && !stopRequested(); ++position) {
        if (SetLutIndex(position) && SetLutValue(m_pJob->points.at(position).value))
            countPoint();
    }
    if (m_report.done == m_report.total) {
        m_report.outcome = LUTTransferReport::Completed;
    } else if (stopRequested()) {
        // What was overwritten cannot be brought back without as many calls again.
        qCritical("LUT: writing stopped after %d of %d points", m_report.done, m_report.total);
        m_report.outcome = LUTTransferReport::Stopped;
    } else {
        qCritical("LUT: only %d of %d points written", m_report.done, m_report.total);
    }
}

// False when the points are those of a camera that is no longer shown.
bool ORXLUTThread::publish(const LUTPoints& points)
{
    return locked([&](Waiting&, LUTJob*) {
        if (m_pJob->cameraId != m_lCameraID)
            return false;
        m_points = points;
        return true;
    });
}

void ORXLUTThread::countPoint()
{
    const int step = qMax(1, m_report.total / kProgressSteps);
    if (++m_report.done % step == 0 || m_report.done == m_report.total)
        emit SigProgress(m_report.done, m_report.total);
}

// Device access -----------------------------------------------------------------------------------

bool ORXLUTThread::GetLutIndex(long long& value, long long& maximum, long long& minimum)
{
    return readInteger(indexName(), value, maximum, minimum);
}

bool ORXLUTThread::SetLutIndex(long long value)
{
    return OBDeviceControl::SetIntegerNodeValue(indexName(), value);
}

bool ORXLUTThread::GetLutValue(long long& value, long long& maximum, long long& minimum)
{
    return readInteger(valueName(), value, maximum, minimum);
}

bool ORXLUTThread::SetLutValue(long long value)
{
    return OBDeviceControl::SetIntegerNodeValue(valueName(), value);
}
