// SPDX-License-Identifier: Apache-2.0
#include "region/RegionAxis.h"

namespace {

// The grid value at or below `value`, counted from `minimum`.
qint64 gridBelow(qint64 value, qint64 minimum, qint64 increment)
{
    return value <= minimum ? minimum : minimum + (value - minimum) / increment * increment;
}

qint64 gridAbove(qint64 value, qint64 minimum, qint64 increment)
{
    return gridBelow(value + increment - 1, minimum, increment);
}

qint64 gridNearest(qint64 value, qint64 minimum, qint64 increment)
{
    return gridBelow(value + increment / 2, minimum, increment);
}

} // namespace

RegionAxis::RegionAxis(const Limits& limits, const Span& span)
{
    Limits& own = m_limits;
    own.extent = qBound(qint64(1), limits.extent, kLongest);
    own.sizeMinimum = qBound(qint64(1), limits.sizeMinimum, own.extent);
    own.sizeMaximum = qBound(own.sizeMinimum, limits.sizeMaximum, own.extent);
    own.sizeIncrement = qBound(qint64(1), limits.sizeIncrement, kLongest);
    const qint64 lastOffset = own.extent - own.sizeMinimum;
    own.offsetMinimum = qBound(qint64(0), limits.offsetMinimum, lastOffset);
    own.offsetMaximum = qBound(own.offsetMinimum, limits.offsetMaximum, lastOffset);
    own.offsetIncrement = qBound(qint64(1), limits.offsetIncrement, kLongest);
    // The camera's own values are shown even if they break its limits.
    m_span.offset = qBound(qint64(0), span.offset, own.extent - 1);
    m_span.size = qBound(qint64(1), span.size, own.extent - m_span.offset);
}

RegionAxis::Span RegionAxis::moved(qint64 offset) const
{
    const qint64 room = qMin(m_limits.offsetMaximum, m_limits.extent - m_span.size);
    if (room < m_limits.offsetMinimum)
        return m_span;
    const qint64 last = gridBelow(room, m_limits.offsetMinimum, m_limits.offsetIncrement);
    const qint64 wanted = gridNearest(qBound(qint64(0), offset, m_limits.extent),
                                      m_limits.offsetMinimum, m_limits.offsetIncrement);
    return {qMin(wanted, last), m_span.size};
}

RegionAxis::Span RegionAxis::withEnd(qint64 end) const
{
    const qint64 room = qMin(m_limits.sizeMaximum, m_limits.extent - m_span.offset);
    if (room < m_limits.sizeMinimum)
        return m_span;
    const qint64 greatest = gridBelow(room, m_limits.sizeMinimum, m_limits.sizeIncrement);
    const qint64 wanted = gridNearest(qBound(qint64(0), end, m_limits.extent) - m_span.offset,
                                      m_limits.sizeMinimum, m_limits.sizeIncrement);
    return {m_span.offset, qMin(wanted, greatest)};
}

RegionAxis::Span RegionAxis::withBegin(qint64 begin) const
{
    // The end stays only where both grids meet; the size gives way, never the limits.
    const qint64 end = m_span.end();
    const qint64 room = qMin(m_limits.offsetMaximum, end - m_limits.sizeMinimum);
    const qint64 first = gridAbove(qMax(m_limits.offsetMinimum, end - m_limits.sizeMaximum),
                                   m_limits.offsetMinimum, m_limits.offsetIncrement);
    if (room < first)
        return m_span;
    const qint64 last = gridBelow(room, m_limits.offsetMinimum, m_limits.offsetIncrement);
    const qint64 wanted = gridNearest(qBound(qint64(0), begin, end), m_limits.offsetMinimum,
                                      m_limits.offsetIncrement);
    const qint64 offset = qBound(first, wanted, last);
    return {offset, gridBelow(end - offset, m_limits.sizeMinimum, m_limits.sizeIncrement)};
}
