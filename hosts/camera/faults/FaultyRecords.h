// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "faults/FaultPlan.h"

#include <string>

// What faults do to records and descriptions.
namespace FaultyRecords {

// Spoils a record that belongs to `type` (an OB_FT_TYPE_ code) as the rule says.
void spoil(const FaultPlan::Rule& rule, int type, void* record);

// The description with over-long names and texts where the plan asks for them. Text that is not
// well-formed stays as it is.
std::string spoilDescription(const FaultPlan& plan, const std::string& xml);

constexpr int kLongText = 10000; // characters

} // namespace FaultyRecords
