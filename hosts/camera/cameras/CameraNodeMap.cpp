// SPDX-License-Identifier: Apache-2.0
#include "cameras/CameraNodeMap.h"

#include "cameras/CameraError.h"
#include "cameras/GErrorHolder.h"
#include "cameras/GLibErrors.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <arv.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::int64_t kInt64Min = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kInt64Max = std::numeric_limits<std::int64_t>::max();

// A limit that a description leaves out comes back as an error of the description next to a usable
// default; an error of the connection must not pass for a limit.
int limitError(const GErrorHolder& error)
{
    return isDeviceError(error.get()) ? cameraErrorOf(error.get()) : CameraError::Ok;
}

} // namespace

CameraNodeMap::CameraNodeMap(ArvGc* map, const DescriptionNodes& nodes)
    : m_map(map)
    , m_nodes(nodes)
{
}

ArvGcNode* CameraNodeMap::node(const std::string& name, int* error)
{
    *error = CameraError::Ok;
    ArvGcNode* result = m_nodes.find(name) ? arv_gc_get_node(m_map, name.c_str()) : nullptr;
    if (!result || !ARV_IS_GC_FEATURE_NODE(result)) {
        *error = CameraError::NodeNotFound;
        return nullptr;
    }
    if (m_nodes.has(name, DescriptionNodes::Faulty))
        *error = CameraError::BrokenDescription;
    else if (m_nodes.has(name, DescriptionNodes::OpenLength))
        *error = checkOpenLengths(name);
    return *error == CameraError::Ok ? result : nullptr;
}

int CameraNodeMap::checkOpenLengths(const std::string& name)
{
    const DescriptionNode* described = m_nodes.find(name);
    for (const std::string& reference : described->references) {
        if (!m_nodes.has(reference, DescriptionNodes::OpenLength))
            continue;
        if (const int error = checkOpenLengths(reference))
            return error;
    }
    for (const std::string& lengthNode : described->lengths) {
        std::int64_t length = 0;
        if (const int error = getInteger(lengthNode, &length))
            return error;
        if (length < 1 || length > DescriptionNodes::kMaxRegisterBytes)
            return CameraError::BrokenDescription;
    }
    return CameraError::Ok;
}

int CameraNodeMap::getInteger(const std::string& name, std::int64_t* value)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    GErrorHolder error;
    if (ARV_IS_GC_INTEGER(found)) {
        *value = arv_gc_integer_get_value(ARV_GC_INTEGER(found), error.out());
    } else if (ARV_IS_GC_BOOLEAN(found)) {
        *value = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(found), error.out()) ? 1 : 0;
    } else if (ARV_IS_GC_FLOAT(found)) {
        const double real = std::floor(arv_gc_float_get_value(ARV_GC_FLOAT(found), error.out()));
        constexpr double kEdge = 9.2e18;
        *value = std::fabs(real) < kEdge ? static_cast<std::int64_t>(real) : 0;
    } else {
        return CameraError::WrongType;
    }
    return cameraErrorOf(error.get());
}

int CameraNodeMap::setInteger(const std::string& name, std::int64_t value)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    GErrorHolder error;
    if (ARV_IS_GC_ENUMERATION(found))
        return setEnumeration(name, value);
    else if (ARV_IS_GC_INTEGER(found))
        arv_gc_integer_set_value(ARV_GC_INTEGER(found), value, error.out());
    else if (ARV_IS_GC_BOOLEAN(found))
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(found), value != 0, error.out());
    else
        return CameraError::WrongType;
    return cameraErrorOf(error.get());
}

// Not by the node-map library: it would read the deciding nodes of every entry without looking at
// what they lead to, and the caller has looked at the one that counts.
int CameraNodeMap::setEnumeration(const std::string& name, std::int64_t value)
{
    const DescriptionNode* described = m_nodes.find(name);
    const bool known = std::any_of(described->entries.begin(), described->entries.end(),
                                   [value](const auto& entry) { return entry.value == value; });
    if (!known)
        return CameraError::OutOfRange;
    if (!described->pValue.empty())
        return setInteger(described->pValue, value);
    // The node itself holds the value: only the library can change it.
    for (const DescriptionEntry& entry : described->entries) {
        for (const std::string* decider :
             {&entry.pIsImplemented, &entry.pIsAvailable, &entry.pIsLocked}) {
            if (!decider->empty() && (m_nodes.has(*decider, DescriptionNodes::Faulty) ||
                                      m_nodes.has(*decider, DescriptionNodes::OpenLength)))
                return CameraError::BrokenDescription;
        }
    }
    GErrorHolder error;
    arv_gc_enumeration_set_int_value(ARV_GC_ENUMERATION(arv_gc_get_node(m_map, name.c_str())),
                                     value, error.out());
    return cameraErrorOf(error.get());
}

int CameraNodeMap::getFloat(const std::string& name, double* value)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    GErrorHolder error;
    if (ARV_IS_GC_FLOAT(found))
        *value = arv_gc_float_get_value(ARV_GC_FLOAT(found), error.out());
    else if (ARV_IS_GC_INTEGER(found))
        *value = static_cast<double>(arv_gc_integer_get_value(ARV_GC_INTEGER(found), error.out()));
    else
        return CameraError::WrongType;
    return cameraErrorOf(error.get());
}

