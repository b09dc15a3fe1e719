// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaType>
#include <QVector>

// One entry of a look-up table: the output value of an input index.
struct LUTPoint
{
    qint32 index = 0;
    qint32 value = 0;

    bool operator==(const LUTPoint& other) const
    {
        return index == other.index && value == other.value;
    }
    bool operator!=(const LUTPoint& other) const { return !(*this == other); }
};
Q_DECLARE_TYPEINFO(LUTPoint, Q_PRIMITIVE_TYPE);

using LUTPoints = QVector<LUTPoint>;
Q_DECLARE_METATYPE(LUTPoint)

namespace LUTLimits {
// A camera that promises more has described its range wrongly: sensors deliver 16 bits at most.
constexpr int kMostPoints = 65536;
constexpr int kDefaultPoints = 1024;
constexpr int kDefaultMaxValue = 4095;
} // namespace LUTLimits
