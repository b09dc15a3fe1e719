// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "reading/ReadingPass.h"

#include <deque>

// How a request for a pass meets the passes that run or wait. Knows no thread: called under the
// lock that guards what it is given.
namespace PassAdmission {

enum class Answer {
    Refused, // nothing is left to be done
    Accepted,
    Replaces // accepted, and the running pass is to be ended for it
};

// Takes the request into `waiting`, by itself or joined with what waits already, unless the running
// pass covers it. `running` may be null.
Answer admit(const ReadingPass& wanted, std::deque<ReadingPass>& waiting,
             const ReadingPass* running);

} // namespace PassAdmission
