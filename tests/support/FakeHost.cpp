// SPDX-License-Identifier: Apache-2.0
#include "support/FakeHost.h"

#include "device/OBDeviceControl.h"
#include "model/FeatureTag.h"
#include "support/Literals.h"

#include <QDomDocument>
#include <QRegularExpression>
#include <QThread>

#include <algorithm>
#include <cstring>

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
    OBDeviceControl::SetCallBackFunc(getFeature, setFeature, getMode, invalidate, action, this);
}

void FakeHost::uninstall()
{
    OBDeviceControl::SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

void FakeHost::set(const QString& name, const Feature& feature)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_features.insert(name, feature);
}

void FakeHost::serve(const QByteArray& description)
{
    QDomDocument document;
    document.setContent(description);
    std::function<void(const QDomElement&)> walk = [&](const QDomElement& parent) {
        for (QDomElement child = parent.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            const QString name = child.attribute("Name"_s);
            if (child.tagName() == QLatin1String("EnumEntry"))
                continue;
            if (!name.isEmpty())
                set(name, featureOfTag(featureTag(child.tagName())));
            walk(child);
        }
    };
    walk(document.documentElement());
    set("TLParamsLocked"_s, integerFeature(0));
}

FakeHost::Feature FakeHost::feature(const QString& name) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_features.value(name);
}

void FakeHost::fail(const QString& name, int code)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_failures.insert(name, code);
}

void FakeHost::failMode(const QString& name, int code)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_modeFailures.insert(name, code);
}

QStringList FakeHost::calls() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls;
}

int FakeHost::count(const QString& call) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls.count(call);
}

QStringList FakeHost::writes() const
{
    return calls().filter(QRegularExpression("^set "_s));
}

void FakeHost::clearCalls()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.clear();
}

void FakeHost::record(const QString& call)
{
    ++m_callCount;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.append(call);
    }
    if (m_latencyMs > 0)
        QThread::msleep(static_cast<unsigned long>(m_latencyMs));
}

int FakeHost::readInto(const Feature& feature, int type, void* value) const
{
    switch (type) {
    case OB_FT_TYPE_INTEGER: {
        auto* record = static_cast<_ZDCC_INTVALUE_EX_T*>(value);
        record->value = feature.integer;
        record->minimum = feature.minimum;
        record->maximum = feature.maximum;
        record->increment = feature.increment;
        return 0;
    }
    case OB_FT_TYPE_BOOLEAN:
        *static_cast<unsigned char*>(value) = feature.integer != 0 ? 1 : 0;
        return 0;
    case OB_FT_TYPE_FLOAT: {
        auto* record = static_cast<_ZDCC_FLOATVALUE_T*>(value);
        record->value = feature.number;
        record->minimum = feature.numberMinimum;
        record->maximum = feature.numberMaximum;
        return 0;
    }
    case OB_FT_TYPE_ENUMERATION:
        static_cast<_ZDCC_ENUMVALUE_T*>(value)->value = static_cast<uint32_t>(feature.integer);
        return 0;
    case OB_FT_TYPE_STRING: {
        auto* record = static_cast<_ZDCC_STRINGVALUE_T*>(value);
        const auto bytes =
            std::min(sizeof(record->value), static_cast<std::size_t>(feature.text.size()));
        std::memcpy(record->value, feature.text.constData(), bytes);
        record->maximumLength = feature.maximumLength;
        return 0;
    }
    default:
        return -2;
    }
}

void FakeHost::writeFrom(Feature& feature, const QByteArray& value) const
{
    if (feature.type == OB_FT_TYPE_FLOAT)
        feature.number = value.toFloat();
    else if (feature.type == OB_FT_TYPE_STRING)
        feature.text = value;
    else
        feature.integer = value.toLongLong();
}

int FakeHost::getFeature(int type, char* name, void* value, void* user)
{
    auto* host = static_cast<FakeHost*>(user);
    const QString feature = QString::fromLocal8Bit(name);
    if (host->beforeGet)
        host->beforeGet(feature);
    host->record("get "_s + feature);
    const std::lock_guard<std::mutex> lock(host->m_mutex);
    if (const int code = host->m_failures.value(feature))
        return code;
    const auto found = host->m_features.constFind(feature);
    return found == host->m_features.constEnd() ? -1 : host->readInto(*found, type, value);
}

int FakeHost::setFeature(int, char* name, char* value, void* user)
{
    auto* host = static_cast<FakeHost*>(user);
    const QString feature = QString::fromLocal8Bit(name);
    host->record("set "_s + feature + QLatin1Char(' ') + QString::fromLocal8Bit(value));
    const std::lock_guard<std::mutex> lock(host->m_mutex);
    if (const int code = host->m_failures.value(feature))
        return code;
    const auto found = host->m_features.find(feature);
    if (found == host->m_features.end())
        return -1;
    host->writeFrom(*found, QByteArray(value));
    return 0;
}

int FakeHost::getMode(char* name, int* mode, void* user)
{
    auto* host = static_cast<FakeHost*>(user);
    const QString feature = QString::fromLocal8Bit(name);
    host->record("mode "_s + feature);
    const std::lock_guard<std::mutex> lock(host->m_mutex);
    if (const int code = host->m_modeFailures.value(feature)) {
        *mode = OB_FT_ACCESS_READ_WRITE; // must be ignored
        return code;
    }
    const auto found = host->m_features.constFind(feature);
    *mode = found == host->m_features.constEnd() ? OB_FT_ACCESS_NOT_IMPLEMENTED : found->mode;
    return 0;
}

int FakeHost::invalidate(void* user)
{
    static_cast<FakeHost*>(user)->record("invalidate"_s);
    return 0;
}

int FakeHost::action(int action, void* user)
{
    static_cast<FakeHost*>(user)->record("action %1"_s.arg(action));
    return 0;
}
