// SPDX-License-Identifier: Apache-2.0
#include "pages/HeldCamera.h"

#include "support/DescriptionBuilder.h"
#include "support/Literals.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <algorithm>

using namespace DescriptionBuilder;

namespace {

const char kOwn[] = "Aa";

bool isOwn(const std::string& name)
{
    return name.rfind(kOwn, 0) == 0;
}

QString enumeration(const QString& name, const QString& visibility)
{
    QString inner = child("Visibility"_s, visibility);
    for (int entry = 0; entry < HeldCamera::kEntries; ++entry)
        inner += node("EnumEntry"_s, "Entry%1"_s.arg(entry),
                      child("pIsAvailable"_s, name + "Decider%1"_s.arg(entry)) +
                          child("Value"_s, QString::number(entry)));
    return node("Enumeration"_s, name, inner);
}

} // namespace

HeldCamera::HeldCamera(Camera& camera)
    : m_camera(camera)
{
    QString added = enumeration("AaMany"_s, "Beginner"_s) + enumeration("AaManyGuru"_s, "Guru"_s);
    for (int entry = 0; entry < kEntries; ++entry) {
        for (const char* name : {"AaMany", "AaManyGuru"})
            added += node("Integer"_s, "%1Decider%2"_s.arg(QLatin1String(name)).arg(entry));
    }
    QString xml = QString::fromStdString(camera.descriptionXml());
    const int category = int(xml.indexOf("Name=\"DeviceControl\""_s));
    xml.insert(xml.indexOf("<pFeature>"_s, category),
               child("pFeature"_s, "AaMany"_s) + child("pFeature"_s, "AaManyGuru"_s));
    xml.insert(xml.lastIndexOf("</"_s), added);
    m_xml = xml.toStdString();
}

void HeldCamera::pass(const QString& call)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_calls.append(call);
    const auto held = std::find_if(m_toHold.begin(), m_toHold.end(), [&](const QString& each) {
        return call == each || call.startsWith(each + QLatin1Char('='));
    });
    if (held == m_toHold.end())
        return;
    const QString hold = *held;
    m_toHold.erase(held);
    m_holding.append(hold);
    m_released.wait(lock, [&] { return !m_holding.contains(hold); });
}

int HeldCamera::read(int type, const std::string& name, void* record)
{
    pass("get "_s + QString::fromStdString(name));
    if (!isOwn(name))
        return m_camera.read(type, name, record);
    if (type == OB_FT_TYPE_ENUMERATION)
        *static_cast<_ZDCC_ENUMVALUE_T*>(record) = {};
    else
        static_cast<_ZDCC_INTVALUE_EX_T*>(record)->value = 1;
    return 0;
}

int HeldCamera::write(int type, const std::string& name, const std::string& text)
{
    pass("set %1=%2"_s.arg(QString::fromStdString(name), QString::fromStdString(text)));
    return isOwn(name) ? 0 : m_camera.write(type, name, text);
}

int HeldCamera::accessMode(const std::string& name, int* mode)
{
    pass("mode "_s + QString::fromStdString(name));
    if (!isOwn(name))
        return m_camera.accessMode(name, mode);
    *mode = OB_FT_ACCESS_READ_WRITE;
    return 0;
}

QStringList HeldCamera::calls() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls;
}

void HeldCamera::forget()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.clear();
}

void HeldCamera::hold(const QString& call)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_toHold.append(call);
}

int HeldCamera::held() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return int(m_holding.size());
}

void HeldCamera::release()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_toHold.clear();
        m_holding.clear();
    }
    m_released.notify_all();
}

void HeldCamera::release(const QString& call)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_holding.removeAll(call);
    }
    m_released.notify_all();
}
