// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureTag.h"

#include <QString>

class QVariant;

// Writes edited values to the camera, one row of a table for each tag. Knows no tree: what the
// outcome means for log, user and reading is its caller's. GUI thread; calls the host.
namespace FeatureWriter {

enum class State {
    NotSent, // the tag cannot be written, or there is no name
    Refused,
    Written
};

struct Outcome
{
    State state = State::NotSent;
    QString text;  // the value for log and user; empty for a command
    int error = 0; // the host's, or one of DeviceError
};

// Converts the value as the tag wants it and sends it; a command is executed, without a value.
Outcome write(FeatureTag tag, const QString& name, const QVariant& value);
// Whether features of the tag can be written at all.
bool hasHandler(FeatureTag tag);

} // namespace FeatureWriter
