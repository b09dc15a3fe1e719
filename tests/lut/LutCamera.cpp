// SPDX-License-Identifier: Apache-2.0
#include "lut/LutCamera.h"

#include "device/OBDeviceControl.h"
#include "support/Literals.h"
#include "support/MessageGuard.h"

#include <cstring>
#include <thread>

QVector<int> valuesOf(const LUTPoints& points)
{
    QVector<int> values;
    for (const LUTPoint& point : points)
        values.append(point.value);
    return values;
}

LutCamera::LutCamera(int points, qint64 maximumValue)
    : m_table(points)
    , m_maximumIndex(points - 1)
    , m_maximumValue(maximumValue)
{
    OBDeviceControl::SetCallBackFunc(getFeature, setFeature, getMode, nullptr, nullptr, this);
    m_calls = 0;
}

LutCamera::~LutCamera()
{
    release();
    OBDeviceControl::SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

QVector<int> LutCamera::table() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_table;
}

void LutCamera::setTable(const std::function<int(int)>& value)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (int i = 0; i < m_table.size(); ++i)
        m_table[i] = value(i);
}

void LutCamera::announce(qint64 maximumIndex, qint64 maximumValue)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_maximumIndex = maximumIndex;
    m_maximumValue = maximumValue;
}

void LutCamera::releaseWhenAwaited()
{
    while (!MessageGuard::contains("LUT: waiting for a call of the host to return"_s))
        std::this_thread::yield();
    release();
}

void LutCamera::release()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_holdAt = 0;
    m_released.notify_all();
}

QVector<int> LutCamera::written() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_written;
}

bool LutCamera::begin()
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

int LutCamera::getFeature(int type, char* name, void* value, void* user)
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

int LutCamera::setFeature(int, char* name, char* value, void* user)
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

int LutCamera::getMode(char*, int* mode, void*)
{
    *mode = OB_FT_ACCESS_READ_WRITE;
    return 0;
}
