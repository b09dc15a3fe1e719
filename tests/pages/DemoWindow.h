// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DemoCamera.h"
#include "HostCallbacks.h"
#include "ManualClock.h"
#include "OBFeatureTree/OBFeatureTree.h"
#include "PluggedCamera.h"
#include "main/ORXMainFeatureWidget.h"
#include "tree/ORXFeatureTree.h"

#include <QTest>

// The window on the simulated demo camera, opened through the exported functions as a host does it.
// The camera's time stands still until the test moves `clock`. Released again when it goes.
class DemoWindow
{
public:
    // `description` is what the host hands over; empty: the camera's own.
    explicit DemoWindow(const QByteArray& description = {}, int language = 0)
        : m_description(description.isEmpty() ? QByteArray::fromStdString(camera.descriptionXml())
                                              : description)
        , m_language(language)
    {
    }
    ~DemoWindow() { OB_FT_Release(); }
    DemoWindow(const DemoWindow&) = delete;
    DemoWindow& operator=(const DemoWindow&) = delete;

    // True when the first read has ended.
    bool open()
    {
        OB_FT_Init(m_description.constData(), nullptr, nullptr);
        _OB_FT_DEVICEINFO_ info = {};
        OB_FT_SetDeviceInfo(&info);
        OB_FT_SetCallBackFunc(HostCallbacks::getFeature, HostCallbacks::setFeature,
                              HostCallbacks::getMode, HostCallbacks::invalidate,
                              HostCallbacks::action, &callbacks);
        OB_FT_SetWidgetSize(900, 700);
        OB_FT_Start(nullptr, m_language);
        return QTest::qWaitFor([this] { return tree()->HadUpdatedOnce(); }, 30000);
    }
    ORXMainFeatureWidget* widget() const { return ORXMainFeatureWidget::instance(nullptr); }
    ORXFeatureTree* tree() const { return widget()->featureTree(1, false); }

    int write(int type, const char* name, const char* value)
    {
        return camera.write(type, name, value);
    }
    // Integers, enumerations and booleans; -1 when it cannot be read.
    qint64 integer(const char* name)
    {
        _ZDCC_INTVALUE_EX_T record = {};
        return camera.read(OB_FT_TYPE_INTEGER, name, &record) == 0 ? record.value : -1;
    }
    float number(const char* name)
    {
        _ZDCC_FLOATVALUE_T record = {};
        return camera.read(OB_FT_TYPE_FLOAT, name, &record) == 0 ? record.value : -1.0F;
    }

    ManualClock clock;
    DemoCamera camera{&clock};
    PluggedCamera plugged{camera};
    HostCallbacks callbacks{plugged};

private:
    const QByteArray m_description;
    const int m_language;
};
