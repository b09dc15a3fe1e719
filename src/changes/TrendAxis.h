// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/TrendSeries.h"

#include <QString>
#include <QVector>

// The value axis of a trend: a range around all values that begins and ends at ticks, of which it
// has three to five, at multiples of 1, 2 or 5 times a power of ten. A plain value; any thread.
class TrendAxis
{
public:
    // All values lie in low to high, both finite; `whole` for integers, whose ticks are integers.
    TrendAxis(TrendNumber low, TrendNumber high, bool whole);

    // From the lowest to the highest.
    QVector<TrendNumber> ticks() const;
    // Short, with as many digits as tell the ticks apart.
    QString text(TrendNumber tick) const;

private:
    TrendNumber m_step;
    TrendNumber m_first; // in steps
    int m_ticks;
    bool m_bWhole;
};
