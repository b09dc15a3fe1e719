// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

#include <string>

// XML files as they come from disk or camera, turned into the UTF-8 that the feature window takes.
namespace DescriptionText {

// Decodes by byte-order mark, else by the look of UTF-16 without mark, else by the declared
// encoding, else as UTF-8 (as Latin-1 when the bytes are no UTF-8). The result has no mark, and a
// declaration that names an encoding names UTF-8. Text that is no XML passes through decoded.
std::string toUtf8(const QByteArray& raw);

} // namespace DescriptionText
