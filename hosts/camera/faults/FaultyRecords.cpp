// SPDX-License-Identifier: Apache-2.0
#include "faults/FaultyRecords.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <QString>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace FaultyRecords {

namespace {

std::int64_t toInteger(double value)
{
    if (std::isnan(value))
        return 0;
    constexpr double kEdge = 9.2e18;
    if (std::fabs(value) > kEdge)
        return value < 0 ? std::numeric_limits<std::int64_t>::min()
                         : std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(value);
}

void spoilRange(const FaultPlan::Rule& rule, int type, void* record)
{
    if (type == OB_FT_TYPE_INTEGER) {
        auto& integer = *static_cast<_ZDCC_INTVALUE_EX_T*>(record);
        integer.minimum = rule.minimum ? toInteger(*rule.minimum) : integer.minimum;
        integer.maximum = rule.maximum ? toInteger(*rule.maximum) : integer.maximum;
        integer.increment = rule.increment ? toInteger(*rule.increment) : integer.increment;
        integer.value = rule.value ? toInteger(*rule.value) : integer.value;
    } else if (type == OB_FT_TYPE_FLOAT) {
        auto& real = *static_cast<_ZDCC_FLOATVALUE_T*>(record);
        real.minimum = rule.minimum ? static_cast<float>(*rule.minimum) : real.minimum;
        real.maximum = rule.maximum ? static_cast<float>(*rule.maximum) : real.maximum;
        real.value = rule.value ? static_cast<float>(*rule.value) : real.value;
    }
}

void spoilValue(const FaultPlan::Rule& rule, int type, void* record)
{
    if (type == OB_FT_TYPE_INTEGER)
        static_cast<_ZDCC_INTVALUE_EX_T*>(record)->value = rule.number;
    else if (type == OB_FT_TYPE_ENUMERATION)
        static_cast<_ZDCC_ENUMVALUE_T*>(record)->value = static_cast<std::uint32_t>(rule.number);
    else if (type == OB_FT_TYPE_BOOLEAN)
        *static_cast<unsigned char*>(record) = static_cast<unsigned char>(rule.number);
}

void spoilEntries(const FaultPlan::Rule& rule, int type, void* record)
{
    if (type == OB_FT_TYPE_ENUMERATION)
        static_cast<_ZDCC_ENUMVALUE_T*>(record)->supportedCount =
            static_cast<std::uint32_t>(rule.number);
}

void spoilText(const FaultPlan::Rule& rule, int type, void* record)
{
    if (type != OB_FT_TYPE_STRING)
        return;
    auto& text = *static_cast<_ZDCC_STRINGVALUE_T*>(record);
    std::memset(text.value, rule.word == "empty" ? '\0' : 'x', sizeof text.value);
}

// The rule of one of the two kinds for the node, null when there is none.
const FaultPlan::Rule* textRule(const FaultPlan& plan, const QString& node, const QString& element)
{
    const auto kind = element == QLatin1String("DisplayName")   ? FaultPlan::LongName
                      : element == QLatin1String("Description") ? FaultPlan::LongText
                                                                : FaultPlan::Error;
    if (kind == FaultPlan::Error)
        return nullptr;
    for (const FaultPlan::Rule& rule : plan.rules) {
        if (rule.kind == kind && rule.matches(node.toStdString()))
            return &rule;
    }
    return nullptr;
}

} // namespace

void spoil(const FaultPlan::Rule& rule, int type, void* record)
{
    switch (rule.kind) {
    case FaultPlan::Range:
        spoilRange(rule, type, record);
        break;
    case FaultPlan::Value:
        spoilValue(rule, type, record);
        break;
    case FaultPlan::Entries:
        spoilEntries(rule, type, record);
        break;
    case FaultPlan::Text:
        spoilText(rule, type, record);
        break;
    default:
        break;
    }
}

std::string spoilDescription(const FaultPlan& plan, const std::string& xml)
{
    const bool wanted =
        std::any_of(plan.rules.begin(), plan.rules.end(), [](const FaultPlan::Rule& rule) {
            return rule.kind == FaultPlan::LongName || rule.kind == FaultPlan::LongText;
        });
    if (!wanted)
        return xml;
    QXmlStreamReader reader(QByteArray::fromStdString(xml));
    reader.setNamespaceProcessing(false);
    QByteArray result;
    QXmlStreamWriter writer(&result);
    QString node; // name of the last element that has one
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.hasError())
            return xml;
        writer.writeCurrentToken(reader);
        if (!reader.isStartElement())
            continue;
        if (reader.attributes().hasAttribute(QLatin1String("Name")))
            node = reader.attributes().value(QLatin1String("Name")).toString();
        if (textRule(plan, node, reader.qualifiedName().toString())) {
            reader.readElementText();
            writer.writeCharacters(QString(kLongText, QLatin1Char('x')));
            writer.writeEndElement();
        }
    }
    return result.toStdString();
}

} // namespace FaultyRecords
