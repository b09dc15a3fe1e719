// SPDX-License-Identifier: Apache-2.0
#include "description/DescriptionNode.h"

#include <algorithm>
#include <array>
#include <string_view>

bool DescriptionNode::isFeature() const
{
    constexpr std::array<std::string_view, 9> kTags{"Boolean",     "Command", "Integer",
                                                    "IntReg",      "Float",   "Converter",
                                                    "Enumeration", "String",  "StringReg"};
    return std::find(kTags.begin(), kTags.end(), tag) != kTags.end();
}
