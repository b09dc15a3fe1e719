// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "description/DescriptionNodes.h"

#include <cstdint>
#include <string>

typedef struct _ArvGc ArvGc;
typedef struct _ArvGcNode ArvGcNode;

// Typed access to the nodes of one camera: the rules of reading, writing and access modes on top of
// the node-map library's arithmetic. Not thread-safe; the camera that owns it serialises.
// Results are CameraError codes; see Camera for what the operations promise.
class CameraNodeMap
{
public:
    // `nodes` must describe the same text as `map`; both must outlive this object.
    CameraNodeMap(ArvGc* map, const DescriptionNodes& nodes);

    int read(int type, const std::string& name, void* record);
    int write(int type, const std::string& name, const std::string& text);
    int accessMode(const std::string& name, int* mode);

    // Access without regard to modes, locks and ranges, for the simulation and its tests.
    // getInteger also answers for booleans, enumerations and floats.
    int getInteger(const std::string& name, std::int64_t* value);
    int setInteger(const std::string& name, std::int64_t value);
    int getFloat(const std::string& name, double* value);
    int setFloat(const std::string& name, double value);
    int getString(const std::string& name, std::string* value);
    int setString(const std::string& name, const std::string& value);

    // Limits of a numeric node; where the description gives none or a faulty one, the greatest
    // that the type allows. The increment is 1 or more.
    int integerLimits(const std::string& name, std::int64_t* minimum, std::int64_t* maximum,
                      std::int64_t* increment);
    int floatLimits(const std::string& name, double* minimum, double* maximum);

    // True when the deciding nodes let the entry be chosen now.
    bool isUsable(const DescriptionEntry& entry);

    const DescriptionNodes& nodes() const { return m_nodes; }

private:
    // What stands between a caller and a value.
    struct Access
    {
        bool implemented = true;
        bool available = true;
        bool locked = false;
        bool readable = false;
        bool writable = false;
    };

    ArvGcNode* node(const std::string& name, int* error);
    int checkOpenLengths(const std::string& name);
    int access(const std::string& name, Access* result);
    int readInteger(const std::string& name, void* record);
    int readBoolean(const std::string& name, void* record);
    int readFloat(const std::string& name, void* record);
    int readString(const std::string& name, void* record);
    int readEnumeration(const std::string& name, void* record);
    int writeInteger(const std::string& name, const std::string& text);
    int writeBoolean(const std::string& name, const std::string& text);
    int writeFloat(const std::string& name, const std::string& text);
    int writeString(const std::string& name, const std::string& text);
    int writeEnumeration(const std::string& name, const std::string& text);
    int execute(const std::string& name, const std::string& text);
    int setEnumeration(const std::string& name, std::int64_t value);
    int decides(const std::string& name, bool whenAbsent, bool* result);

    ArvGc* m_map;                    // Not owned.
    const DescriptionNodes& m_nodes; // Not owned.
};
