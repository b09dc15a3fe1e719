// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

// What well-known features of a camera usually read, for simulations that know nothing better.
namespace TypicalValues {

// Nothing for names without a typical number.
std::optional<double> number(const std::string& feature);

// Text of an identification feature; the name itself for all others.
std::string text(const std::string& feature, const std::string& vendor, const std::string& model);

} // namespace TypicalValues
