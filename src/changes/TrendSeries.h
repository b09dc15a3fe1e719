// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#include <deque>
#include <limits>

// Holds every 64-bit integer and every double exactly.
using TrendNumber = long double;
static_assert(std::numeric_limits<TrendNumber>::digits >= 63);

// How one feature's value went during the last kLengthMs, in steps: a value stands from when it was
// read until another one was. Of values that change several times within a slot of kSlotMs the
// lowest, the highest and the last one are kept. A value that is not finite ends the one before
// and leaves a gap. A plain value; any thread.
class TrendSeries
{
public:
    static constexpr qint64 kLengthMs = 10 * 60 * 1000;
    static constexpr qint64 kSlotMs = 1000;
    // The slots that the length touches, and what stood before them.
    static constexpr int kMaxSamples = int(kLengthMs / kSlotMs) + 2;

    struct Sample
    {
        qint64 ms;
        TrendNumber low; // of its slot; NaN when no value of it is finite
        TrendNumber high;
        TrendNumber last; // stands until the next sample; NaN for a gap
    };

    // `ms` is not earlier than those before.
    void add(qint64 ms, TrendNumber value);
    // The oldest first.
    const std::deque<Sample>& samples() const { return m_samples; }
    qint64 lastMs() const { return m_lastMs; }

private:
    std::deque<Sample> m_samples;
    qint64 m_lastMs = 0;
};
