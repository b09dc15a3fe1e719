// SPDX-License-Identifier: Apache-2.0
#include "program/HostCallbacks.h"

#include "cameras/Camera.h"
#include "cameras/CameraError.h"

#include <QString>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

std::string fromLocal(const char* text)
{
    return text ? QString::fromLocal8Bit(text).toStdString() : std::string();
}

bool isLocaleUtf8()
{
    const QString probe(QChar(0x5BBD));
    return probe.toLocal8Bit() == probe.toUtf8();
}

// The camera gave UTF-8.
void convertToLocal(_ZDCC_STRINGVALUE_T& record)
{
    const std::size_t bytes = strnlen(record.value, sizeof record.value);
    if (bytes == sizeof record.value || isLocaleUtf8())
        return; // a text without end is handed on as it is
    const QByteArray local = QString::fromUtf8(record.value).toLocal8Bit();
    std::memset(record.value, 0, sizeof record.value);
    std::memcpy(
        record.value, local.constData(),
        std::min<std::size_t>(static_cast<std::size_t>(local.size()), sizeof record.value - 1));
}

// Counts a call and keeps exceptions in.
template <typename Function>
int guarded(CallCounter& calls, CallCounter::Kind kind, const std::string& name, Function function)
{
    calls.begin(kind, name);
    int result = CameraError::Internal;
    try {
        result = function();
    } catch (...) {
        result = CameraError::Internal;
    }
    calls.end(kind, name, result);
    return result;
}

} // namespace

HostCallbacks::HostCallbacks(Camera& camera)
    : m_camera(camera)
{
}

void HostCallbacks::setActionHandler(std::function<void(int)> handler)
{
    m_actionHandler = std::move(handler);
}

int HostCallbacks::getFeature(int type, char* name, void* value, void* user)
{
    auto* self = static_cast<HostCallbacks*>(user);
    const std::string feature = fromLocal(name);
    return guarded(self->m_calls, CallCounter::Read, feature, [&] {
        const int result = self->m_camera.read(type, feature, value);
        if (result == CameraError::Ok && type == OB_FT_TYPE_STRING)
            convertToLocal(*static_cast<_ZDCC_STRINGVALUE_T*>(value));
        return result;
    });
}

int HostCallbacks::setFeature(int type, char* name, char* value, void* user)
{
    auto* self = static_cast<HostCallbacks*>(user);
    const std::string feature = fromLocal(name);
    const std::string text = fromLocal(value);
    const int result = guarded(self->m_calls, CallCounter::Write, feature,
                               [&] { return self->m_camera.write(type, feature, text); });
    self->m_calls.noteWrite(type, feature, text, result);
    return result;
}

int HostCallbacks::getMode(char* name, int* mode, void* user)
{
    auto* self = static_cast<HostCallbacks*>(user);
    const std::string feature = fromLocal(name);
    return guarded(self->m_calls, CallCounter::Mode, feature,
                   [&] { return self->m_camera.accessMode(feature, mode); });
}

int HostCallbacks::invalidate(void* user)
{
    auto* self = static_cast<HostCallbacks*>(user);
    return guarded(self->m_calls, CallCounter::Invalidate, std::string(),
                   [&] { return self->m_camera.invalidate(); });
}

int HostCallbacks::action(int action, void* user)
{
    auto* self = static_cast<HostCallbacks*>(user);
    return guarded(self->m_calls, CallCounter::Action, std::to_string(action), [&] {
        if (self->m_actionHandler)
            self->m_actionHandler(action);
        return CameraError::Ok;
    });
}
