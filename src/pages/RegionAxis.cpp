// SPDX-License-Identifier: Apache-2.0
#include "pages/RegionAxis.h"

namespace {

// Far above any sensor; sums of two stay within 64 bits.
constexpr qint64 kLongest = qint64(1) << 30;

// The grid value at or below `value`, counted from `minimum`.
qint64 gridBelow(qint64 value, qint64 minimum, qint64 increment)
{
    return value <= minimum ? minimum : minimum + (value - minimum) / increment * increment;
}

qint64 gridNearest(qint64 value, qint64 minimum, qint64 increment)
{
    return gridBelow(value + increment / 2, minimum, increment);
}

} // namespace

RegionAxis::RegionAxis(const Limits& limits, const Span& span)
{
    m_limits.extent = qBound(qint64(1), limits.extent, kLongest);
    m_limits.sizeMinimum = qBound(qint64(1), limits.sizeMinimum, m_limits.extent);
    m_limits.sizeIncrement = qBound(qint64(1), limits.sizeIncrement, kLongest);
    m_limits.offsetMinimum =
        qBound(qint64(0), limits.offsetMinimum, m_limits.extent - m_limits.sizeMinimum);
    m_limits.offsetIncrement = qBound(qint64(1), limits.offsetIncrement, kLongest);
    // What the camera holds is shown as it is, as far as it can be shown.
    m_span.offset = qBound(qint64(0), span.offset, m_limits.extent - 1);
    m_span.size = qBound(qint64(1), span.size, m_limits.extent - m_span.offset);
}

qint64 RegionAxis::greatestSize(qint64 offset) const
{
    return gridBelow(m_limits.extent - offset, m_limits.sizeMinimum, m_limits.sizeIncrement);
}

qint64 RegionAxis::snappedSize(qint64 size, qint64 offset) const
{
    const qint64 wanted = gridNearest(size, m_limits.sizeMinimum, m_limits.sizeIncrement);
    return qMin(wanted, greatestSize(offset));
}

RegionAxis::Span RegionAxis::moved(qint64 offset) const
{
    const qint64 last =
        gridBelow(m_limits.extent - m_span.size, m_limits.offsetMinimum, m_limits.offsetIncrement);
    const qint64 wanted = gridNearest(qBound(qint64(0), offset, m_limits.extent),
                                      m_limits.offsetMinimum, m_limits.offsetIncrement);
    return {qMin(wanted, last), m_span.size};
}

RegionAxis::Span RegionAxis::withEnd(qint64 end) const
{
    return {m_span.offset,
            snappedSize(qBound(qint64(0), end, m_limits.extent) - m_span.offset, m_span.offset)};
}

RegionAxis::Span RegionAxis::withBegin(qint64 begin) const
{
    // The end stays only where both grids meet; the size gives way, never the limits.
    const qint64 end = m_span.end();
    const qint64 last =
        gridBelow(end - m_limits.sizeMinimum, m_limits.offsetMinimum, m_limits.offsetIncrement);
    const qint64 wanted = gridNearest(qBound(qint64(0), begin, end), m_limits.offsetMinimum,
                                      m_limits.offsetIncrement);
    const qint64 offset = qMin(wanted, qMax(last, m_limits.offsetMinimum));
    const qint64 size = gridBelow(end - offset, m_limits.sizeMinimum, m_limits.sizeIncrement);
    return {offset, qMin(size, greatestSize(offset))};
}
