// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/OBDeviceControl.h"
#include "lut/LUTPoint.h"
#include "support/Guarded.h"

#include <QVector>

#include <atomic>
#include <condition_variable>
#include <cstring>
#include <functional>

// The values of a table, in its order.
inline QVector<int> valuesOf(const LUTPoints& points)
{
    QVector<int> values;
    for (const LUTPoint& point : points)
        values.append(point.value);
    return values;
}

// A camera of which nothing exists but a look-up table, served through the device layer's
// callbacks: "LUTIndex" selects, "LUTValue" is the value there. Safe to call from several threads.
class LutCamera : Guarded
{
public:
    explicit LutCamera(int points = 1024, qint64 maximumValue = 4095)
        : m_table(points)
        , m_maximumIndex(points - 1)
        , m_maximumValue(maximumValue)
    {
        OBDeviceControl::SetCallBackFunc(getFeature, setFeature, getMode, nullptr, nullptr, this);
        m_calls = 0;
    }
    ~LutCamera()
    {
        release();
        OBDeviceControl::SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    }
    LutCamera(const LutCamera&) = delete;
    LutCamera& operator=(const LutCamera&) = delete;

    QVector<int> table() const { return copied(m_table); }
    void setTable(const std::function<int(int index)>& value)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (int i = 0; i < m_table.size(); ++i)
            m_table[i] = value(i);
    }
    // What the camera says of itself, whatever the table is.
    void announce(qint64 maximumIndex, qint64 maximumValue)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_maximumIndex = maximumIndex;
        m_maximumValue = maximumValue;
    }

    // From the call with this number on every call fails, as if the cable were pulled; 0 never.
    void unplugAtCall(int call) { m_unplugAt = call; }
    // Writes of the value at this index are refused.
    void refuseValueAt(int index) { m_refusedValue = index; }
    // Selecting this index is refused.
    void refuseIndex(int index) { m_refusedIndex = index; }
    // The call with this number waits until release().
    void holdAtCall(int call) { m_holdAt = call; }
    bool isHolding() const { return m_holding; }
    void release()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_holdAt = 0;
        m_released.notify_all();
    }

    int calls() const { return m_calls; }
    // Indexes whose value was written, in order.
    QVector<int> written() const { return copied(m_written); }

private:
    bool begin()
    {
        const int call = ++m_calls;
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            if (m_holdAt == call) {
                m_holding = true;
                m_released.wait(lock, [this] { return m_holdAt == 0; });
                m_holding = false;
            }
        }
        return m_unplugAt == 0 || call < m_unplugAt;
    }
    static int getFeature(int type, char* name, void* value, void* user)
    {
        auto* camera = static_cast<LutCamera*>(user);
        if (type != OB_FT_TYPE_INTEGER || !camera->begin())
            return -5;
        const std::lock_guard<std::mutex> lock(camera->m_mutex);
        auto* record = static_cast<_ZDCC_INTVALUE_EX_T*>(value);
        if (std::strcmp(name, "LUTIndex") == 0) {
            record->value = camera->m_index;
            record->maximum = camera->m_maximumIndex;
            return 0;
        }
        if (std::strcmp(name, "LUTValue") != 0)
            return -1;
        record->value = camera->m_table.value(static_cast<int>(camera->m_index));
        record->maximum = camera->m_maximumValue;
        return 0;
    }
    static int setFeature(int, char* name, char* value, void* user)
    {
        auto* camera = static_cast<LutCamera*>(user);
        if (!camera->begin())
            return -5;
        const std::lock_guard<std::mutex> lock(camera->m_mutex);
        const qint64 number = QByteArray(value).toLongLong();
        if (std::strcmp(name, "LUTIndex") == 0) {
            if (number < 0 || number >= camera->m_table.size() || number == camera->m_refusedIndex)
                return -3;
            camera->m_index = number;
            return 0;
        }
        const int index = static_cast<int>(camera->m_index);
        if (number < 0 || number > camera->m_maximumValue || index == camera->m_refusedValue)
            return -3;
        camera->m_table[index] = static_cast<int>(number);
        camera->m_written.append(index);
        return 0;
    }
    static int getMode(char*, int* mode, void*)
    {
        *mode = OB_FT_ACCESS_READ_WRITE;
        return 0;
    }

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
