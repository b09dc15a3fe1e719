// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <glib.h>

// The CameraError code for an error of the node-map library; Ok for null.
int cameraErrorOf(const GError* error);

// True for an error that comes from the connection, not from the description.
bool isDeviceError(const GError* error);
