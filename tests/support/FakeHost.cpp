// SPDX-License-Identifier: Apache-2.0
#include "support/FakeHost.h"

#include "device/OBDeviceControl.h"
#include "device/XmlDocument.h"
#include "model/FeatureTag.h"
#include "support/GuiThreadReads.h"
#include "support/Literals.h"

#include <QRegularExpression>

FakeHost::Feature FakeHost::integerFeature(qint64 value, qint64 minimum, qint64 maximum,
                                           qint64 increment)
{
    Feature feature = ofType(OB_FT_TYPE_INTEGER, value);
    feature.minimum = minimum;
    feature.maximum = maximum;
    feature.increment = increment;
    return feature;
}

FakeHost::Feature FakeHost::floatFeature(float value, float minimum, float maximum)
{
    Feature feature = ofType(OB_FT_TYPE_FLOAT);
    feature.number = value;
    feature.numberMinimum = minimum;
    feature.numberMaximum = maximum;
    return feature;
}

FakeHost::Feature FakeHost::textFeature(const QByteArray& text)
{
    Feature feature = ofType(OB_FT_TYPE_STRING);
    feature.text = text;
    return feature;
}

FakeHost::Feature FakeHost::ofType(int type, qint64 integer)
{
    Feature feature;
    feature.type = type;
    feature.integer = integer;
    return feature;
}

namespace {

FakeHost::Feature featureOfTag(FeatureTag tag)
{
    switch (tag) {
    case FeatureTag::Boolean:
        return FakeHost::booleanFeature(true);
    case FeatureTag::Command:
        return FakeHost::commandFeature();
    case FeatureTag::Float:
    case FeatureTag::Converter:
        return FakeHost::floatFeature(1.5F);
    case FeatureTag::Enumeration:
        return FakeHost::enumFeature(0);
    case FeatureTag::String:
    case FeatureTag::StringReg:
        return FakeHost::textFeature("text");
    default:
        return FakeHost::integerFeature(1);
    }
}

} // namespace

void FakeHost::install()
{
    const GuiThreadReads::InstallingCallbacks installing;
    OBDeviceControl::SetCallBackFunc(getFeature, setFeature, getMode, invalidate, action, this);
}

int FakeHost::installInWindow()
{
    const GuiThreadReads::InstallingCallbacks installing;
    return OB_FT_SetCallBackFunc(getFeature, setFeature, getMode, invalidate, action, this);
}

void FakeHost::uninstall()
{
    OBDeviceControl::SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

void FakeHost::serve(const QByteArray& description)
{
    XmlDocument document;
    document.setContent(description);
    std::function<void(pugi::xml_node)> walk = [&](pugi::xml_node parent) {
        for (pugi::xml_node child = XmlText::firstElement(parent); child;
             child = XmlText::nextElement(child)) {
            const QString name = XmlText::attribute(child, "Name");
            if (XmlText::name(child) == "EnumEntry")
                continue;
            if (!name.isEmpty())
                set(name, featureOfTag(featureTag(QString::fromUtf8(child.name()))));
            walk(child);
        }
    };
    walk(document.documentElement());
    set("TLParamsLocked"_s, integerFeature(0));
}

QStringList FakeHost::writes() const
{
    return calls().filter(QRegularExpression("^set "_s));
}

// A call that has come, as long as it takes.
struct FakeHost::Call
{
    Call(FakeHost* called, const QString& said, const QString& name = {})
        : host(called)
        , text(said)
    {
        host->m_log.add(text);
        host->m_pace.pass(name);
    }
    ~Call()
    {
        if (host->afterCall)
            host->afterCall(text);
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    FakeHost* const host;
    const QString text;
};

int FakeHost::getFeature(int type, char* name, void* value, void* user)
{
    auto* host = static_cast<FakeHost*>(user);
    const QString feature = QString::fromLocal8Bit(name);
    GuiThreadReads::note("get", feature);
    if (host->beforeGet)
        host->beforeGet(feature);
    const Call call(host, "get "_s + feature, feature);
    if (const int code = host->m_faults.value(feature, call.text))
        return code;
    const std::lock_guard<std::mutex> lock(host->m_mutex);
    const auto found = host->m_features.constFind(feature);
    return found == host->m_features.constEnd() ? -1 : found->readInto(type, value);
}

int FakeHost::setFeature(int, char* name, char* value, void* user)
{
    auto* host = static_cast<FakeHost*>(user);
    const QString feature = QString::fromLocal8Bit(name);
    const Call call(host, "set %1 %2"_s.arg(feature, QString::fromLocal8Bit(value)), feature);
    if (const int code = host->m_faults.value(feature, call.text))
        return code;
    {
        const std::lock_guard<std::mutex> lock(host->m_mutex);
        const auto found = host->m_features.find(feature);
        if (found == host->m_features.end())
            return -1;
        found->write(QByteArray(value));
    }
    if (host->afterSet)
        host->afterSet(feature);
    return 0;
}

int FakeHost::getMode(char* name, int* mode, void* user)
{
    auto* host = static_cast<FakeHost*>(user);
    const QString feature = QString::fromLocal8Bit(name);
    GuiThreadReads::note("mode", feature);
    const Call call(host, "mode "_s + feature, feature);
    {
        const std::lock_guard<std::mutex> lock(host->m_mutex);
        const auto found = host->m_features.constFind(feature);
        *mode = found == host->m_features.constEnd() ? OB_FT_ACCESS_NOT_IMPLEMENTED : found->mode;
    }
    const int code = host->m_faults.mode(feature, mode);
    if (code != 0)
        *mode = OB_FT_ACCESS_READ_WRITE; // must be ignored
    return code;
}

int FakeHost::invalidate(void* user)
{
    const Call call(static_cast<FakeHost*>(user), "invalidate"_s);
    return 0;
}

int FakeHost::action(int action, void* user)
{
    const Call call(static_cast<FakeHost*>(user), "action %1"_s.arg(action));
    return 0;
}
