// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/DeviceRecord.h"

#include <string>

// A camera as the callbacks of the feature window see it. Owned by whoever creates it; it must
// outlive the HostCallbacks that use it.
//
// Threads: every operation may be called from any thread, several at once; implementations
// serialise. Calls never throw and never call back into the caller.
// Results: 0 or a CameraError code. Names are node names of the description, case-sensitive.
class Camera
{
public:
    virtual ~Camera() = default;

    // The feature description as UTF-8, with an XML declaration that says so. Never changes while
    // the camera lives. May be text that does not parse.
    virtual const std::string& descriptionXml() const = 0;

    virtual DeviceRecord deviceRecord() const = 0;

    // Fills the record that belongs to `type` (an OB_FT_TYPE_ code): _ZDCC_INTVALUE_EX_T, one byte
    // for a boolean, _ZDCC_FLOATVALUE_T, _ZDCC_STRINGVALUE_T or _ZDCC_ENUMVALUE_T. On an error the
    // record is left alone. An integer read also answers for booleans, enumerations and floats
    // (rounded down), because access predicates may be of any of these kinds.
    // NodeNotFound, WrongType, NotReadable, NotConnected, Timeout, Transfer, BrokenDescription.
    virtual int read(int type, const std::string& name, void* record) = 0;

    // Writes the UTF-8 text: decimal for integers and enumerations (the entry's unsigned 32-bit
    // value), "0" or "1", a decimal or exponent number in the C locale, or the string itself. For
    // a command the text is ignored and the command starts.
    // As read(), and NotWritable, OutOfRange, InvalidText, Busy.
    virtual int write(int type, const std::string& name, const std::string& text) = 0;

    // Stores an OB_FT_ACCESS_ code in *mode. A read-write feature that is locked now is read-only;
    // a locked write-only feature stays write-only and refuses the write.
    // NodeNotFound, NotConnected, Timeout, Transfer, BrokenDescription.
    virtual int accessMode(const std::string& name, int* mode) = 0;

    // Forgets values that the host side has cached; the next reads ask the camera.
    virtual int invalidate() = 0;

    // False once the camera is known to be gone: unplugged, reset or out of reach.
    virtual bool isConnected() const = 0;

    // Tries once to bring a lost camera back; NotConnected while it cannot be reached. Success for
    // a camera that is connected.
    virtual int reconnect() = 0;
};
