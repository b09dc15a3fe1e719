// SPDX-License-Identifier: Apache-2.0
#include "reading/FeatureDocText.h"

#include "device/HtmlEscape.h"
#include "device/OBDeviceControl.h"
#include "device/StopRequest.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "reading/FeatureDecider.h"
#include "styledctl/ZELCustom.h"

#include <QSet>

namespace {

const QLatin1String kChinese("CH");
const QLatin1String kNodeName("Node Name: ");
const QLatin1String kType("Type: ");
const QLatin1String kNameSpace("Name Space: ");
const QLatin1String kVisibility("Visibility: ");
const QLatin1String kStreamable("Streamable: ");
const QLatin1String kMinimum("Min: ");
const QLatin1String kMaximum("Max: ");
const QLatin1String kIncrement("Inc: ");
const QLatin1String kEntryName("Enum Entry Name: ");
const QLatin1String kEntryValue("Enum Entry Value: ");

// Characters; a text without entries seldom needs more.
constexpr int kUsualLength = 1024;

// A range whose upper end is not above this says nothing.
constexpr float kSmallestMaximum = 0.0001F;

bool hasNoValueInfo(const QString& name)
{
    static const QSet<QString> names = {QStringLiteral("GevCurrentIPAddress"),
                                        QStringLiteral("GevCurrentSubnetMask"),
                                        QStringLiteral("GevCurrentDefaultGateway")};
    return names.contains(name);
}

bool hasNoRange(const QString& name)
{
    static const QSet<QString> names = {QStringLiteral("GevPersistentIPAddress"),
                                        QStringLiteral("GevPersistentSubnetMask"),
                                        QStringLiteral("GevPersistentDefaultGateway"),
                                        QStringLiteral("GevSCDA"), QStringLiteral("GevSCSP")};
    return names.contains(name);
}

// The kinds of spans of the texts, and the two phrases of each: what stands before it and behind
// it.
enum SpanKind { Value, Label };

QString filtered(SpanKind kind, const QString& text)
{
    const QString colour = kind == Value ? QStringLiteral("QGetFeaturesThreadColor_FeatureDesc")
                                         : QStringLiteral("QGetFeaturesThreadColor_FeatureTitle");
    return OBDeviceControl::stringToHtmlFilter(text, ZELCustom::getDataBaseColor(colour),
                                               kind == Value);
}

// Cut out of the HTML filter's own spans.
const QStringList& phrases()
{
    static const QStringList all = [] {
        // Stands in for a text in the filter's template, whose own markers the filter would fill.
        constexpr QChar kOwnText(0xE000);
        QStringList cut;
        for (const SpanKind kind : {Value, Label})
            cut += filtered(kind, QString(kOwnText)).split(kOwnText);
        return cut;
    }();
    return all;
}

void appendSpan(QString& html, SpanKind kind, const QString& text)
{
    html += PhrasedText::sign(2 * kind);
    PhrasedText::appendForeign(html, [&](QString& to) { appendHtmlEscaped(to, text); });
    html += PhrasedText::sign(2 * kind + 1);
}

void appendValue(QString& html, const QString& text)
{
    appendSpan(html, Value, text);
}

void appendLine(QString& html, QLatin1String label, const QString& value)
{
    appendSpan(html, Label, label);
    appendValue(html, value + QLatin1Char('\n'));
}

QString fixed(float number)
{
    return QString::number(static_cast<double>(number), 'f');
}

void appendTitle(QString& html, const QString& name, QString description)
{
    description.replace(QLatin1Char('"'), QLatin1Char('\''));
    appendValue(html, name + QLatin1Char('\n'));
    appendValue(html, description + QLatin1String("\n\n"));
}

void appendTitle(QString& html, const FeatureDocInputs& inputs, bool chinese)
{
    if (chinese)
        appendTitle(html, inputs.translateName,
                    inputs.translatedDescription.isEmpty() ? inputs.description
                                                           : inputs.translatedDescription);
    else
        appendTitle(html, inputs.displayName, inputs.description);
}

void appendEntries(QString& html, const FeatureNode& node, const FeatureDocInputs& inputs,
                   bool chinese)
{
    auto usable = inputs.usableEntries.cbegin();
    for (const FeatureEnumEntry& entry : node.entries) {
        if (!*usable++)
            continue;
        QString name;
        if (chinese)
            name = OBDeviceControl::GetEnumerationTrans(node.name, entry.name);
        appendLine(html, kEntryName, name.isEmpty() ? entry.name : name);
        appendLine(html, kEntryValue, entry.valueText);
        appendLine(html, kNameSpace, entry.nameSpace);
        appendLine(html, kVisibility,
                   entry.visibility.isEmpty() ? QStringLiteral("Beginner") : entry.visibility);
    }
}

void appendRange(QString& html, const QString& minimum, const QString& maximum)
{
    appendLine(html, kMinimum, minimum);
    appendLine(html, kMaximum, maximum);
}

void appendValueInfo(QString& html, const FeatureNode& node, const FeatureDocInputs& inputs,
                     bool chinese)
{
    if (hasNoValueInfo(node.name))
        return;
    switch (node.tag) {
    case FeatureTag::Integer:
    case FeatureTag::IntReg:
        if (!hasNoRange(node.name))
            appendRange(html, QString::number(inputs.minimum), QString::number(inputs.maximum));
        if (inputs.increment > 0)
            appendLine(html, kIncrement, QString::number(inputs.increment));
        return;
    case FeatureTag::Float:
    case FeatureTag::Converter:
        if (inputs.floatMaximum + kSmallestMaximum >= 0 &&
            inputs.floatMaximum - kSmallestMaximum > 0)
            appendRange(html, fixed(inputs.floatMinimum), fixed(inputs.floatMaximum));
        return;
    case FeatureTag::Enumeration:
        appendEntries(html, node, inputs, chinese);
        return;
    default:
        return;
    }
}

PhrasedText docText(const FeatureNode& node, const QString& streamable,
                    const FeatureDocInputs& inputs, bool chinese)
{
    QString html;
    html.reserve(kUsualLength);
    appendTitle(html, inputs, chinese);
    appendLine(html, kNodeName, node.name);
    appendLine(html, kType, node.tagName);
    appendLine(html, kNameSpace,
               node.nameSpace.isEmpty() ? QStringLiteral("Standard") : node.nameSpace);
    appendLine(html, kVisibility, inputs.visibility);
    appendLine(html, kStreamable, streamable);
    appendValueInfo(html, node, inputs, chinese);
    // Of its own length: a text made smaller in its place leaves a hole behind it.
    return {QString(html.constData(), int(html.size())), &phrases()};
}

} // namespace

