// SPDX-License-Identifier: Apache-2.0
#include "model/ItemValueRules.h"

#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "model/FeatureTag.h"

#include <QVariant>

#include <array>
#include <cmath>

namespace {

// An edit closer than this to the value that the camera reported is no edit: the editor shows a
// rounded text.
constexpr float kSameFloatTolerance = 0.001F;

struct ValueRules
{
    bool (*same)(const CTreeItemValue* value, const QVariant& edited);
    void (*store)(CTreeItemValue* value, const QString& nodeName, const QVariant& edited);
};

template <typename Value, bool (*Compare)(const Value&, const QVariant&)>
bool same(const CTreeItemValue* value, const QVariant& edited)
{
    const auto* typed = dynamic_cast<const Value*>(value);
    return typed && Compare(*typed, edited);
}

bool sameBool(const CTreeBooleanItemValue& value, const QVariant& edited)
{
    return value.checked() == edited.toBool();
}

bool sameInteger(const CTreeIntergerItemValue& value, const QVariant& edited)
{
    return value.numbers().m_nValue == edited.toLongLong();
}

bool sameEntry(const CTreeEnumationItemValue& value, const QVariant& edited)
{
    return value.number() == edited.toLongLong();
}

bool sameFloat(const CTreeFloatItemValue& value, const QVariant& edited)
{
    const auto number = static_cast<float>(edited.toDouble());
    return std::fabs(number - value.numbers().m_fValue) <= kSameFloatTolerance;
}

bool sameText(const CTreeStringItemValue& value, const QVariant& edited)
{
    return value.displayValue() == edited.toString();
}

bool neverSame(const CTreeItemValue*, const QVariant&)
{
    return false;
}

template <typename Value>
void store(CTreeItemValue* value, const QString&, const QVariant& edited)
{
    if (auto* typed = dynamic_cast<Value*>(value))
        typed->setValue(edited);
}

void storeEntry(CTreeItemValue* value, const QString&, const QVariant& edited)
{
    if (auto* typed = dynamic_cast<CTreeEnumationItemValue*>(value))
        typed->setNumber(edited.toLongLong());
}

void storeCheckState(CTreeItemValue* value, const QString& nodeName, const QVariant& edited)
{
    if (auto* typed = dynamic_cast<CTreeCustomWaterMarkItemValue*>(value)) {
        const int column = typed->nodeName(0) == nodeName ? 0 : 1;
        typed->setCheckState(column, edited.toBool() ? Qt::Checked : Qt::Unchecked);
    }
}

void storeNothing(CTreeItemValue*, const QString&, const QVariant&) {}

const ValueRules kNone = {neverSame, storeNothing};
const ValueRules kInteger = {same<CTreeIntergerItemValue, sameInteger>,
                             store<CTreeIntergerItemValue>};
const ValueRules kFloat = {same<CTreeFloatItemValue, sameFloat>, store<CTreeFloatItemValue>};
const ValueRules kText = {same<CTreeStringItemValue, sameText>, store<CTreeStringItemValue>};
const ValueRules kEntry = {same<CTreeEnumationItemValue, sameEntry>, storeEntry};
const ValueRules kTwoBoxes = {neverSame, storeCheckState};

// In the order of FeatureTag.
const std::array<ValueRules, kFeatureTagCount> kRules = {
    kNone,                                                                           // Category
    ValueRules{same<CTreeBooleanItemValue, sameBool>, store<CTreeBooleanItemValue>}, // Boolean
    kNone,                                                                           // Command
    kInteger,                                                                        // Integer
    kInteger,                                                                        // IntReg
    kEntry,                                                                          // Enumeration
    kFloat,                                                                          // Float
    kFloat,                                                                          // Converter
    kText,                                                                           // StringReg
    kText,                                                                           // String
    kNone,                                                                           // Draw
    kTwoBoxes,                                                                       // Watermark
    kTwoBoxes,                                                                       // Event
    kNone,                                                                           // CCM
    kEntry,                                                                          // PalettesMode
    kNone, // FlatFieldCorrection
    kNone, // Other
};

const ValueRules& rulesOf(const QString& tagName)
{
    return kRules[static_cast<std::size_t>(featureTag(tagName))];
}

} // namespace

bool ItemValueRules::isSame(const QString& tagName, const CTreeItemValue* value,
                            const QVariant& edited)
{
    return rulesOf(tagName).same(value, edited);
}

void ItemValueRules::store(const QString& tagName, CTreeItemValue* value, const QString& nodeName,
                           const QVariant& edited)
{
    rulesOf(tagName).store(value, nodeName, edited);
}
