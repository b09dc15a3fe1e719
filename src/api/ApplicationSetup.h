// SPDX-License-Identifier: Apache-2.0
#pragma once

// What the library sets up once in the host's application: style, resource packs, plug-in path,
// theme. GUI thread; needs a QApplication.
namespace ApplicationSetup {

// Does it on the first call of the process; it is never undone.
void runOnce();

} // namespace ApplicationSetup
