// SPDX-License-Identifier: Apache-2.0
#include "cameras/TypicalValues.h"

#include <array>
#include <string_view>

namespace TypicalValues {

namespace {

struct Number
{
    std::string_view feature;
    double value;
};

constexpr std::array<Number, 27> kNumbers{{
    {"AcquisitionFrameRate", 30},
    {"AcquisitionFrameRateAbs", 30},
    {"BalanceRatio", 1},
    {"BalanceRatioAbs", 1},
    {"DeviceLinkSpeed", 125000000},
    {"DeviceTemperature", 41.5},
    {"ExposureTime", 10000},
    {"ExposureTimeAbs", 10000},
    {"ExposureTimeRaw", 10000},
    {"Gamma", 1},
    {"GevCurrentDefaultGateway", 3232235777}, // 192.168.1.1
    {"GevCurrentIPAddress", 3232235786},      // 192.168.1.10
    {"GevCurrentSubnetMask", 4294967040},     // 255.255.255.0
    {"GevHeartbeatTimeout", 3000},
    {"GevLinkSpeed", 1000},
    {"GevMACAddress", 2199023255553}, // 02:00:00:00:00:01
    {"GevSCPSPacketSize", 1500},
    {"GevTimestampTickFrequency", 1000000000},
    {"GevVersionMajor", 2},
    {"Height", 1080},
    {"HeightMax", 1080},
    {"PayloadSize", 2073600}, // 1920 * 1080
    {"SensorHeight", 1080},
    {"SensorWidth", 1920},
    {"TriggerDelayAbs", 0},
    {"Width", 1920},
    {"WidthMax", 1920},
}};

struct Text
{
    std::string_view feature;
    std::string_view text;
};

constexpr std::array<Text, 6> kTexts{{
    {"DeviceFirmwareVersion", "1.0.0"},
    {"DeviceID", "SIM-0001"},
    {"DeviceManufacturerInfo", "Simulated"},
    {"DeviceSerialNumber", "SIM-0001"},
    {"DeviceUserID", "Simulated"},
    {"DeviceVersion", "1.0"},
}};

} // namespace

std::optional<double> number(const std::string& feature)
{
    for (const Number& row : kNumbers) {
        if (row.feature == feature)
            return row.value;
    }
    return std::nullopt;
}

std::string text(const std::string& feature, const std::string& vendor, const std::string& model)
{
    if (feature == "DeviceVendorName" && !vendor.empty())
        return vendor;
    if (feature == "DeviceModelName" && !model.empty())
        return model;
    for (const Text& row : kTexts) {
        if (row.feature == feature)
            return std::string(row.text);
    }
    return feature;
}

} // namespace TypicalValues
