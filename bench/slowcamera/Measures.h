// SPDX-License-Identifier: Apache-2.0
#pragma once

// The measurements of bench_slowcamera, each printed as it comes. Times are multiples of the host's
// own call time, so that machines can be compared.
namespace Measures {

void editDuringFirstRead();
void rowsInSight();
void closingEverythingBusy();
void gapsOfTheEventLoop();

} // namespace Measures