int CameraNodeMap::setFloat(const std::string& name, double value)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    if (!ARV_IS_GC_FLOAT(found))
        return CameraError::WrongType;
    GErrorHolder error;
    arv_gc_float_set_value(ARV_GC_FLOAT(found), value, error.out());
    return cameraErrorOf(error.get());
}

int CameraNodeMap::getString(const std::string& name, std::string* value)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    if (!ARV_IS_GC_STRING(found) || ARV_IS_GC_ENUMERATION(found))
        return CameraError::WrongType;
    GErrorHolder error;
    const char* text = arv_gc_string_get_value(ARV_GC_STRING(found), error.out());
    if (!error.get())
        *value = text ? text : "";
    return cameraErrorOf(error.get());
}

int CameraNodeMap::setString(const std::string& name, const std::string& value)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    if (!ARV_IS_GC_STRING(found) || ARV_IS_GC_ENUMERATION(found))
        return CameraError::WrongType;
    GErrorHolder error;
    arv_gc_string_set_value(ARV_GC_STRING(found), value.c_str(), error.out());
    return cameraErrorOf(error.get());
}

int CameraNodeMap::integerLimits(const std::string& name, std::int64_t* minimum,
                                 std::int64_t* maximum, std::int64_t* increment)
{
    *minimum = kInt64Min;
    *maximum = kInt64Max;
    *increment = 1;
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found || !ARV_IS_GC_INTEGER(found) || m_nodes.has(name, DescriptionNodes::FaultyLimits))
        return code;
    ArvGcInteger* integer = ARV_GC_INTEGER(found);
    GErrorHolder error;
    *minimum = arv_gc_integer_get_min(integer, error.out());
    if ((code = limitError(error)))
        return code;
    *maximum = arv_gc_integer_get_max(integer, error.out());
    if ((code = limitError(error)))
        return code;
    *increment = arv_gc_integer_get_inc(integer, error.out());
    if (*increment < 1)
        *increment = 1;
    return limitError(error);
}

int CameraNodeMap::floatLimits(const std::string& name, double* minimum, double* maximum)
{
    *minimum = -std::numeric_limits<double>::max();
    *maximum = std::numeric_limits<double>::max();
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found || !ARV_IS_GC_FLOAT(found) || m_nodes.has(name, DescriptionNodes::FaultyLimits))
        return code;
    GErrorHolder error;
    *minimum = arv_gc_float_get_min(ARV_GC_FLOAT(found), error.out());
    if ((code = limitError(error)))
        return code;
    *maximum = arv_gc_float_get_max(ARV_GC_FLOAT(found), error.out());
    return limitError(error);
}

int CameraNodeMap::decides(const std::string& name, bool whenAbsent, bool* result)
{
    *result = whenAbsent;
    if (name.empty())
        return CameraError::Ok;
    std::int64_t value = 0;
    const int error = getInteger(name, &value);
    *result = value != 0;
    // The name comes from the description, not from the caller.
    return error == CameraError::NodeNotFound ? CameraError::BrokenDescription : error;
}

bool CameraNodeMap::isUsable(const DescriptionEntry& entry)
{
    bool implemented = true;
    bool available = true;
    bool locked = false;
    return decides(entry.pIsImplemented, true, &implemented) == CameraError::Ok && implemented &&
           decides(entry.pIsAvailable, true, &available) == CameraError::Ok && available &&
           decides(entry.pIsLocked, false, &locked) == CameraError::Ok && !locked;
}

int CameraNodeMap::access(const std::string& name, Access* result)
{
    int code = CameraError::Ok;
    ArvGcNode* found = node(name, &code);
    if (!found)
        return code;
    result->available = !m_nodes.has(name, DescriptionNodes::NeedsData);
    // A node is only as accessible as the node that it takes its value from.
    for (const DescriptionNode* link = m_nodes.find(name); link;
         link = link->pValue.empty() ? nullptr : m_nodes.find(link->pValue)) {
        bool implemented = true;
        bool available = true;
        bool locked = false;
        if ((code = decides(link->pIsImplemented, true, &implemented)) ||
            (code = decides(link->pIsAvailable, true, &available)) ||
            (code = decides(link->pIsLocked, false, &locked)))
            return code;
        result->implemented = result->implemented && implemented;
        result->available = result->available && available;
        result->locked = result->locked || locked;
    }
    const ArvGcAccessMode mode =
        arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(found));
    result->readable = mode == ARV_GC_ACCESS_MODE_RO || mode == ARV_GC_ACCESS_MODE_RW;
    result->writable = mode == ARV_GC_ACCESS_MODE_WO || mode == ARV_GC_ACCESS_MODE_RW;
    return CameraError::Ok;
}

int CameraNodeMap::accessMode(const std::string& name, int* mode)
{
    *mode = OB_FT_ACCESS_NOT_IMPLEMENTED;
    Access allowed;
    if (const int error = access(name, &allowed))
        return error;
    if (!allowed.implemented)
        *mode = OB_FT_ACCESS_NOT_IMPLEMENTED;
    else if (!allowed.available)
        *mode = OB_FT_ACCESS_NOT_AVAILABLE;
    else if (!allowed.readable)
        *mode = allowed.writable ? OB_FT_ACCESS_WRITE_ONLY : OB_FT_ACCESS_NOT_AVAILABLE;
    else
        *mode =
            allowed.writable && !allowed.locked ? OB_FT_ACCESS_READ_WRITE : OB_FT_ACCESS_READ_ONLY;
    return CameraError::Ok;
}
