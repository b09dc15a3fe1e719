// SPDX-License-Identifier: Apache-2.0
#include "pages/MeddledCamera.h"

#include "cameras/CameraError.h"
#include "support/Literals.h"

#include <algorithm>

MeddledCamera::MeddledCamera(Camera& camera, const QStringList& lacking)
    : m_camera(&camera)
{
    QByteArray xml = QByteArray::fromStdString(camera.descriptionXml());
    for (const QString& name : lacking)
        xml.replace("<pFeature>" + name.toLatin1() + "</pFeature>", "");
    m_xml = xml.toStdString();
}

int MeddledCamera::pass(std::unique_lock<std::mutex>& lock, Calls kind, const std::string& name,
                        const QString& call)
{
    m_calls.append(call);
    const auto found = std::find_if(m_toHold.begin(), m_toHold.end(), [&](const QString& each) {
        return call == each || call.startsWith(each + QLatin1Char('='));
    });
    const QString hold = found == m_toHold.end() ? QString() : *found;
    if (found != m_toHold.end()) {
        m_toHold.erase(found);
        m_holding.append(hold);
    }
    ++m_held;
    m_opened.wait(lock, [&] {
        return !m_holding.contains(hold) && (m_gated != name || !(m_gatedCalls & kind));
    });
    --m_held;
    if (m_unplugged)
        return CameraError::NotConnected;
    const auto failure = m_failures.find(name);
    return failure == m_failures.end() || !(failure->second.calls & kind) ? 0
                                                                          : failure->second.code;
}

int MeddledCamera::read(int type, const std::string& name, void* record)
{
    const QString feature = QString::fromStdString(name);
    if (beforeRead)
        beforeRead(feature);
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (const int code = pass(lock, Reads, name, "get "_s + feature))
            return code;
    }
    const int result = camera().read(type, name, record);
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
        const std::string call = "set " + (text.empty() ? name : name + "=" + text);
        std::unique_lock<std::mutex> lock(m_mutex);
        m_most[name] = std::max(m_most[name], ++m_running[name]);
        const int code = pass(lock, Writes, name, QString::fromStdString(call));
        --m_running[name];
        if (code != 0)
            return code;
    }
    return camera().write(type, name, text);
}

int MeddledCamera::accessMode(const std::string& name, int* mode)
{
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (const int code = pass(lock, Modes, name, "mode "_s + QString::fromStdString(name)))
            return code;
    }
    const int result = camera().accessMode(name, mode);
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_modes.find(name);
    if (found != m_modes.end() && found->second != kOwnMode)
        *mode = found->second;
    return result;
}

void MeddledCamera::closeGate(const char* name, Calls calls)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_gated = name;
    m_gatedCalls = calls;
}

void MeddledCamera::release(const QString& call)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_holding.removeAll(call);
    m_opened.notify_all();
}

void MeddledCamera::openGate()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_gated.clear();
    m_toHold.clear();
    m_holding.clear();
    m_opened.notify_all();
}

QStringList MeddledCamera::writes() const
{
    QStringList writes;
    for (const QString& call : calls()) {
        if (call.startsWith("set "_s))
            writes.append(call.mid(4));
    }
    return writes;
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
    m_calls.clear();
    m_most.clear();
}
