// SPDX-License-Identifier: Apache-2.0
#include "changes/TrendCurve.h"

#include <algorithm>
#include <cmath>

TrendCurve TrendCurve::of(const TrendSeries& series, qint64 fromMs, qint64 toMs)
{
    TrendCurve curve;
    const auto& samples = series.samples();
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const TrendSeries::Sample& sample = samples[i];
        const qint64 end = i + 1 < samples.size() ? samples[i + 1].ms : toMs;
        const qint64 to = std::isnan(sample.last) ? sample.ms : std::min(end, toMs);
        const bool isOver = sample.ms < fromMs && to <= fromMs;
        if (std::isnan(sample.low) || isOver || sample.ms > toMs)
            continue;
        // Of what was read before, only what still stood counts.
        if (sample.ms < fromMs) {
            if (!std::isnan(sample.last))
                curve.steps.append({fromMs, to, sample.last, sample.last, sample.last});
        } else {
            const TrendNumber value = std::isnan(sample.last) ? sample.high : sample.last;
            curve.steps.append({sample.ms, to, sample.low, sample.high, value});
        }
    }
    if (curve.steps.isEmpty())
        return curve;
    // Differences to one of the values keep all the digits of large numbers that hardly change.
    const TrendNumber base = curve.steps.first().value;
    TrendNumber sum = 0;
    TrendNumber duration = 0;
    curve.low = curve.steps.first().low;
    curve.high = curve.steps.first().high;
    for (const Step& step : qAsConst(curve.steps)) {
        curve.low = std::min(curve.low, step.low);
        curve.high = std::max(curve.high, step.high);
        sum += (step.value - base) * (step.toMs - step.fromMs);
        duration += step.toMs - step.fromMs;
    }
    const TrendNumber mean = duration > 0 ? base + sum / duration : curve.steps.last().value;
    curve.mean = std::clamp(mean, curve.low, curve.high);
    return curve;
}
