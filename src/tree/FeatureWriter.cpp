// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureWriter.h"

#include "device/OBDeviceControl.h"

#include <QVariant>

#include <array>

namespace {

// How a tag's value goes to the camera, and how it reads in a text.
struct Row
{
    bool (*send)(const QString& name, const QVariant& value, int* error);
    QString (*text)(const QVariant& value);
};

float toFloat(const QVariant& value)
{
    return static_cast<float>(value.toDouble());
}

// Entries are 32-bit words, whatever sign the editor gives them.
unsigned int toEntry(const QVariant& value)
{
    return static_cast<unsigned int>(value.toInt());
}

const Row kNone = {nullptr, nullptr};
const Row kBoolean = {[](const QString& name, const QVariant& value, int* error) {
                          return OBDeviceControl::SetBoolNodeValue(name, value.toInt() != 0, error);
                      },
                      [](const QVariant& value) { return QString::number(value.toInt()); }};
const Row kCommand = {[](const QString& name, const QVariant&, int* error) {
                          return OBDeviceControl::SetCommandNodeValue(name, error);
                      },
                      [](const QVariant&) { return QString(); }};
const Row kInteger = {[](const QString& name, const QVariant& value, int* error) {
                          return OBDeviceControl::SetIntegerNodeValue(name, value.toLongLong(),
                                                                      error);
                      },
                      [](const QVariant& value) { return QString::number(value.toLongLong()); }};
const Row kEnumeration = {[](const QString& name, const QVariant& value, int* error) {
                              return OBDeviceControl::SetEnumNodeValue(name, toEntry(value), error);
                          },
                          [](const QVariant& value) { return QString::number(toEntry(value)); }};
const Row kFloat = {
    [](const QString& name, const QVariant& value, int* error) {
        return OBDeviceControl::SetFloatNodeValue(name, toFloat(value), error);
    },
    [](const QVariant& value) { return QString::number(static_cast<double>(toFloat(value))); }};
const Row kText = {[](const QString& name, const QVariant& value, int* error) {
                       return OBDeviceControl::SetStringNodeValue(name, value.toString(), error);
                   },
                   [](const QVariant& value) { return value.toString(); }};

const Row& rowOf(FeatureTag tag)
{
    // In the order of FeatureTag.
    static const std::array<Row, kFeatureTagCount> kRows = {
        kNone,        // Category
        kBoolean,     // Boolean
        kCommand,     // Command
        kInteger,     // Integer
        kInteger,     // IntReg
        kEnumeration, // Enumeration
        kFloat,       // Float
        kFloat,       // Converter
        kText,        // StringReg
        kText,        // String
        kNone,        // Draw
        kNone,        // Watermark
        kNone,        // Event
        kNone,        // CCM
        kNone,        // PalettesMode
        kNone,        // FlatFieldCorrection
        kNone,        // Other
    };
    return kRows[static_cast<std::size_t>(tag)];
}

} // namespace

bool FeatureWriter::hasHandler(FeatureTag tag)
{
    return rowOf(tag).send != nullptr;
}

FeatureWriter::Outcome FeatureWriter::write(FeatureTag tag, const QString& name,
                                            const QVariant& value)
{
    const Row& row = rowOf(tag);
    Outcome outcome;
    if (!row.send || name.isEmpty())
        return outcome;
    outcome.text = row.text(value);
    outcome.error = -1;
    outcome.state = row.send(name, value, &outcome.error) ? State::Written : State::Refused;
    return outcome;
}
