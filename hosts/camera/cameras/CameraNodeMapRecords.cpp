// SPDX-License-Identifier: Apache-2.0
// The part of CameraNodeMap that turns values into the records and texts of the callbacks.
#include "cameras/CameraNodeMap.h"

#include "cameras/CameraError.h"
#include "cameras/GErrorHolder.h"
#include "cameras/GLibErrors.h"
#include "description/TextNumbers.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <arv.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

// Longest text of a string record; beyond that a feature's own limit is of no use to a reader.
constexpr std::size_t kRecordTextBytes = sizeof(_ZDCC_STRINGVALUE_T::value);
constexpr std::int64_t kMaxStringBytes = 65536;

float narrowed(double value)
{
    constexpr auto kMax = static_cast<double>(std::numeric_limits<float>::max());
    return static_cast<float>(std::isnan(value) ? value : std::clamp(value, -kMax, kMax));
}

// Position at which a UTF-8 text of more than `limit` bytes can be cut without splitting a
// character.
std::size_t cutPosition(const std::string& text, std::size_t limit)
{
    if (text.size() <= limit)
        return text.size();
    while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0U) == 0x80U)
        --limit;
    return limit;
}

// The window sends four significant digits, so a bound may arrive rounded past itself.
double pulledToBound(double value, double bound)
{
    constexpr double kRounding = 5e-4;
    return std::fabs(value - bound) <= kRounding * std::fabs(bound) ? bound : value;
}

bool isOnGrid(std::int64_t value, std::int64_t minimum, std::int64_t increment)
{
    const bool anchored = minimum != std::numeric_limits<std::int64_t>::min();
    const auto distance =
        static_cast<std::uint64_t>(value) - (anchored ? static_cast<std::uint64_t>(minimum) : 0U);
    if (!anchored)
        return value % increment == 0;
    return distance % static_cast<std::uint64_t>(increment) == 0;
}

} // namespace

int CameraNodeMap::read(int type, const std::string& name, void* record)
{
    using Function = int (CameraNodeMap::*)(const std::string&, void*);
    struct Row
    {
        int type;
        Function function;
    };
    static constexpr std::array<Row, 5> kReaders{{
        {OB_FT_TYPE_INTEGER, &CameraNodeMap::readInteger},
        {OB_FT_TYPE_BOOLEAN, &CameraNodeMap::readBoolean},
        {OB_FT_TYPE_FLOAT, &CameraNodeMap::readFloat},
        {OB_FT_TYPE_STRING, &CameraNodeMap::readString},
        {OB_FT_TYPE_ENUMERATION, &CameraNodeMap::readEnumeration},
    }};
    Access allowed;
    if (const int error = access(name, &allowed))
        return error;
    if (!allowed.implemented || !allowed.available || !allowed.readable)
        return CameraError::NotReadable;
    for (const Row& row : kReaders) {
        if (row.type == type)
            return (this->*row.function)(name, record);
    }
    return CameraError::WrongType;
}

int CameraNodeMap::readInteger(const std::string& name, void* record)
{
    _ZDCC_INTVALUE_EX_T result{};
    if (const int error = getInteger(name, &result.value))
        return error;
    if (const int error = integerLimits(name, &result.minimum, &result.maximum, &result.increment))
        return error;
    std::memcpy(record, &result, sizeof result);
    return CameraError::Ok;
}

int CameraNodeMap::readBoolean(const std::string& name, void* record)
{
    if (m_nodes.find(name)->tag != "Boolean")
        return CameraError::WrongType;
    std::int64_t value = 0;
    const int error = getInteger(name, &value);
    if (error == CameraError::Ok)
        *static_cast<unsigned char*>(record) = value != 0 ? 1 : 0;
    return error;
}

int CameraNodeMap::readFloat(const std::string& name, void* record)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    if (!ARV_IS_GC_FLOAT(found))
        return CameraError::WrongType;
    double value = 0.0;
    double minimum = 0.0;
    double maximum = 0.0;
    if ((code = getFloat(name, &value)) || (code = floatLimits(name, &minimum, &maximum)))
        return code;
    _ZDCC_FLOATVALUE_T result{};
    result.value = narrowed(value);
    result.minimum = narrowed(minimum);
    result.maximum = narrowed(maximum);
    std::memcpy(record, &result, sizeof result);
    return CameraError::Ok;
}

int CameraNodeMap::readString(const std::string& name, void* record)
{
    std::string text;
    if (const int error = getString(name, &text))
        return error;
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    GErrorHolder error;
    const std::int64_t length = arv_gc_string_get_max_length(ARV_GC_STRING(found), error.out());
    if (isDeviceError(error.get()))
        return cameraErrorOf(error.get());
    _ZDCC_STRINGVALUE_T result{};
    std::memcpy(result.value, text.data(), cutPosition(text, kRecordTextBytes - 1));
    result.maximumLength = length < 1 || length > kMaxStringBytes
                               ? static_cast<std::int64_t>(kRecordTextBytes)
                               : length;
    std::memcpy(record, &result, sizeof result);
    return CameraError::Ok;
}

