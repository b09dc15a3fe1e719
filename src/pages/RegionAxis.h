// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

// One direction of a region: where it begins and how long it is, in pixels of the area it lies in,
// and what the camera allows. Values that a camera reports wrongly (no grid, maximum below minimum)
// are bounded, so that every operation has a legal result.
class RegionAxis
{
public:
    struct Span
    {
        qint64 offset = 0;
        qint64 size = 0;

        qint64 end() const { return offset + size; }
        bool operator==(const Span& other) const
        {
            return offset == other.offset && size == other.size;
        }
    };
    struct Limits
    {
        qint64 sizeMinimum = 1;
        qint64 sizeIncrement = 1;
        qint64 offsetMinimum = 0;
        qint64 offsetIncrement = 1;
        qint64 extent = 1; // length of the area; a region ends here at the latest
    };

    RegionAxis() = default;
    RegionAxis(const Limits& limits, const Span& span);

    const Limits& limits() const { return m_limits; }
    const Span& span() const { return m_span; }
    qint64 extent() const { return m_limits.extent; }

    // The nearest legal span whose offset is as wanted; the size stays.
    Span moved(qint64 offset) const;
    // The nearest legal span with the end, or the begin, at the wanted place; the other side stays.
    Span withEnd(qint64 end) const;
    Span withBegin(qint64 begin) const;

    // Camera limits couple size and offset: of the two writes that lead to `target` the first one
    // must not push the region over the end. True when that is the size.
    bool sizeFirst(const Span& target) const { return target.size < m_span.size; }

private:
    qint64 greatestSize(qint64 offset) const;
    qint64 snappedSize(qint64 size, qint64 offset) const;

    Limits m_limits;
    Span m_span;
};
