// SPDX-License-Identifier: Apache-2.0
#pragma once

class DemoContext;

// The behaviours of the demo camera, one function for each field. Each enters its actions into the
// context's table; the context must outlive the table.
namespace DemoBehaviours {

void time(DemoContext& demo);          // time stamps, temperatures, timers
void acquisition(DemoContext& demo);   // start, stop, frames, locks, status, chunks, events
void trigger(DemoContext& demo);       // software trigger and counters
void autoFunctions(DemoContext& demo); // exposure, gain and white balance that move by themselves
void imageFormat(DemoContext& demo);   // sizes that follow binning and decimation
void colour(DemoContext& demo);        // look-up table start values
void colourMatrix(DemoContext& demo);  // colour matrix against standard transformation
void inputs(DemoContext& demo);        // lines
void encoders(DemoContext& demo);      // encoders, frequency converter
void userSets(DemoContext& demo);      // user sets
void sequencer(DemoContext& demo);     // sequencer sets
void files(DemoContext& demo);         // file access
void slowCommands(DemoContext& demo);  // shading, common network time, test features

// All of them.
void install(DemoContext& demo);

} // namespace DemoBehaviours
