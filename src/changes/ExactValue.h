// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNode.h"

#include <QString>

// A feature's value as text that reads back as the very same value: integers of 64 bits in decimal,
// floats to the last digit that the host's record holds, "true" and "false", entries of
// enumerations by name (by number where the description has no name), texts as they are. Any
// thread; read() and write() call the host.
namespace ExactValue {

// Whether features of the tag have such a value.
bool hasValue(FeatureTag tag);

struct Read
{
    bool known = false;
    QString text;
    int error = 0; // the host's, or one of DeviceError
};
Read read(const FeatureNode& node);

enum class Written {
    Done,
    NotAValue, // of this feature; nothing was sent
    Refused
};
Written write(const FeatureNode& node, const QString& text, int* error);

// The one text that stands for the value that a text means; the text itself when it means none.
QString canonical(const FeatureNode& node, const QString& text);
// Whether two texts mean the same value of the feature; one that means none equals nothing.
bool areEqual(const FeatureNode& node, const QString& a, const QString& b);
bool isValue(const FeatureNode& node, const QString& text);

// The shortest text of a number that reads back as the same number.
QString ofFloat(float number);

} // namespace ExactValue
