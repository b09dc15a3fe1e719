// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

// Limits of XML that comes from outside, checked before a DOM is built: the DOM's own destructor
// recurses, so a text nested without bound would end the host's process.
namespace XmlLimits {

constexpr std::size_t kMaxBytes = std::size_t{64} * 1024 * 1024;
constexpr int kMaxDepth = 1000;

// True when the text is small and flat enough to be parsed. One pass over the bytes; looks only at
// tags, comments, CDATA and processing instructions and does not check the text otherwise.
bool acceptable(const char* text, std::size_t bytes);

} // namespace XmlLimits
