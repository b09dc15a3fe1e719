// SPDX-License-Identifier: Apache-2.0
#include "changes/TrendSeries.h"

#include <cmath>

void TrendSeries::add(qint64 ms, TrendNumber value)
{
    if (!std::isfinite(value))
        value = std::numeric_limits<TrendNumber>::quiet_NaN();
    m_lastMs = ms;
    if (!m_samples.empty() && m_samples.back().ms / kSlotMs == ms / kSlotMs) {
        // fmin and fmax take the other one where one is no number.
        Sample& slot = m_samples.back();
        slot.low = std::fmin(slot.low, value);
        slot.high = std::fmax(slot.high, value);
        slot.last = value;
        return;
    }
    m_samples.push_back({ms, value, value, value});
    // The first one stays as long as it stands at the beginning of the time that is kept.
    while (m_samples.size() > 1 && m_samples[1].ms <= ms - kLengthMs)
        m_samples.pop_front();
}
