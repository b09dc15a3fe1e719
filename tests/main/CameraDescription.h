// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/DescriptionBuilder.h"

// A small camera of standard features, whose Chinese names the library brings along: three groups,
// one of them with a branch, and a feature for gurus.
inline QByteArray cameraDescription()
{
    using namespace DescriptionBuilder;
    const auto text = [](const char* name) { return QString::fromLatin1(name); };
    const auto feature = [&](const char* tag, const char* name, const char* displayName,
                             const char* visibility = "Beginner") {
        return node(text(tag), text(name),
                    child(QStringLiteral("DisplayName"), text(displayName)) +
                        child(QStringLiteral("Visibility"), text(visibility)));
    };
    const auto list = [&](const char* name, const QStringList& features) {
        return category(text(name), features);
    };
    const QString entries = QStringLiteral("<EnumEntry Name=\"Off\"><Value>0</Value></EnumEntry>"
                                           "<EnumEntry Name=\"Once\"><Value>1</Value></EnumEntry>");
    return wrap(
        list("Root", {text("DeviceControl"), text("AnalogControl"), text("AcquisitionControl")}) +
        list("DeviceControl", {text("DeviceUserID"), text("DeviceReset")}) +
        list("AnalogControl", {text("Gain"), text("GainAuto"), text("BlackLevelControl")}) +
        list("BlackLevelControl", {text("BlackLevel")}) +
        list("AcquisitionControl", {text("ExposureTime"), text("ExposureMode"), text("Width"),
                                    text("AcquisitionFrameCount")}) +
        feature("StringReg", "DeviceUserID", "Device User ID") +
        feature("Command", "DeviceReset", "Device Reset") + feature("Float", "Gain", "Gain") +
        node(text("Enumeration"), text("GainAuto"),
             child(QStringLiteral("DisplayName"), text("Gain Auto")) + entries) +
        feature("Float", "BlackLevel", "Black Level") +
        feature("Float", "ExposureTime", "Exposure Time") +
        feature("Integer", "ExposureMode", "Exposure Mode", "Guru") +
        feature("Integer", "Width", "Width") +
        feature("Integer", "AcquisitionFrameCount", "Acquisition Frame Count"));
}
