// SPDX-License-Identifier: Apache-2.0
#include "cameras/CameraError.h"

#include <array>

namespace CameraError {

namespace {

struct Entry
{
    Code code;
    const char* text;
};

constexpr std::array<Entry, 14> kTexts{{
    {Ok, "no error"},
    {NodeNotFound, "no feature of that name"},
    {WrongType, "the feature has no value of that type"},
    {NotReadable, "the feature cannot be read now"},
    {NotWritable, "the feature cannot be written now"},
    {OutOfRange, "the value is out of range"},
    {InvalidText, "the text is not a value of this type"},
    {NotConnected, "the camera is not connected"},
    {Timeout, "the camera did not answer in time"},
    {Transfer, "the camera answered with an error"},
    {BrokenDescription, "the feature description is faulty here"},
    {NoDescription, "the feature description could not be parsed"},
    {Busy, "the camera is busy"},
    {Internal, "internal error of the host"},
}};

} // namespace

const char* text(int code)
{
    for (const Entry& entry : kTexts) {
        if (entry.code == code)
            return entry.text;
    }
    return "unknown error";
}

} // namespace CameraError
