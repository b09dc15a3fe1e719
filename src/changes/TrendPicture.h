// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/TrendCurve.h"

#include <QString>

// All that is to be seen of a trend, in the words of the interface. A plain value.
struct TrendPicture
{
    struct Tick
    {
        TrendNumber value; // of the curve, or milliseconds before `now`
        QString text;
    };

    QString empty; // instead of all the rest, without a curve
    QString name;
    QString summary;
    TrendCurve curve;
    QVector<Tick> values; // from the lowest to the highest; the axis ends with them
    QVector<Tick> times;  // from the longest ago, where the axis begins, to now
    qint64 nowMs = 0;
};
