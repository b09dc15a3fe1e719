// SPDX-License-Identifier: Apache-2.0
#include "changes/TrendAxis.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMostTicks = 5;
constexpr int kWideText = 9; // characters
// Of a step, by which a float may lie beyond the axis: what nobody sees must not cost a tick.
constexpr TrendNumber kTolerance = 0.001L;

} // namespace

TrendAxis::TrendAxis(TrendNumber low, TrendNumber high, bool whole)
    : m_bWhole(whole)
{
    // A value that does not change stands in the middle.
    if (low == high) {
        const TrendNumber room = whole || low == 0 ? 1 : std::abs(low) / 10;
        low -= room;
        high += room;
    }
    const TrendNumber finest = (high - low) / (kMostTicks - 1);
    TrendNumber power = std::pow(TrendNumber(10), std::floor(std::log10(finest)));
    if (whole)
        power = std::max<TrendNumber>(power, 1);
    const TrendNumber tolerance = whole ? 0 : kTolerance;
    const auto firstAt = [&](TrendNumber step) { return std::floor(low / step + tolerance); };
    const auto ticksAt = [&](TrendNumber step) {
        return std::ceil(high / step - tolerance) - firstAt(step) + 1;
    };
    constexpr int kFactors[] = {1, 2, 5, 10, 20, 50};
    m_step = power;
    for (const int factor : kFactors) {
        m_step = power * factor;
        if (ticksAt(m_step) <= kMostTicks)
            break;
    }
    m_first = firstAt(m_step);
    m_ticks = int(ticksAt(m_step));
}

QVector<TrendNumber> TrendAxis::ticks() const
{
    QVector<TrendNumber> ticks;
    for (int i = 0; i < m_ticks; ++i)
        ticks.append((m_first + i) * m_step);
    return ticks;
}

QString TrendAxis::text(TrendNumber tick) const
{
    const int decimals = m_bWhole ? 0 : std::max(0, -int(std::floor(std::log10(m_step))));
    const QString plain =
        decimals == 0 && std::abs(tick) < TrendNumber(std::numeric_limits<qint64>::max())
            ? QString::number(qint64(tick))
            : QString::number(double(tick), 'f', std::min(decimals, 30));
    if (plain.size() <= kWideText)
        return plain;
    const TrendNumber largest = std::max(std::abs(m_first), std::abs(m_first + m_ticks - 1));
    const int digits = std::min(17, int(std::log10(std::max<TrendNumber>(largest, 1))) + 1);
    const QString shortened = QString::number(double(tick), 'g', digits);
    return shortened.size() < plain.size() ? shortened : plain;
}
