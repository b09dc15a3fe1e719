// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTTransfer.h"

#include "device/OBDeviceControl.h"
#include "device/StopRequest.h"

#include <QDebug>

#include <algorithm>
#include <limits>

namespace {

constexpr int kProgressSteps = 100;

constexpr char kIndex[] = "LUTIndex";
constexpr char kValue[] = "LUTValue";

bool readInteger(const char* name, long long& value, long long& maximum, long long& minimum)
{
    _ZDCC_INTVALUE_EX_T record = {};
    if (!OBDeviceControl::GetIntegerNodeValue(QString::fromLatin1(name), &record))
        return false;
    value = record.value;
    maximum = record.maximum;
    minimum = record.minimum;
    return true;
}

// A limit of the camera as a number that tables can be made of; 0 when it is of no use.
int usableLimit(const char* name, long long maximum, long long highest)
{
    if (maximum < 1) {
        qCritical("LUT: %s ends at %lld, which gives no table", name, maximum);
        return 0;
    }
    if (maximum > highest)
        qCritical("LUT: %s ends at %lld; only values up to %lld are used", name, maximum, highest);
    return static_cast<int>(std::min(maximum, highest));
}

} // namespace

LUTTransfer::LUTTransfer(const StopRequest& stop, const Progress& progress)
    : m_stop(stop)
    , m_progress(progress)
{
}

void LUTTransfer::GetPointFromCamera()
{
    long long value = 0;
    long long minimum = 0;
    long long maximumIndex = 0;
    long long maximumValue = 0;
    if (!GetLutIndex(value, maximumIndex, minimum) || !GetLutValue(value, maximumValue, minimum)) {
        if (m_stop.isRequested())
            m_report.outcome = LUTTransferReport::Stopped;
        else
            qCritical("%s", "LUT: the camera does not tell the size of its table");
        return;
    }
    m_nMaximumIndex = usableLimit(kIndex, maximumIndex, LUTLimits::kMostPoints - 1);
    m_nMaximumValue = usableLimit(kValue, maximumValue, std::numeric_limits<qint32>::max());
    if (m_nMaximumIndex > 0 && m_nMaximumValue > 0)
        GetPointGroup();
}

void LUTTransfer::GetPointGroup()
{
    m_report.total = m_nMaximumIndex + 1;
    m_points.reserve(m_report.total);
    for (int i = 0; i < m_report.total && !m_stop.isRequested(); ++i) {
        long long value = 0;
        long long maximum = 0;
        long long minimum = 0;
        // A value without its index would be that of another place.
        const bool read = SetLutIndex(i) && GetLutValue(value, maximum, minimum);
        if (m_stop.isRequested())
            break;
        if (!read) {
            qCritical("LUT: reading failed after %d of %d points", m_report.done, m_report.total);
            return;
        }
        m_points.append(
            {i, static_cast<qint32>(qBound(qint64(0), value, qint64(m_nMaximumValue)))});
        countPoint();
    }
    m_report.outcome =
        m_report.done == m_report.total ? LUTTransferReport::Completed : LUTTransferReport::Stopped;
}

void LUTTransfer::SetPointToCamera(const LUTPoints& points)
{
    m_report.total = int(points.size());
    for (int position = 0; position < m_report.total && !m_stop.isRequested(); ++position) {
        if (SetLutIndex(position) && SetLutValue(points.at(position).value))
            countPoint();
    }
    if (m_report.done == m_report.total) {
        m_report.outcome = LUTTransferReport::Completed;
    } else if (m_stop.isRequested()) {
        // What was overwritten cannot be brought back without as many calls again.
        qCritical("LUT: writing stopped after %d of %d points", m_report.done, m_report.total);
        m_report.outcome = LUTTransferReport::Stopped;
    } else {
        qCritical("LUT: only %d of %d points written", m_report.done, m_report.total);
    }
}

void LUTTransfer::countPoint()
{
    const int step = qMax(1, m_report.total / kProgressSteps);
    if (++m_report.done % step == 0 || m_report.done == m_report.total)
        m_progress(m_report.done, m_report.total);
}

// Device access -----------------------------------------------------------------------------------

bool LUTTransfer::GetLutIndex(long long& value, long long& maximum, long long& minimum)
{
    return readInteger(kIndex, value, maximum, minimum);
}

bool LUTTransfer::SetLutIndex(long long value)
{
    return OBDeviceControl::SetIntegerNodeValue(QString::fromLatin1(kIndex), value);
}

bool LUTTransfer::GetLutValue(long long& value, long long& maximum, long long& minimum)
{
    return readInteger(kValue, value, maximum, minimum);
}

bool LUTTransfer::SetLutValue(long long value)
{
    return OBDeviceControl::SetIntegerNodeValue(QString::fromLatin1(kValue), value);
}
