// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/DescriptionBuilder.h"
#include "support/Literals.h"

// A small camera of standard features, whose Chinese names the library brings along: three groups,
// one of them with a branch, and a feature for gurus.
inline QByteArray cameraDescription()
{
    using namespace DescriptionBuilder;
    const auto feature = [](const QString& tag, const QString& name, const QString& displayName,
                            const QString& visibility = "Beginner"_s) {
        return node(tag, name,
                    child("DisplayName"_s, displayName) + child("Visibility"_s, visibility));
    };
    const QString entries = "<EnumEntry Name=\"Off\"><Value>0</Value></EnumEntry>"
                            "<EnumEntry Name=\"Once\"><Value>1</Value></EnumEntry>"_s;
    return wrap(
        category("Root"_s, words("DeviceControl AnalogControl AcquisitionControl")) +
        category("DeviceControl"_s, words("DeviceUserID DeviceReset")) +
        category("AnalogControl"_s, words("Gain GainAuto BlackLevelControl")) +
        category("BlackLevelControl"_s, words("BlackLevel")) +
        category("AcquisitionControl"_s,
                 words("ExposureTime ExposureMode Width AcquisitionFrameCount")) +
        feature("StringReg"_s, "DeviceUserID"_s, "Device User ID"_s) +
        feature("Command"_s, "DeviceReset"_s, "Device Reset"_s) +
        feature("Float"_s, "Gain"_s, "Gain"_s) +
        node("Enumeration"_s, "GainAuto"_s, child("DisplayName"_s, "Gain Auto"_s) + entries) +
        feature("Float"_s, "BlackLevel"_s, "Black Level"_s) +
        feature("Float"_s, "ExposureTime"_s, "Exposure Time"_s) +
        feature("Integer"_s, "ExposureMode"_s, "Exposure Mode"_s, "Guru"_s) +
        feature("Integer"_s, "Width"_s, "Width"_s) +
        feature("Integer"_s, "AcquisitionFrameCount"_s, "Acquisition Frame Count"_s));
}
