// SPDX-License-Identifier: Apache-2.0
#include "pages/MeddledCamera.h"

#include "cameras/CameraError.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <algorithm>

MeddledCamera::MeddledCamera(Camera& camera, const QStringList& lacking)
    : m_camera(camera)
{
    QByteArray xml = QByteArray::fromStdString(camera.descriptionXml());
    for (const QString& name : lacking)
        xml.replace("<pFeature>" + name.toLatin1() + "</pFeature>", "");
    m_xml = xml.toStdString();
}

int MeddledCamera::failureOf(const std::string& name, Calls call) const
{
    if (m_unplugged)
        return CameraError::NotConnected;
    const auto found = m_failures.find(name);
    return found == m_failures.end() || !(found->second.calls & call) ? 0 : found->second.code;
}

void MeddledCamera::passGate(std::unique_lock<std::mutex>& lock, const std::string& name,
                             Calls call)
{
    ++m_held;
    m_opened.wait(lock, [&] { return m_gated != name || !(m_gatedCalls & call); });
    --m_held;
}

int MeddledCamera::read(int type, const std::string& name, void* record)
{
    if (beforeRead)
        beforeRead(QString::fromStdString(name));
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        passGate(lock, name, Reads);
        if (const int code = failureOf(name, Reads))
            return code;
    }
    const int result = m_camera.read(type, name, record);
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto increment = m_increments.find(name);
    if (increment != m_increments.end() && type == OB_FT_TYPE_INTEGER)
        static_cast<_ZDCC_INTVALUE_EX_T*>(record)->increment = increment->second;
    return result;
}

int MeddledCamera::write(int type, const std::string& name, const std::string& text)
{
    if (beforeWrite)
        beforeWrite(QString::fromStdString(name));
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_writes.append(QString::fromStdString(text.empty() ? name : name + "=" + text));
        m_most[name] = std::max(m_most[name], ++m_running[name]);
        passGate(lock, name, Writes);
        --m_running[name];
        if (const int code = failureOf(name, Writes))
            return code;
    }
    return m_camera.write(type, name, text);
}

int MeddledCamera::accessMode(const std::string& name, int* mode)
{
    if (m_unplugged)
        return CameraError::NotConnected;
    const int result = m_camera.accessMode(name, mode);
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_hidden.count(name) > 0)
        *mode = OB_FT_ACCESS_NOT_IMPLEMENTED;
    else if (m_locked.count(name) > 0)
        *mode = OB_FT_ACCESS_READ_ONLY;
    return result;
}

void MeddledCamera::fail(const char* name, int code, Calls calls)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_failures[name] = {code, calls};
}

void MeddledCamera::lock(const char* name, bool locked)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    if (locked)
        m_locked.insert(name);
    else
        m_locked.erase(name);
}

void MeddledCamera::hide(const char* name, bool hidden)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (hidden)
        m_hidden.insert(name);
    else
        m_hidden.erase(name);
}

void MeddledCamera::setIncrement(const char* name, qint64 increment)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_increments[name] = increment;
}

void MeddledCamera::closeGate(const char* name, Calls calls)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_gated = name;
    m_gatedCalls = calls;
}

void MeddledCamera::openGate()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_gated.clear();
    }
    m_opened.notify_all();
}

bool MeddledCamera::isHolding() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_held > 0;
}

QStringList MeddledCamera::writes() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_writes;
}

int MeddledCamera::writesOf(const char* name) const
{
    const QString text = QString::fromLatin1(name);
    const QStringList all = writes();
    return static_cast<int>(std::count_if(all.begin(), all.end(), [&](const QString& write) {
        return write == text || write.startsWith(text + QLatin1Char('='));
    }));
}

int MeddledCamera::mostAtOnce(const char* name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_most.find(name);
    return found == m_most.end() ? 0 : found->second;
}

void MeddledCamera::forget()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_writes.clear();
    m_most.clear();
}
