// SPDX-License-Identifier: Apache-2.0
#pragma once

class QThread;

// Waits until a thread that was told to stop has ended, which takes as long as the host call that
// is in progress. What takes more than a second is said in the log, with `who` in front.
void waitForThread(QThread& thread, const char* who);
