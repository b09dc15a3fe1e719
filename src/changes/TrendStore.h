// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/TrendSeries.h"
#include "tree/ValueWatch.h"

#include <QHash>

// The series of the features whose number has changed. What has not changed needs none: its value
// as the watch holds it is its whole series. At most kMaxSeries are kept (5 MB when all of them
// change every second for ten minutes): the one whose last change is longest ago makes room, but
// when all have changed within the last minute, only for the shown one. Owned by its panel; GUI
// thread.
class TrendStore
{
public:
    static constexpr int kMaxSeries = 128;

    void append(const QVector<ValueChange>& changes);
    // The feature that is never left out.
    void setShown(const QString& name) { m_strShown = name; }
    void clear();

    // Of a feature, whose value is `held`; empty when that is no number.
    TrendSeries series(const QString& name, const ValueWatch::Held& held) const;
    int count() const { return int(m_series.size()); }

    // Integers, floats, booleans and entries are numbers.
    static bool isNumber(const QVariant& value);
    static TrendNumber number(const QVariant& value);

private:
    bool makeRoom(const QString& name, qint64 ms);

    QHash<QString, TrendSeries> m_series;
    QString m_strShown;
    qint64 m_fullUntilMs = 0; // until then all that are kept have changed within a minute
};
