// SPDX-License-Identifier: Apache-2.0
#pragma once

#ifndef OBFT_TEST_TIMEOUT_FACTOR
#define OBFT_TEST_TIMEOUT_FACTOR 1
#endif

// How long a test waits for what the whole window takes a while to do, on a loaded machine. Under
// an emulator it waits longer, as ctest does.
constexpr int kWindowPatienceMs = 20000 * OBFT_TEST_TIMEOUT_FACTOR;
