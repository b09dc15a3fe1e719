// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPoint.h"
#include "support/FakeHost.h"
#include "support/Literals.h"

#include <QVector>

// The values of a table, in its order.
inline QVector<int> valuesOf(const LUTPoints& points)
{
    QVector<int> values;
    for (const LUTPoint& point : points)
        values.append(point.value);
    return values;
}

// A camera of which nothing exists but a look-up table: "LUTIndex" selects, "LUTValue" is the value
// there. The points are features named by their numbers. Safe to call from several threads.
class LutCamera : public FakeHost
{
public:
    explicit LutCamera(int points = 1024)
        : m_points(points)
    {
        announce(points - 1, 4095);
        fail("set LUTIndex %1"_s.arg(points), -3); // there is none behind the last
        afterSet = [this](const QString& name) {
            const QString point = QString::number(feature(kIndex).integer);
            if (name == kValue) {
                set(point, feature(kValue));
            } else {
                set(kValue, integerFeature(feature(point).integer, 0, feature(kValue).maximum));
                fail(kValue, point == m_refused ? -3 : 0);
            }
        };
        install();
        clearCalls();
    }
    ~LutCamera()
    {
        release();
        uninstall();
    }

    QVector<int> table() const
    {
        QVector<int> values;
        for (int i = 0; i < m_points; ++i)
            values.append(int(feature(QString::number(i)).integer));
        return values;
    }
    void setTable(const std::function<int(int index)>& value)
    {
        for (int i = 0; i < m_points; ++i)
            set(QString::number(i), integerFeature(value(i)));
    }
    // What the camera says of itself, whatever the table is.
    void announce(qint64 maximumIndex, qint64 maximumValue)
    {
        set(kIndex, integerFeature(0, 0, maximumIndex));
        set(kValue, integerFeature(0, 0, maximumValue));
    }

    // Values at this index cannot be written. Call it while nothing calls.
    void refuseValueAt(int index) { m_refused = QString::number(index); }
    // Waits in the call that is so many further, until release().
    void holdAtCall(int call) { pace().closeGateAtCall(call); }
    bool isHolding() const { return pace().waitingAt(kIndex) + pace().waitingAt(kValue) > 0; }
    void release() { pace().openAllGates(); }
    // Values written so far.
    int written() const { return int(writes().filter(kValue).size()); }

private:
    const QString kIndex = "LUTIndex"_s;
    const QString kValue = "LUTValue"_s;
    const int m_points;
    QString m_refused;
};
