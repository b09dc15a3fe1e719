// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPoint.h"
#include "lut/LUTTransferReport.h"

#include <functional>

class StopRequest;

// Carries one look-up table from or to the camera, point by point over "LUTIndex" and "LUTValue".
// Used for one table, by one of the two operations; a local of the worker's job, on its thread.
// Ends before the host's next call when a stop is requested.
class LUTTransfer
{
public:
    using Progress = std::function<void(int done, int total)>;

    // `stop` is not owned. `progress` is called at most about a hundred times for a table.
    LUTTransfer(const StopRequest& stop, const Progress& progress);

    // Reads the whole table; ends at the first point that the camera refuses.
    void GetPointFromCamera();
    // Writes the values of the points to the indexes from 0 on; passes over what is refused.
    void SetPointToCamera(const LUTPoints& points);

    // How it ended; job and camera are left to the caller.
    const LUTTransferReport& report() const { return m_report; }
    // What was read: whole after LUTTransferReport::Completed, values within 0 to maximumValue().
    const LUTPoints& points() const { return m_points; }
    int maximumIndex() const { return m_nMaximumIndex; }
    int maximumValue() const { return m_nMaximumValue; }

private:
    // False when the host refuses. The values are the host's, unchecked.
    static bool GetLutIndex(long long& value, long long& maximum, long long& minimum);
    static bool SetLutIndex(long long value);
    static bool GetLutValue(long long& value, long long& maximum, long long& minimum);
    static bool SetLutValue(long long value);
    void GetPointGroup();
    void countPoint();

    const StopRequest& m_stop; // Not owned.
    const Progress m_progress;
    LUTTransferReport m_report;
    LUTPoints m_points;
    int m_nMaximumIndex = 0;
    int m_nMaximumValue = 0;
};
