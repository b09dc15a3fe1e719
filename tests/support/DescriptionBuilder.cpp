// SPDX-License-Identifier: Apache-2.0
#include "support/DescriptionBuilder.h"

#include "support/Literals.h"

#include <QVector>

namespace DescriptionBuilder {

namespace {

// The tags of the generated features, in turn; every fifth feature is an enumeration.
const char* const kTags[] = {"Integer", "Float", "Boolean", "Integer", "Enumeration"};
constexpr int kTagCount = 5;

QString featureName(int index)
{
    return "Feature%1"_s.arg(index, 5, 10, QLatin1Char('0'));
}

QString registerName(int index)
{
    return "Reg%1"_s.arg(index, 5, 10, QLatin1Char('0'));
}

QString entriesOf(int count)
{
    QString entries;
    for (int i = 0; i < count; ++i) {
        entries += "<EnumEntry Name=\"Entry%1\">"_s.arg(i) +
                   child("DisplayName"_s, "Entry %1"_s.arg(i)) +
                   child("Value"_s, QString::number(i)) + "</EnumEntry>"_s;
    }
    return entries;
}

QString featureElement(const Size& size, int index)
{
    const QString tag = QString::fromLatin1(kTags[index % kTagCount]);
    QString inner =
        child("DisplayName"_s, "Feature %1"_s.arg(index)) +
        child("Description"_s, "Explains what the feature number %1 does."_s.arg(index)) +
        child("Visibility"_s, "Beginner"_s);
    if (index < size.lockable)
        inner += child("pIsLocked"_s, "TLParamsLocked"_s);
    if (tag == QLatin1String("Enumeration"))
        inner += entriesOf(size.entries / qMax(1, size.features / kTagCount));
    inner += child("pValue"_s, registerName(index));
    return node(tag, featureName(index), inner);
}

QString registerElement(const Size& size, int index, int registers)
{
    QString inner = child("Address"_s, QString::number(0x1000 + index * 4)) +
                    child("Length"_s, "4"_s) + child("AccessMode"_s, "RW"_s) +
                    child("pPort"_s, "Device"_s);
    if (index < size.polled)
        inner += child("PollingTime"_s, "1000"_s);
    // Spread over the registers behind, so that a write invalidates a handful of features.
    const int perRegister = (size.invalidators + registers - 1) / registers;
    for (int i = 1; i <= perRegister; ++i)
        inner += child("pInvalidator"_s, registerName((index + i * 37) % registers));
    return node("MaskedIntReg"_s, registerName(index), inner);
}

} // namespace

QString child(const QString& tag, const QString& text)
{
    return QLatin1Char('<') + tag + QLatin1Char('>') + text + QLatin1String("</") + tag +
           QLatin1Char('>');
}

QString node(const QString& tag, const QString& name, const QString& inner)
{
    return QLatin1Char('<') + tag + QLatin1String(" Name=\"") + name + QLatin1String("\">") +
           inner + QLatin1String("</") + tag + QLatin1String(">\n");
}

QString category(const QString& name, const QStringList& features)
{
    QString inner;
    for (const QString& feature : features)
        inner += child("pFeature"_s, feature);
    return node("Category"_s, name, inner);
}

QByteArray wrap(const QString& elements)
{
    return (QLatin1String("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<RegisterDescription "
                          "ModelName=\"Test\" VendorName=\"Test\">\n") +
            elements + QLatin1String("</RegisterDescription>\n"))
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
        categories.append("Category%1"_s.arg(i));
    elements += category("Root"_s, categories);
    for (int i = 0; i < size.categories; ++i)
        elements += category(categories.at(i), members.at(i));
    for (int i = 0; i < size.features; ++i)
        elements += featureElement(size, i);
    const int registers = qMax(1, size.nodes - size.features - size.categories);
    for (int i = 0; i < registers; ++i)
        elements += registerElement(size, i, registers);
    elements += node("Integer"_s, "TLParamsLocked"_s, child("Value"_s, "0"_s));
    return wrap(elements);
}

QByteArray generateSmall()
{
    Size size = Size::ofFeatures(60);
    size.categories = 6;
    return generate(size);
}

QString elements(const char* text)
{
    QString all;
    for (const QString& element : QString::fromUtf8(text).split(QLatin1Char(';'))) {
        const QStringList parts = words(element.toUtf8().constData());
        QString inner;
        for (const QString& part : parts.mid(2)) {
            for (const QString& each : part.section(QLatin1Char('='), 1).split(QLatin1Char(',')))
                inner += child(part.section(QLatin1Char('='), 0, 0), each);
        }
        all += node(parts.value(0), parts.value(1), inner);
    }
    return all;
}

} // namespace DescriptionBuilder
