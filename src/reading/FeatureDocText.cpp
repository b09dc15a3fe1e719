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

// Stands in for a text in the filter's template, whose own markers the filter would fill.
constexpr QChar kOwnText(0xE000);

QString asValue(const QString& text)
{
    static const QColor colour =
        ZELCustom::getDataBaseColor(QStringLiteral("QGetFeaturesThreadColor_FeatureDesc"));
    return OBDeviceControl::stringToHtmlFilter(QString(kOwnText), colour, true)
        .replace(kOwnText, htmlEscaped(text));
}

QString asLabel(const char* text)
{
    static const QColor colour =
        ZELCustom::getDataBaseColor(QStringLiteral("QGetFeaturesThreadColor_FeatureTitle"));
    return OBDeviceControl::stringToHtmlFilter(QString::fromLatin1(text), colour, false);
}

QString line(const char* label, const QString& value)
{
    return asLabel(label) + asValue(value + QLatin1Char('\n'));
}

QString fixed(float number)
{
    return QString::number(static_cast<double>(number), 'f');
}

} // namespace

FeatureDocText::FeatureDocText(FeatureDecider& decider)
    : m_decider(decider)
{
}

bool FeatureDocText::isUsable(const FeatureEnumEntry& entry)
{
    return m_decider.IsFeatureImplemented(entry.pIsImplemented) &&
           m_decider.IsFeatureAvailable(entry.pIsAvailable);
}

QString FeatureDocText::inputsOf(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    const CTreeItemValue* value = item->value();
    QString inputs = value->displayName() + QLatin1Char('\n') + value->translateName() +
                     QLatin1Char('\n') + value->description() + QLatin1Char('\n') +
                     value->translatedDescription() + QLatin1Char('\n') + item->visibilityString() +
                     QLatin1Char('\n');
    if (const auto* integer = dynamic_cast<const CTreeIntergerItemValue*>(value)) {
        const CTreeIntergerItemValue::Numbers n = integer->numbers();
        inputs += QString::number(n.m_nMinValue) + QLatin1Char(' ') +
                  QString::number(n.m_nMaxValue) + QLatin1Char(' ') +
                  QString::number(n.m_nIncrement);
    } else if (const auto* number = dynamic_cast<const CTreeFloatItemValue*>(value)) {
        const CTreeFloatItemValue::Numbers n = number->numbers();
        inputs += fixed(n.m_fMinValue) + QLatin1Char(' ') + fixed(n.m_fMaxValue);
    }
    for (const FeatureEnumEntry& entry : node.entries)
        inputs += QLatin1Char(isUsable(entry) ? '1' : '0');
    return inputs;
}

bool FeatureDocText::update(const FeatureNode& node, ORXPropertyTreeItem* item)
{
    CTreeItemValue* value = item->value();
    const QString inputs = inputsOf(node, item);
    // The camera may have been asked which entries it has.
    if (StopRequest::isHere())
        return false;
    if (value->docInputs() == inputs)
        return true;
    const QString streamable = node.streamable.isEmpty() ? QStringLiteral("No") : node.streamable;
    value->setDocText(GetFeatureDocText(node, streamable, item, QStringLiteral("ENG")));
    value->setDocTextCN(GetFeatureDocText(node, streamable, item, kChinese));
    value->setDocInputs(inputs);
    return true;
}

QString FeatureDocText::GetFeatureTitleText(const CTreeItemValue& value, const QString& language)
{
    const bool chinese = language == kChinese;
    QString description = value.description();
    if (chinese && !value.translatedDescription().isEmpty())
        description = value.translatedDescription();
    description.replace(QLatin1Char('"'), QLatin1Char('\''));
    return asValue((chinese ? value.translateName() : value.displayName()) + QLatin1Char('\n')) +
           asValue(description + QLatin1String("\n\n"));
}

QString FeatureDocText::GetFeatureDocText(const FeatureNode& node, const QString& streamable,
                                          ORXPropertyTreeItem* item, const QString& language)
{
    const QString nameSpace =
        node.nameSpace.isEmpty() ? QStringLiteral("Standard") : node.nameSpace;

    // Joined piece by piece: a marker such as "%3" in a feature's own text must stay as it is.
    return GetFeatureTitleText(*item->value(), language) + line("Node Name: ", node.name) +
           line("Type: ", node.tagName) + line("Name Space: ", nameSpace) +
           line("Visibility: ", item->visibilityString()) + line("Streamable: ", streamable) +
           GetFeatureValueInfo(node, item, language);
}

QString FeatureDocText::GetFeatureValueInfo(const FeatureNode& node, ORXPropertyTreeItem* item,
                                            const QString& language)
{
    if (hasNoValueInfo(node.name))
        return {};
    const CTreeItemValue* value = item->value();
    if (const auto* integer = dynamic_cast<const CTreeIntergerItemValue*>(value)) {
        const CTreeIntergerItemValue::Numbers n = integer->numbers();
        QString info;
        if (!hasNoRange(node.name))
            info = line("Min: ", QString::number(n.m_nMinValue)) +
                   line("Max: ", QString::number(n.m_nMaxValue));
        if (n.m_nIncrement > 0)
            info += line("Inc: ", QString::number(n.m_nIncrement));
        return info;
    }
    if (const auto* number = dynamic_cast<const CTreeFloatItemValue*>(value)) {
        const CTreeFloatItemValue::Numbers n = number->numbers();
        if (n.m_fMaxValue + kSmallestMaximum >= 0 && n.m_fMaxValue - kSmallestMaximum > 0)
            return line("Min: ", fixed(n.m_fMinValue)) + line("Max: ", fixed(n.m_fMaxValue));
        return {};
    }
    return node.tag == FeatureTag::Enumeration ? entriesInfo(node, language) : QString();
}

QString FeatureDocText::entriesInfo(const FeatureNode& node, const QString& language)
{
    QString info;
    for (const FeatureEnumEntry& entry : node.entries) {
        if (!isUsable(entry))
            continue;
        QString name = entry.name;
        if (language == kChinese) {
            const QString translated = OBDeviceControl::GetEnumerationTrans(node.name, entry.name);
            if (!translated.isEmpty())
                name = translated;
        }
        info += line("Enum Entry Name: ", name) + line("Enum Entry Value: ", entry.valueText) +
                line("Name Space: ", entry.nameSpace) +
                line("Visibility: ",
                     entry.visibility.isEmpty() ? QStringLiteral("Beginner") : entry.visibility);
    }
    return info;
}