int CameraNodeMap::readEnumeration(const std::string& name, void* record)
{
    if (m_nodes.find(name)->tag != "Enumeration")
        return CameraError::WrongType;
    std::int64_t value = 0;
    if (const int error = getInteger(name, &value))
        return error;
    _ZDCC_ENUMVALUE_T result{};
    result.value = static_cast<std::uint32_t>(value);
    for (const DescriptionEntry& entry : m_nodes.find(name)->entries) {
        if (result.supportedCount == std::size(result.supported))
            break;
        if (isUsable(entry))
            result.supported[result.supportedCount++] = static_cast<std::uint32_t>(entry.value);
    }
    std::memcpy(record, &result, sizeof result);
    return CameraError::Ok;
}

int CameraNodeMap::write(int type, const std::string& name, const std::string& text)
{
    using Function = int (CameraNodeMap::*)(const std::string&, const std::string&);
    struct Row
    {
        int type;
        Function function;
    };
    static constexpr std::array<Row, 6> kWriters{{
        {OB_FT_TYPE_INTEGER, &CameraNodeMap::writeInteger},
        {OB_FT_TYPE_BOOLEAN, &CameraNodeMap::writeBoolean},
        {OB_FT_TYPE_COMMAND, &CameraNodeMap::execute},
        {OB_FT_TYPE_FLOAT, &CameraNodeMap::writeFloat},
        {OB_FT_TYPE_STRING, &CameraNodeMap::writeString},
        {OB_FT_TYPE_ENUMERATION, &CameraNodeMap::writeEnumeration},
    }};
    Access allowed;
    if (const int error = access(name, &allowed))
        return error;
    if (!allowed.implemented || !allowed.available || !allowed.writable || allowed.locked)
        return CameraError::NotWritable;
    for (const Row& row : kWriters) {
        if (row.type == type)
            return (this->*row.function)(name, text);
    }
    return CameraError::WrongType;
}

int CameraNodeMap::writeInteger(const std::string& name, const std::string& text)
{
    const std::string& tag = m_nodes.find(name)->tag;
    if (tag == "Enumeration" || tag == "Boolean")
        return CameraError::WrongType;
    std::int64_t value = 0;
    if (!TextNumbers::parse(text, &value))
        return CameraError::InvalidText;
    std::int64_t minimum = 0;
    std::int64_t maximum = 0;
    std::int64_t increment = 1;
    if (const int error = integerLimits(name, &minimum, &maximum, &increment))
        return error;
    if (value < minimum || value > maximum || !isOnGrid(value, minimum, increment))
        return CameraError::OutOfRange;
    return setInteger(name, value);
}

int CameraNodeMap::writeBoolean(const std::string& name, const std::string& text)
{
    if (m_nodes.find(name)->tag != "Boolean")
        return CameraError::WrongType;
    if (text != "0" && text != "1")
        return CameraError::InvalidText;
    return setInteger(name, text == "1" ? 1 : 0);
}

int CameraNodeMap::writeFloat(const std::string& name, const std::string& text)
{
    double value = 0.0;
    if (!TextNumbers::parse(text, &value))
        return CameraError::InvalidText;
    double minimum = 0.0;
    double maximum = 0.0;
    if (const int error = floatLimits(name, &minimum, &maximum))
        return error;
    if (value < minimum)
        value = pulledToBound(value, minimum);
    if (value > maximum)
        value = pulledToBound(value, maximum);
    if (value < minimum || value > maximum)
        return CameraError::OutOfRange;
    return setFloat(name, value);
}

int CameraNodeMap::writeString(const std::string& name, const std::string& text)
{
    return setString(name, text);
}

int CameraNodeMap::writeEnumeration(const std::string& name, const std::string& text)
{
    const DescriptionNode* described = m_nodes.find(name);
    if (described->tag != "Enumeration")
        return CameraError::WrongType;
    std::int64_t value = 0;
    if (!TextNumbers::parse(text, &value))
        return CameraError::InvalidText;
    for (const DescriptionEntry& entry : described->entries) {
        if (static_cast<std::uint32_t>(entry.value) == value)
            return isUsable(entry) ? setInteger(name, entry.value) : CameraError::OutOfRange;
    }
    return CameraError::OutOfRange;
}

int CameraNodeMap::execute(const std::string& name, const std::string& /*text*/)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    if (!ARV_IS_GC_COMMAND(found))
        return CameraError::WrongType;
    GErrorHolder error;
    arv_gc_command_execute(ARV_GC_COMMAND(found), error.out());
    return cameraErrorOf(error.get());
}
