// SPDX-License-Identifier: Apache-2.0
#pragma once

// Why a pass found that a feature cannot be written now.
enum class ReadOnlyCause {
    None,         // it can, or nobody has asked the camera
    Locked,       // the node named by "pIsLocked" is not 0
    NotAvailable, // the node named by "pIsAvailable" is 0
    AccessMode    // the camera says so; the description may know why
};
