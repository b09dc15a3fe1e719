// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QVector>

#include <tuple>

// What a feature's description texts are built from, as far as it can change. A value type; its
// texts are shared with the value they come from.
struct FeatureDocInputs
{
    QString displayName;
    QString translateName;
    QString description;
    QString translatedDescription;
    QString visibility;
    // Of integers.
    qint64 minimum = 0;
    qint64 maximum = 0;
    qint64 increment = 0;
    // Of floats.
    float floatMinimum = 0;
    float floatMaximum = 0;
    // Whether the entry of the same place can be chosen; of enumerations.
    QVector<bool> usableEntries;

    bool operator==(const FeatureDocInputs& other) const
    {
        const auto texts = [](const FeatureDocInputs& in) {
            return std::tie(in.displayName, in.translateName, in.description,
                            in.translatedDescription, in.visibility);
        };
        const auto numbers = [](const FeatureDocInputs& in) {
            return std::tie(in.minimum, in.maximum, in.increment, in.floatMinimum, in.floatMaximum,
                            in.usableEntries);
        };
        return numbers(*this) == numbers(other) && texts(*this) == texts(other);
    }
};
