// SPDX-License-Identifier: Apache-2.0
#pragma once

// Whether the caller is on the GUI thread; true as long as there is no application.
bool onGuiThread();
