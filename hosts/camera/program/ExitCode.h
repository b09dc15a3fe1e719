// SPDX-License-Identifier: Apache-2.0
#pragma once

// What camera-host returns to the shell.
enum class ExitCode : int {
    Ok = 0,
    Failed = 1,  // a step failed, a picture could not be saved, the first read did not end
    Usage = 2,   // options that are not understood
    NoFile = 3,  // a file of the options cannot be read
    NoCamera = 4 // the camera cannot be opened
};
