// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

// One direction of a region: where it begins and how long it is, in pixels of the area it lies in,
// and what the camera allows. Values that a camera reports wrongly (no grid, maximum below minimum)
// are bounded, so that every operation has a legal result.
class RegionAxis
{
public:
    // Far above any sensor; sums of two stay within 64 bits.
    static constexpr qint64 kLongest = qint64(1) << 30;

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
        // Of a camera that allows less than the area has room for.
        qint64 sizeMaximum = kLongest;
        qint64 offsetMaximum = kLongest;
    };

    RegionAxis() = default;
    RegionAxis(const Limits& limits, const Span& span);

    const Limits& limits() const { return m_limits; }
    const Span& span() const { return m_span; }
    qint64 extent() const { return m_limits.extent; }

    // The nearest legal span whose offset is as wanted; the size stays. Like the next two: span()
    // when there is no legal one.
    Span moved(qint64 offset) const;
    // The nearest legal span with the end, or the begin, at the wanted place; the other side stays,
    // as far as the increments let it.
    Span withEnd(qint64 end) const;
    Span withBegin(qint64 begin) const;

    // Camera limits couple size and offset: of the two writes that lead to `target` the first one
    // must not push the region over the end. True when that is the size.
    bool sizeFirst(const Span& target) const { return target.size < m_span.size; }

private:
    Limits m_limits;
    Span m_span;
};
