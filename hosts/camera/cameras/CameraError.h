// SPDX-License-Identifier: Apache-2.0
#pragma once

// Results of every Camera operation: 0 is success, all others are the codes that the host hands to
// the feature window, which shows them as they are. The values stay clear of the window's own
// codes (0x80000000 and 0x80000106).
namespace CameraError {

enum Code : int {
    Ok = 0,
    NodeNotFound = static_cast<int>(0x80010001U),      // no feature of that name
    WrongType = static_cast<int>(0x80010002U),         // the feature has no value of that type
    NotReadable = static_cast<int>(0x80010003U),       // write-only, unavailable or a command
    NotWritable = static_cast<int>(0x80010004U),       // read-only, locked or unavailable
    OutOfRange = static_cast<int>(0x80010005U),        // outside minimum, maximum or entries
    InvalidText = static_cast<int>(0x80010006U),       // the text is no value of the type
    NotConnected = static_cast<int>(0x80010007U),      // the camera is gone
    Timeout = static_cast<int>(0x80010008U),           // the camera did not answer in time
    Transfer = static_cast<int>(0x80010009U),          // the camera answered with an error
    BrokenDescription = static_cast<int>(0x8001000AU), // missing node, circular reference, formula
    NoDescription = static_cast<int>(0x8001000BU),     // the description could not be parsed
    Busy = static_cast<int>(0x8001000CU),              // the camera works on an earlier command
    Internal = static_cast<int>(0x800100FFU)           // an exception inside the host
};

// English text of a code, "unknown error" for foreign ones. Never null.
const char* text(int code);

} // namespace CameraError
