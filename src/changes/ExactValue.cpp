// SPDX-License-Identifier: Apache-2.0
#include "changes/ExactValue.h"

#include "device/OBDeviceControl.h"

#include <QByteArray>

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace {

// How values of a kind read and go to the camera. `canonical` gives the one text that stands for
// the value, none when the text is no value of the feature.
struct Kind
{
    FeatureType type;
    bool (*read)(const FeatureNode& node, QString& text, int* error);
    std::optional<QString> (*canonical)(const FeatureNode& node, const QString& text);
    // What the host is sent for a canonical text.
    QString (*sent)(const FeatureNode& node, const QString& canonical);
};

QString asItIs(const FeatureNode&, const QString& canonical)
{
    return canonical;
}

const QLatin1String kTrue("true");
const QLatin1String kFalse("false");

// Entries are 32-bit words, whatever sign the description gives them.
quint32 numberOf(const FeatureEnumEntry& entry)
{
    return static_cast<quint32>(entry.value);
}

std::optional<quint32> entryNumber(const FeatureNode& node, const QString& text)
{
    for (const FeatureEnumEntry& entry : node.entries) {
        if (entry.name == text)
            return numberOf(entry);
    }
    bool isNumber = false;
    const quint32 number = text.toUInt(&isNumber);
    return isNumber ? std::optional<quint32>(number) : std::nullopt;
}

QString entryName(const FeatureNode& node, quint32 number)
{
    for (const FeatureEnumEntry& entry : node.entries) {
        if (numberOf(entry) == number)
            return entry.name;
    }
    return QString::number(number);
}

// QString::toFloat() goes by way of a double and refuses the largest float.
std::optional<float> toFloat(const QString& text)
{
    const QByteArray bytes = text.trimmed().toLatin1();
    float number = 0;
    const char* end = bytes.constData() + bytes.size();
    const std::from_chars_result result = std::from_chars(bytes.constData(), end, number);
    return result.ec == std::errc() && result.ptr == end && std::isfinite(number)
               ? std::optional<float>(number)
               : std::nullopt;
}

const Kind kInteger = {FeatureType::Integer,
                       [](const FeatureNode& node, QString& text, int* error) {
                           _ZDCC_INTVALUE_EX_T record = {};
                           if (!OBDeviceControl::GetIntegerNodeValue(node.name, &record, error))
                               return false;
                           text = QString::number(static_cast<qint64>(record.value));
                           return true;
                       },
                       [](const FeatureNode&, const QString& text) {
                           bool isNumber = false;
                           const qint64 number = text.toLongLong(&isNumber);
                           return isNumber ? std::make_optional(QString::number(number))
                                           : std::nullopt;
                       },
                       asItIs};

const Kind kFloat = {FeatureType::Float,
                     [](const FeatureNode& node, QString& text, int* error) {
                         _ZDCC_FLOATVALUE_T record = {};
                         if (!OBDeviceControl::GetFloatNodeValue(node.name, &record, error))
                             return false;
                         text = ExactValue::ofFloat(record.value);
                         return true;
                     },
                     [](const FeatureNode&, const QString& text) {
                         const std::optional<float> number = toFloat(text);
                         return number ? std::make_optional(ExactValue::ofFloat(*number))
                                       : std::nullopt;
                     },
                     asItIs};

const Kind kBoolean = {FeatureType::Boolean,
                       [](const FeatureNode& node, QString& text, int* error) {
                           bool value = false;
                           if (!OBDeviceControl::GetBoolNodeValue(node.name, &value, error))
                               return false;
                           text = value ? kTrue : kFalse;
                           return true;
                       },
                       [](const FeatureNode&, const QString& text) -> std::optional<QString> {
                           if (text == kTrue || text == QLatin1String("1"))
                               return QString(kTrue);
                           if (text == kFalse || text == QLatin1String("0"))
                               return QString(kFalse);
                           return std::nullopt;
                       },
                       [](const FeatureNode&, const QString& canonical) {
                           return QString::number(canonical == kTrue ? 1 : 0);
                       }};

const Kind kEnumeration = {FeatureType::Enumeration,
                           [](const FeatureNode& node, QString& text, int* error) {
                               _ZDCC_ENUMVALUE_T record = {};
                               if (!OBDeviceControl::GetEnumNodeValue(node.name, &record, error))
                                   return false;
                               text = entryName(node, record.value);
                               return true;
                           },
                           [](const FeatureNode& node, const QString& text) {
                               const std::optional<quint32> number = entryNumber(node, text);
                               return number ? std::make_optional(entryName(node, *number))
                                             : std::nullopt;
                           },
                           [](const FeatureNode& node, const QString& canonical) {
                               return QString::number(entryNumber(node, canonical).value_or(0));
                           }};

const Kind kText = {
    FeatureType::String,
    [](const FeatureNode& node, QString& text, int* error) {
        return OBDeviceControl::GetStringNodeValue(node.name, text, nullptr, error);
    },
    [](const FeatureNode&, const QString& text) { return std::make_optional(text); }, asItIs};

const Kind* kindOf(FeatureTag tag)
{
    // In the order of FeatureTag.
    static const std::array<const Kind*, kFeatureTagCount> kKinds = {
        nullptr,       // Category
        &kBoolean,     // Boolean
        nullptr,       // Command
        &kInteger,     // Integer
        &kInteger,     // IntReg
        &kEnumeration, // Enumeration
        &kFloat,       // Float
        &kFloat,       // Converter
        &kText,        // StringReg
        &kText,        // String
        nullptr,       // Draw
        nullptr,       // Watermark
        nullptr,       // Event
        nullptr,       // CCM
        nullptr,       // PalettesMode
        nullptr,       // FlatFieldCorrection
        nullptr,       // Other
    };
    return kKinds[static_cast<std::size_t>(tag)];
}

std::optional<QString> valueOf(const FeatureNode& node, const QString& text)
{
    const Kind* kind = kindOf(node.tag);
    return kind ? kind->canonical(node, text) : std::nullopt;
}

} // namespace

bool ExactValue::hasValue(FeatureTag tag)
{
    return kindOf(tag) != nullptr;
}

ExactValue::Read ExactValue::read(const FeatureNode& node)
{
    Read result;
    if (const Kind* kind = kindOf(node.tag))
        result.known = kind->read(node, result.text, &result.error);
    return result;
}

ExactValue::Written ExactValue::write(const FeatureNode& node, const QString& text, int* error)
{
    const std::optional<QString> value = valueOf(node, text);
    if (!value)
        return Written::NotAValue;
    const Kind* kind = kindOf(node.tag);
    return OBDeviceControl::SetValue(kind->type, node.name, kind->sent(node, *value), error)
               ? Written::Done
               : Written::Refused;
}

QString ExactValue::canonical(const FeatureNode& node, const QString& text)
{
    return valueOf(node, text).value_or(text);
}

bool ExactValue::areEqual(const FeatureNode& node, const QString& a, const QString& b)
{
    const std::optional<QString> first = valueOf(node, a);
    return first && first == valueOf(node, b);
}

bool ExactValue::isValue(const FeatureNode& node, const QString& text)
{
    return valueOf(node, text).has_value();
}

QString ExactValue::ofFloat(float number)
{
    std::array<char, 32> buffer{};
    const std::to_chars_result end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number + 0.0F); // no "-0"
    return QString::fromLatin1(buffer.data(), static_cast<int>(end.ptr - buffer.data()));
}
