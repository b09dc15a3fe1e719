// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/CameraError.h"
#include "cameras/ManualClock.h"
#include "demo/DemoCamera.h"
#include "support/TestMain.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <set>

inline int featureTypeOf(const std::string& tag)
{
    static const std::map<std::string, int> types{
        {"Integer", OB_FT_TYPE_INTEGER},
        {"IntReg", OB_FT_TYPE_INTEGER},
        {"Boolean", OB_FT_TYPE_BOOLEAN},
        {"Command", OB_FT_TYPE_COMMAND},
        {"Float", OB_FT_TYPE_FLOAT},
        {"Converter", OB_FT_TYPE_FLOAT},
        {"String", OB_FT_TYPE_STRING},
        {"StringReg", OB_FT_TYPE_STRING},
        {"Enumeration", OB_FT_TYPE_ENUMERATION},
    };
    const auto found = types.find(tag);
    return found == types.end() ? 0 : found->second;
}

// Base of tests of the demo camera, whose time stands still until the test moves the clock.
class DemoCameraTest : public GuardedTest
{
protected:
    void prepare() override
    {
        m_clock = std::make_unique<ManualClock>();
        m_camera = std::make_unique<DemoCamera>(m_clock.get());
    }
    void finish() override
    {
        if (m_camera)
            QCOMPARE(m_camera->missingNames(), std::string());
        m_camera.reset();
    }

    std::int64_t integer(const char* name)
    {
        _ZDCC_INTVALUE_EX_T record{};
        const int error = m_camera->read(OB_FT_TYPE_INTEGER, name, &record);
        if (error != 0)
            qWarning("%s: %s", name, CameraError::text(error));
        return record.value;
    }
    double real(const char* name)
    {
        _ZDCC_FLOATVALUE_T record{};
        const int error = m_camera->read(OB_FT_TYPE_FLOAT, name, &record);
        if (error != 0)
            qWarning("%s: %s", name, CameraError::text(error));
        return double(record.value);
    }
    QByteArray text(const char* name)
    {
        _ZDCC_STRINGVALUE_T record{};
        const int error = m_camera->read(OB_FT_TYPE_STRING, name, &record);
        if (error != 0)
            qWarning("%s: %s", name, CameraError::text(error));
        return record.value;
    }
    bool boolean(const char* name) { return integer(name) != 0; }
    int mode(const char* name)
    {
        int mode = -1;
        const int error = m_camera->accessMode(name, &mode);
        if (error != 0)
            qWarning("%s: %s", name, CameraError::text(error));
        return mode;
    }

    // A value of any readable feature as the text by which it can be written.
    std::string anyValue(const std::string& name)
    {
        switch (featureTypeOf(m_camera->nodes().find(name)->tag)) {
        case OB_FT_TYPE_FLOAT:
            return QByteArray::number(real(name.c_str()), 'g', 8).toStdString();
        case OB_FT_TYPE_STRING:
            return text(name.c_str()).toStdString();
        default:
            return std::to_string(integer(name.c_str()));
        }
    }

    // Reads the feature by its own type; what is wrong with it, empty when all is well.
    QString faultOf(const std::string& name)
    {
        const DescriptionNode* node = m_camera->nodes().find(name);
        static const std::set<std::string> kLevels{"Beginner", "Expert", "Guru", "Invisible"};
        if (!node || node->displayName.empty() || kLevels.count(node->visibility) == 0 ||
            node->description.size() < 10 || node->description.back() != '.')
            return "is not described"_s;
        for (const std::string& selected : node->selected) {
            if (!m_camera->nodes().find(selected))
                return "selects a feature that is not there"_s;
        }
        const int access = mode(name.c_str());
        const int type = featureTypeOf(node->tag);
        if (access < OB_FT_ACCESS_READ_ONLY || type == OB_FT_TYPE_COMMAND || type == 0)
            return QString();
        union {
            _ZDCC_INTVALUE_EX_T integer;
            _ZDCC_FLOATVALUE_T real;
            _ZDCC_ENUMVALUE_T entries;
            _ZDCC_STRINGVALUE_T text;
        } record{};
        if (m_camera->read(type, name, &record) != 0)
            return "cannot be read"_s;
        const auto& integer = record.integer;
        if (type == OB_FT_TYPE_INTEGER &&
            (integer.value < integer.minimum || integer.value > integer.maximum ||
             integer.increment < 1))
            return "is out of range"_s;
        const auto& real = record.real;
        if (type == OB_FT_TYPE_FLOAT && !(real.minimum <= real.value && real.value <= real.maximum))
            return "is out of range"_s;
        const std::uint32_t* first = record.entries.supported;
        if (type == OB_FT_TYPE_ENUMERATION &&
            std::count(first, first + record.entries.supportedCount, record.entries.value) != 1)
            return "is at no entry"_s;
        if (access == OB_FT_ACCESS_READ_WRITE && set(name, anyValue(name)) != 0)
            return "cannot be written back"_s;
        return QString();
    }
    int set(const std::string& name, const std::string& value)
    {
        const DescriptionNode* node = m_camera->nodes().find(name);
        return m_camera->write(node ? featureTypeOf(node->tag) : OB_FT_TYPE_INTEGER, name, value);
    }
    int run(const char* command) { return set(command, ""); }
    // Writes each "Name=value" and executes each "Name" in turn; none is refused.
    void apply(const char* settings)
    {
        for (const QString& each : words(settings)) {
            const QString value = each.section(QLatin1Char('='), 1);
            QVERIFY2(set(each.section(QLatin1Char('='), 0, 0).toStdString(), value.toStdString()) ==
                         0,
                     qPrintable(each));
        }
    }

    std::unique_ptr<ManualClock> m_clock;
    std::unique_ptr<DemoCamera> m_camera;
};
