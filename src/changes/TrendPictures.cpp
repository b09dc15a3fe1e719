// SPDX-License-Identifier: Apache-2.0
#include "changes/TrendPictures.h"

#include "changes/TrendAxis.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "tree/ItemText.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 kSecondMs = 1000;
constexpr qint64 kMinuteMs = 60 * kSecondMs;
constexpr TrendNumber kLargestInteger = std::numeric_limits<qint64>::max();

struct TimeAxis
{
    qint64 lengthMs;
    qint64 stepMs;
};
constexpr TimeAxis kTimeAxes[] = {{kMinuteMs, 15 * kSecondMs},
                                  {2 * kMinuteMs, 30 * kSecondMs},
                                  {5 * kMinuteMs, kMinuteMs},
                                  {TrendSeries::kLengthMs, 2 * kMinuteMs}};

enum class Kind { None, Whole, Real, Entries };

// Addresses are no numbers to the user.
Kind kindOf(const ORXPropertyTreeItem* item)
{
    switch (item ? item->tag() : FeatureTag::Other) {
    case FeatureTag::Integer:
    case FeatureTag::IntReg: {
        const auto* value = dynamic_cast<const CTreeIntergerItemValue*>(item->value());
        const bool isNumber = value && (value->type() == CTreeIntergerItemValue::PureNumber ||
                                        value->type() == CTreeIntergerItemValue::HexNumber);
        return isNumber ? Kind::Whole : Kind::None;
    }
    case FeatureTag::Float:
    case FeatureTag::Converter:
        return Kind::Real;
    case FeatureTag::Boolean:
    case FeatureTag::Enumeration:
        return Kind::Entries;
    default:
        return Kind::None;
    }
}

bool isHex(const ORXPropertyTreeItem& item)
{
    const auto* value = dynamic_cast<const CTreeIntergerItemValue*>(item.value());
    return value && value->type() == CTreeIntergerItemValue::HexNumber;
}

QString valueText(const ORXPropertyTreeItem& item, TrendNumber number)
{
    return kindOf(&item) == Kind::Real ? ItemText::value(item, double(number))
                                       : ItemText::value(item, qint64(number));
}

// The mean of integers has a decimal more than they have, where that says anything.
QString meanText(const ORXPropertyTreeItem& item, TrendNumber mean)
{
    constexpr TrendNumber kWithDecimal = 100000;
    const bool isDecimal = kindOf(&item) == Kind::Whole && !isHex(item) &&
                           std::abs(mean) < kWithDecimal && mean != std::floor(mean);
    if (isDecimal)
        return QString::number(double(mean), 'f', 1);
    return valueText(item, kindOf(&item) == Kind::Real ? mean : std::round(mean));
}

} // namespace

TrendPicture TrendPictures::make(const ORXPropertyTreeItem* item, const TrendSeries& series,
                                 qint64 nowMs)
{
    TrendPicture picture;
    picture.nowMs = nowMs;
    const Kind kind = kindOf(item);
    if (kind == Kind::None) {
        picture.empty = tr("Select a feature with a number.");
        return picture;
    }
    picture.name = ItemText::name(*item);
    const auto& samples = series.samples();
    setTimes(picture, samples.empty() ? 0 : nowMs - samples.front().ms);
    picture.curve = TrendCurve::of(series, nowMs - qint64(picture.times.first().value), nowMs);
    if (picture.curve.isEmpty())
        picture.empty = tr("Nothing was read yet.");
    else if (kind == Kind::Entries)
        setEntries(picture, *item);
    else
        setNumbers(picture, *item);
    return picture;
}

void TrendPictures::setTimes(TrendPicture& picture, qint64 ageMs)
{
    TimeAxis axis = kTimeAxes[0];
    for (const TimeAxis& each : kTimeAxes) {
        axis = each;
        if (each.lengthMs >= ageMs)
            break;
    }
    for (qint64 ago = axis.lengthMs; ago > 0; ago -= axis.stepMs)
        picture.times.append({TrendNumber(ago), ago % kMinuteMs == 0
                                                    ? tr("-%1 min").arg(ago / kMinuteMs)
                                                    : tr("-%1 s").arg(ago / kSecondMs)});
    picture.times.append({0, tr("now")});
}

void TrendPictures::setNumbers(TrendPicture& picture, const ORXPropertyTreeItem& item)
{
    const TrendCurve& curve = picture.curve;
    const TrendAxis axis(curve.low, curve.high, kindOf(&item) == Kind::Whole);
    const QVector<TrendNumber> ticks = axis.ticks();
    for (const TrendNumber tick : ticks) {
        const bool hex = isHex(item) && std::abs(tick) < kLargestInteger;
        picture.values.append({tick, hex ? valueText(item, tick) : axis.text(tick)});
    }
    const QString unit = item.value()->unit();
    picture.summary = tr("min %1   mean %2   max %3")
                          .arg(valueText(item, curve.low), meanText(item, curve.mean),
                               valueText(item, curve.high));
    if (!unit.isEmpty())
        picture.summary += QLatin1Char(' ') + unit;
}

// Entries stand at equal distances, in the order of their numbers.
void TrendPictures::setEntries(TrendPicture& picture, const ORXPropertyTreeItem& item)
{
    QVector<TrendNumber> entries;
    for (const TrendCurve::Step& step : qAsConst(picture.curve.steps))
        entries << step.low << step.high << step.value;
    std::sort(entries.begin(), entries.end());
    entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
    const auto place = [&entries](TrendNumber entry) {
        return TrendNumber(std::lower_bound(entries.begin(), entries.end(), entry) -
                           entries.begin());
    };
    picture.summary = valueText(item, picture.curve.steps.last().value);
    for (TrendCurve::Step& step : picture.curve.steps) {
        step.low = place(step.low);
        step.high = place(step.high);
        step.value = place(step.value);
    }
    // A single one stands in the middle.
    if (entries.size() == 1)
        picture.values.append({-1, QString()});
    for (int i = 0; i < entries.size(); ++i)
        picture.values.append({TrendNumber(i), valueText(item, entries.at(i))});
    if (entries.size() == 1)
        picture.values.append({1, QString()});
}
