// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

// Numbers in texts, always in the C locale.
namespace TextNumbers {

// A decimal signed 64-bit integer that fills the whole text. False leaves *value alone.
bool parse(const std::string& text, std::int64_t* value);

// A finite decimal number, exponent form included, that fills the whole text.
bool parse(const std::string& text, double* value);

} // namespace TextNumbers
