// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPoint.h"

#include <QVector>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>

// The values of a table, in its order.
QVector<int> valuesOf(const LUTPoints& points);

// A camera of which nothing exists but a look-up table, served through the device layer's
// callbacks: "LUTIndex" selects, "LUTValue" is the value there. Safe to call from several threads.
class LutCamera
{
public:
    explicit LutCamera(int points = 1024, qint64 maximumValue = 4095);
    ~LutCamera();
    LutCamera(const LutCamera&) = delete;
    LutCamera& operator=(const LutCamera&) = delete;

    QVector<int> table() const;
    void setTable(const std::function<int(int index)>& value);
    // What the camera says of itself, whatever the table is.
    void announce(qint64 maximumIndex, qint64 maximumValue);

    // From the call with this number on every call fails, as if the cable were pulled; 0 never.
    void unplugAtCall(int call) { m_unplugAt = call; }
    // Writes of the value at this index are refused.
    void refuseValueAt(int index) { m_refusedValue = index; }
    // Selecting this index is refused.
    void refuseIndex(int index) { m_refusedIndex = index; }
    // The call with this number waits until release().
    void holdAtCall(int call) { m_holdAt = call; }
    bool isHolding() const { return m_holding; }
    void release();
    // The same, once somebody has waited for the call for so long that the log says so.
    void releaseWhenAwaited();

    int calls() const { return m_calls; }
    // Indexes whose value was written, in order.
    QVector<int> written() const;

private:
    bool begin();
    static int getFeature(int type, char* name, void* value, void* user);
    static int setFeature(int type, char* name, char* value, void* user);
    static int getMode(char* name, int* mode, void* user);

    mutable std::mutex m_mutex;
    std::condition_variable m_released;
    QVector<int> m_table;
    QVector<int> m_written;
    qint64 m_maximumIndex;
    qint64 m_maximumValue;
    qint64 m_index = 0;
    std::atomic<int> m_calls{0};
    std::atomic<int> m_unplugAt{0};
    std::atomic<int> m_holdAt{0};
    std::atomic<int> m_refusedValue{-1};
    std::atomic<int> m_refusedIndex{-1};
    std::atomic<bool> m_holding{false};
};
