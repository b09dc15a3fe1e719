// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

// Limits of XML that comes from outside, checked before a DOM is built: the DOM's own destructor
// recurses, so a text nested without bound would end the host's process. A document type
// declaration is refused as a whole: its entities grow without bound in the parser, and none of the
// texts that the library reads has use for one.
namespace XmlLimits {

constexpr std::size_t kMaxBytes = std::size_t{64} * 1024 * 1024;
constexpr int kMaxDepth = 1000;

// True when the text is small and flat enough to be parsed and declares no document type. One pass
// over the bytes, which are UTF-8; looks only at tags, comments, CDATA, declarations and processing
// instructions and does not check the text otherwise.
bool acceptable(const char* text, std::size_t bytes);

} // namespace XmlLimits
