// SPDX-License-Identifier: Apache-2.0
#include "StormCamera.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "support/DescriptionBuilder.h"
#include "support/Literals.h"

#include <QSet>

#include <cmath>

using namespace DescriptionBuilder;

namespace {

constexpr int kGroups = 5;
constexpr int kInGroup = 12;
constexpr int kEntries = 6;
constexpr int kMostJitterMs = 3;
constexpr int kFailure = -7;
const char* const kTags[] = {"Integer", "Float",   "Boolean", "Enumeration",
                             "Integer", "Command", "String",  "Integer"};
constexpr int kTagCount = sizeof kTags / sizeof kTags[0];

QString nameOf(int index)
{
    // Standard names give the curated pages something to show.
    static const QStringList kStandard =
        words("Width Gain ReverseX TriggerMode Height TriggerSoftware DeviceUserID OffsetX");
    return index < kStandard.size() ? kStandard.at(index)
                                    : "Feature%1"_s.arg(index, 2, 10, QLatin1Char('0'));
}

QString registerOf(int index)
{
    return "Reg%1"_s.arg(index);
}

bool isPolled(int index)
{
    return index % 8 == 4 || index % 8 == 7;
}

QString element(int index)
{
    const QString tag = QString::fromLatin1(kTags[index % kTagCount]);
    QString inner = child("DisplayName"_s, "Feature %1"_s.arg(index)) +
                    child("Visibility"_s, index % 5 == 3 ? "Guru"_s : "Beginner"_s);
    for (int entry = 0; tag == QLatin1String("Enumeration") && entry < kEntries; ++entry)
        inner +=
            node("EnumEntry"_s, "Entry%1"_s.arg(entry), child("Value"_s, QString::number(entry)));
    if (index % 7 == 6)
        inner += child("pIsLocked"_s, "TLParamsLocked"_s);
    inner += child("pValue"_s, registerOf(index));
    // Each write changes a few others, near and far.
    QString behind = isPolled(index) ? child("PollingTime"_s, "100"_s) : QString();
    for (const int step : {1, 5, 17})
        behind += child("pInvalidator"_s, registerOf((index + step) % (kGroups * kInGroup)));
    return node(tag, nameOf(index), inner) + node("MaskedIntReg"_s, registerOf(index), behind);
}

} // namespace

StormCamera::StormCamera(unsigned seed)
{
    m_host.serve(description());
    m_host.pace().setJitterMs(kMostJitterMs, seed);
    m_host.afterSet = [this](const QString& name) {
        const QStringList followers = m_followers.value(name);
        for (const QString& follower : followers)
            change(follower);
    };
    m_host.beforeGet = [this](const QString& name) {
        static const QSet<QString> kPolled = [] {
            QSet<QString> names;
            for (int i = 0; i < kGroups * kInGroup; ++i) {
                if (isPolled(i))
                    names.insert(nameOf(i));
            }
            return names;
        }();
        if (m_moving && kPolled.contains(name))
            change(name);
    };
}

QByteArray StormCamera::description()
{
    QString elements;
    QStringList groups;
    for (int group = 0; group < kGroups; ++group) {
        QStringList names;
        for (int i = 0; i < kInGroup; ++i)
            names.append(nameOf(i * kGroups + group));
        groups.append("Group%1"_s.arg(group));
        elements += category(groups.last(), names);
    }
    for (int i = 0; i < kGroups * kInGroup; ++i)
        elements += element(i);
    return wrap(category("Root"_s, groups) + elements +
                node("Integer"_s, "TLParamsLocked"_s, child("Value"_s, "0"_s)));
}

void StormCamera::follow(const FeatureDescriptionIndex& index)
{
    m_followers.clear();
    for (int i = 0; i < kGroups * kInGroup; ++i) {
        QStringList followers = index.GetFeatureInvalidatorList(nameOf(i));
        followers.removeAll(nameOf(i));
        // The automatic trigger executes it without anything being read again.
        if (nameOf(i) == QLatin1String("TriggerSoftware"))
            followers.clear();
        m_followers.insert(nameOf(i), followers);
    }
}

void StormCamera::change(const QString& name)
{
    FakeHost::Feature feature = m_host.feature(name);
    const int change = ++m_changes;
    switch (feature.type) {
    case OB_FT_TYPE_BOOLEAN:
        feature.integer = change % 2;
        break;
    case OB_FT_TYPE_ENUMERATION:
        feature.integer = change % kEntries;
        break;
    case OB_FT_TYPE_FLOAT:
        feature.number = static_cast<float>(change % 90) + 0.25F;
        break;
    case OB_FT_TYPE_STRING:
        feature.text = "changed " + QByteArray::number(change);
        break;
    default:
        feature.integer = change % 10000;
        break;
    }
    m_host.set(name, feature);
}

void StormCamera::setFaulty(bool faulty, std::mt19937& random)
{
    for (int i = 0; i < kGroups * kInGroup; ++i) {
        const bool comesAndGoes = faulty && isPolled(i) && random() % 2 == 0;
        m_host.faults().takeTurns(nameOf(i), comesAndGoes ? QVector<int>{OB_FT_ACCESS_READ_WRITE,
                                                                         OB_FT_ACCESS_NOT_AVAILABLE,
                                                                         OB_FT_ACCESS_READ_ONLY}
                                                          : QVector<int>());
        m_host.fail(nameOf(i), faulty && random() % 8 == 0 ? kFailure : 0);
        m_host.failMode(nameOf(i), faulty && random() % 16 == 0 ? kFailure : 0);
    }
    const bool dies = faulty && random() % 3 == 0;
    m_host.faults().failAfter(static_cast<int>(random() % 400), dies ? kFailure : 0);
}

bool StormCamera::agrees(ORXPropertyTreeItem* item) const
{
    const FakeHost::Feature feature = m_host.feature(item->value()->nodeName(0));
    const QVariant shown = item->value()->value();
    switch (feature.type) {
    case OB_FT_TYPE_FLOAT:
        return std::fabs(shown.toFloat() - feature.number) < 0.001F;
    case OB_FT_TYPE_STRING:
        return shown.toString().toUtf8() == feature.text;
    case OB_FT_TYPE_BOOLEAN:
        return shown.toBool() == (feature.integer != 0);
    case OB_FT_TYPE_COMMAND:
        return true;
    default:
        return shown.toLongLong() == feature.integer;
    }
}
