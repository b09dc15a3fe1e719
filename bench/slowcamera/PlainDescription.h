// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/Literals.h"

// 400 integer features in 8 groups, without anything that is asked beside their own access mode and
// value. The later a group stands in the side column, the earlier its features come in the
// alphabet. Each has a value of its own. The first kInvalidated ones are read again after a write
// of the first.
namespace PlainDescription {

constexpr int kFeatures = 400;
constexpr int kGroups = 8;
constexpr int kInGroup = kFeatures / kGroups;
constexpr int kInvalidated = 31;

inline QString featureName(int index)
{
    return "F%1"_s.arg(index, 3, 10, QLatin1Char('0'));
}

inline QString registerName(int index)
{
    return "Reg"_s + featureName(index);
}

inline QString groupName(int group)
{
    return "Group%1"_s.arg(group);
}

// The features of a group, by their places in the alphabet.
inline int firstOf(int group)
{
    return (kGroups - 1 - group) * kInGroup;
}

inline qint64 startValue(int index)
{
    return 1000 + index;
}

inline QByteArray text()
{
    using namespace DescriptionBuilder;
    QStringList groups;
    QString elements;
    for (int group = 0; group < kGroups; ++group) {
        QStringList names;
        for (int i = 0; i < kInGroup; ++i)
            names.append(featureName(firstOf(group) + i));
        groups.append(groupName(group));
        elements += category(groups.last(), names);
    }
    for (int i = 0; i < kFeatures; ++i) {
        const QString again =
            i < kInvalidated && i > 0 ? child("pInvalidator"_s, registerName(0)) : QString();
        elements += node("Integer"_s, featureName(i), child("pValue"_s, registerName(i))) +
                    node("MaskedIntReg"_s, registerName(i), again);
    }
    return wrap(category("Root"_s, groups) + elements);
}

inline void serve(FakeHost& host)
{
    host.serve(text());
    for (int i = 0; i < kFeatures; ++i)
        host.set(featureName(i), FakeHost::integerFeature(startValue(i)));
}

inline bool shows(const ORXPropertyTreeItem* item, qint64 value)
{
    return item && item->value()->displayValue() == QString::number(value);
}

} // namespace PlainDescription
