// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/TrendSeries.h"

#include <QVector>

// The part of a series between two times, and its statistics. The mean weighs each value by how
// long it stood. A plain value; any thread.
struct TrendCurve
{
    struct Step
    {
        qint64 fromMs;
        qint64 toMs;     // may be fromMs: values that did not stand
        TrendNumber low; // read about fromMs
        TrendNumber high;
        TrendNumber value;
    };

    static TrendCurve of(const TrendSeries& series, qint64 fromMs, qint64 toMs);

    bool isEmpty() const { return steps.isEmpty(); }

    QVector<Step> steps; // the oldest first; gaps have none
    TrendNumber low = 0; // of all steps, as are the next two
    TrendNumber high = 0;
    TrendNumber mean = 0;
};