FeatureDocText::FeatureDocText(FeatureDecider& decider)
    : m_decider(decider)
{
}

FeatureDocInputs FeatureDocText::inputsOf(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    const CTreeItemValue* value = item->value();
    FeatureDocInputs inputs;
    inputs.displayName = value->displayName();
    inputs.translateName = value->translateName();
    inputs.description = value->description();
    inputs.translatedDescription = value->translatedDescription();
    inputs.visibility = item->visibilityString();
    if (const auto* integer = dynamic_cast<const CTreeIntergerItemValue*>(value)) {
        const CTreeIntergerItemValue::Numbers n = integer->numbers();
        inputs.minimum = n.m_nMinValue;
        inputs.maximum = n.m_nMaxValue;
        inputs.increment = n.m_nIncrement;
    } else if (const auto* number = dynamic_cast<const CTreeFloatItemValue*>(value)) {
        const CTreeFloatItemValue::Numbers n = number->numbers();
        inputs.floatMinimum = n.m_fMinValue;
        inputs.floatMaximum = n.m_fMaxValue;
    }
    inputs.usableEntries.reserve(int(node.entries.size()));
    for (const FeatureEnumEntry& entry : node.entries)
        inputs.usableEntries.append(m_decider.IsFeatureImplemented(entry.pIsImplemented) &&
                                    m_decider.IsFeatureAvailable(entry.pIsAvailable));
    return inputs;
}

bool FeatureDocText::update(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    CTreeItemValue* value = item->value();
    const FeatureDocInputs inputs = inputsOf(node, item);
    // The camera may have been asked which entries it has.
    if (StopRequest::isHere())
        return false;
    if (value->docInputs() == inputs)
        return true;
    const QString streamable = node.streamable.isEmpty() ? QStringLiteral("No") : node.streamable;
    value->setDoc(docText(node, streamable, inputs, false), docText(node, streamable, inputs, true),
                  inputs);
    return true;
}

QString FeatureDocText::GetFeatureTitleText(const CTreeItemValue& value, const QString& language)
{
    FeatureDocInputs inputs;
    inputs.displayName = value.displayName();
    inputs.translateName = value.translateName();
    inputs.description = value.description();
    inputs.translatedDescription = value.translatedDescription();
    QString html;
    appendTitle(html, inputs, language == kChinese);
    return PhrasedText(html, &phrases()).whole();
}

QString FeatureDocText::GetFeatureDocText(const FeatureNode& node, const QString& streamable,
                                          ORXPropertyTreeItem* item, const QString& language)
{
    return docText(node, streamable, inputsOf(node, item), language == kChinese).whole();
}

QString FeatureDocText::GetFeatureValueInfo(const FeatureNode& node, ORXPropertyTreeItem* item,
                                            const QString& language)
{
    QString html;
    appendValueInfo(html, node, inputsOf(node, item), language == kChinese);
    return PhrasedText(html, &phrases()).whole();
}
