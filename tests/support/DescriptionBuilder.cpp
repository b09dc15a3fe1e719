// SPDX-License-Identifier: Apache-2.0
#include "support/DescriptionBuilder.h"

#include <QVector>

namespace DescriptionBuilder {

namespace {

// The tags of the generated features, in turn; every fifth feature is an enumeration.
const char* const kTags[] = {"Integer", "Float", "Boolean", "Integer", "Enumeration"};
constexpr int kTagCount = 5;

QString featureName(int index)
{
    return QStringLiteral("Feature%1").arg(index, 5, 10, QLatin1Char('0'));
}

QString registerName(int index)
{
    return QStringLiteral("Reg%1").arg(index, 5, 10, QLatin1Char('0'));
}

QString entriesOf(int count)
{
    QString entries;
    for (int i = 0; i < count; ++i) {
        entries += QStringLiteral("<EnumEntry Name=\"Entry%1\">").arg(i)
                   + child(QStringLiteral("DisplayName"), QStringLiteral("Entry %1").arg(i))
                   + child(QStringLiteral("Value"), QString::number(i))
                   + QStringLiteral("</EnumEntry>");
    }
    return entries;
}

QString featureElement(const Size& size, int index)
{
    const QString tag = QString::fromLatin1(kTags[index % kTagCount]);
    QString inner =
        child(QStringLiteral("DisplayName"), QStringLiteral("Feature %1").arg(index))
        + child(QStringLiteral("Description"),
                QStringLiteral("Explains what the feature number %1 does.").arg(index))
        + child(QStringLiteral("Visibility"), QStringLiteral("Beginner"));
    if (index < size.lockable)
        inner += child(QStringLiteral("pIsLocked"), QStringLiteral("TLParamsLocked"));
    if (tag == QLatin1String("Enumeration"))
        inner += entriesOf(size.entries / qMax(1, size.features / kTagCount));
    inner += child(QStringLiteral("pValue"), registerName(index));
    return node(tag, featureName(index), inner);
}

QString registerElement(const Size& size, int index, int registers)
{
    QString inner = child(QStringLiteral("Address"), QString::number(0x1000 + index * 4))
                    + child(QStringLiteral("Length"), QStringLiteral("4"))
                    + child(QStringLiteral("AccessMode"), QStringLiteral("RW"))
                    + child(QStringLiteral("pPort"), QStringLiteral("Device"));
    if (index < size.polled)
        inner += child(QStringLiteral("PollingTime"), QStringLiteral("1000"));
    // Spread over the registers behind, so that a write invalidates a handful of features.
    const int perRegister = (size.invalidators + registers - 1) / registers;
    for (int i = 1; i <= perRegister; ++i)
        inner += child(QStringLiteral("pInvalidator"),
                       registerName((index + i * 37) % registers));
    return node(QStringLiteral("MaskedIntReg"), registerName(index), inner);
}

} // namespace

QString child(const QString& tag, const QString& text)
{
    return QLatin1Char('<') + tag + QLatin1Char('>') + text + QLatin1String("</") + tag
           + QLatin1Char('>');
}

QString node(const QString& tag, const QString& name, const QString& inner)
{
    return QLatin1Char('<') + tag + QLatin1String(" Name=\"") + name + QLatin1String("\">") + inner
           + QLatin1String("</") + tag + QLatin1String(">\n");
}

QString category(const QString& name, const QStringList& features)
{
    QString inner;
    for (const QString& feature : features)
        inner += child(QStringLiteral("pFeature"), feature);
    return node(QStringLiteral("Category"), name, inner);
}

QByteArray wrap(const QString& elements)
{
    return (QLatin1String("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<RegisterDescription "
                          "ModelName=\"Test\" VendorName=\"Test\">\n")
            + elements + QLatin1String("</RegisterDescription>\n"))
        .toUtf8();
}

Size Size::ofFeatures(int features)
{
    const Size base;
    const auto scaled = [features, &base](int value) {
        return static_cast<int>(static_cast<qint64>(value) * features / base.features);
    };
    Size size;
    size.features = features;
    size.categories = qMax(1, scaled(base.categories));
    size.entries = scaled(base.entries);
    size.nodes = scaled(base.nodes);
    size.invalidators = scaled(base.invalidators);
    size.polled = scaled(base.polled);
    size.lockable = scaled(base.lockable);
    return size;
}

QStringList featureNames(const Size& size)
{
    QStringList names;
    for (int i = 0; i < size.features; ++i)
        names.append(featureName(i));
    return names;
}

QByteArray generate(const Size& size)
{
    QString elements;
    QStringList categories;
    QVector<QStringList> members(size.categories);
    for (int i = 0; i < size.features; ++i)
        members[i % size.categories].append(featureName(i));
    for (int i = 0; i < size.categories; ++i)
        categories.append(QStringLiteral("Category%1").arg(i));
    elements += category(QStringLiteral("Root"), categories);
    for (int i = 0; i < size.categories; ++i)
        elements += category(categories.at(i), members.at(i));
    for (int i = 0; i < size.features; ++i)
        elements += featureElement(size, i);
    const int registers = qMax(1, size.nodes - size.features - size.categories);
    for (int i = 0; i < registers; ++i)
        elements += registerElement(size, i, registers);
    elements += node(QStringLiteral("Integer"), QStringLiteral("TLParamsLocked"),
                     child(QStringLiteral("Value"), QStringLiteral("0")));
    return wrap(elements);
}

} // namespace DescriptionBuilder
