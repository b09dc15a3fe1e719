// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureDocHtml.h"

#include "device/HtmlEscape.h"
#include "device/OBDeviceControl.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/FeatureDocInputs.h"
#include "styledctl/ZELCustom.h"

#include <QSet>

namespace {

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

// A value is bold, a label before it is not.
QString filtered(const QString& text, bool isValue)
{
    const QString colour = isValue ? QStringLiteral("QGetFeaturesThreadColor_FeatureDesc")
                                   : QStringLiteral("QGetFeaturesThreadColor_FeatureTitle");
    // The filter would fill what looks like a marker of its template in the text itself.
    constexpr QChar kStandIn(0xE000);
    QString span = OBDeviceControl::stringToHtmlFilter(
        QString(kStandIn), ZELCustom::getDataBaseColor(colour), isValue);
    return span.replace(kStandIn, htmlEscaped(text));
}

void appendValue(QString& html, const QString& text)
{
    html += filtered(text, true);
}

void appendLine(QString& html, QLatin1String label, const QString& value)
{
    html += filtered(label, false);
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

void appendEntries(QString& html, const FeatureDocInputs& inputs, bool chinese)
{
    const FeatureNode& node = *inputs.node;
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

void appendIntegerInfo(QString& html, const FeatureNode& node, const CTreeItemValue& value)
{
    CTreeIntergerItemValue::Numbers n{};
    if (const auto* integer = dynamic_cast<const CTreeIntergerItemValue*>(&value))
        n = integer->numbers();
    if (!hasNoRange(node.name))
        appendRange(html, QString::number(n.m_nMinValue), QString::number(n.m_nMaxValue));
    if (n.m_nIncrement > 0)
        appendLine(html, kIncrement, QString::number(n.m_nIncrement));
}

void appendFloatInfo(QString& html, const CTreeItemValue& value)
{
    CTreeFloatItemValue::Numbers n{};
    if (const auto* number = dynamic_cast<const CTreeFloatItemValue*>(&value))
        n = number->numbers();
    if (n.m_fMaxValue + kSmallestMaximum >= 0 && n.m_fMaxValue - kSmallestMaximum > 0)
        appendRange(html, fixed(n.m_fMinValue), fixed(n.m_fMaxValue));
}

void appendValueInfo(QString& html, const CTreeItemValue& value, const FeatureDocInputs& inputs,
                     bool chinese)
{
    const FeatureNode& node = *inputs.node;
    if (hasNoValueInfo(node.name))
        return;
    switch (node.tag) {
    case FeatureTag::Integer:
    case FeatureTag::IntReg:
        appendIntegerInfo(html, node, value);
        return;
    case FeatureTag::Float:
    case FeatureTag::Converter:
        appendFloatInfo(html, value);
        return;
    case FeatureTag::Enumeration:
        appendEntries(html, inputs, chinese);
        return;
    default:
        return;
    }
}

} // namespace

QString FeatureDocHtml::whole(const CTreeItemValue& value, const FeatureDocInputs& inputs,
                              bool chinese)
{
    if (!inputs.node)
        return {};
    const FeatureNode& node = *inputs.node;
    QString html = title(value, chinese);
    appendLine(html, kNodeName, node.name);
    appendLine(html, kType, node.tagName);
    appendLine(html, kNameSpace,
               node.nameSpace.isEmpty() ? QStringLiteral("Standard") : node.nameSpace);
    appendLine(html, kVisibility, inputs.visibility);
    appendLine(html, kStreamable, inputs.streamable);
    appendValueInfo(html, value, inputs, chinese);
    return html;
}

QString FeatureDocHtml::title(const CTreeItemValue& value, bool chinese)
{
    const QString translated = chinese ? value.translatedDescription() : QString();
    QString html;
    appendTitle(html, chinese ? value.translateName() : value.displayName(),
                translated.isEmpty() ? value.description() : translated);
    return html;
}

QString FeatureDocHtml::valueInfo(const CTreeItemValue& value, const FeatureDocInputs& inputs,
                                  bool chinese)
{
    QString html;
    if (inputs.node)
        appendValueInfo(html, value, inputs, chinese);
    return html;
}
