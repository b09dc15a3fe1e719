// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

// How one transfer of a look-up table ended. A plain value.
struct LUTTransferReport
{
    enum Outcome {
        Completed, // every point
        Failed,    // the camera refused something
        Stopped    // by the user, who closed the window or left the camera
    };
    int type = 0; // ORXLUTThread::ThreadType
    qint64 cameraId = -1;
    int done = 0;  // points that were read or written
    int total = 0; // 0 when not even the table's size could be read
    Outcome outcome = Failed;
};
