// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OBFeatureTree/OBFeatureTree.h"
#include "main/ORXMainFeatureWidget.h"
#include "support/FakeHost.h"
#include "tree/ORXFeatureTree.h"

#include <QTest>

// The window, opened through the exported functions on a host in memory, as a host does it.
// Released again when it goes.
class OpenedWindow
{
public:
    OpenedWindow(FakeHost& host, const QByteArray& description, int language = 0)
    {
        OB_FT_Init(description.constData(), nullptr, nullptr);
        _OB_FT_DEVICEINFO_ info = {};
        qstrncpy(info.deviceName, "Test camera", sizeof(info.deviceName));
        OB_FT_SetDeviceInfo(&info);
        OB_FT_SetCallBackFunc(FakeHost::getFeature, FakeHost::setFeature, FakeHost::getMode,
                              FakeHost::invalidate, FakeHost::action, &host);
        OB_FT_SetWidgetSize(900, 700);
        OB_FT_SetWidgetPosition(10, 10);
        OB_FT_Start(nullptr, language);
    }
    ~OpenedWindow() { OB_FT_Release(); }
    OpenedWindow(const OpenedWindow&) = delete;
    OpenedWindow& operator=(const OpenedWindow&) = delete;

    ORXMainFeatureWidget* widget() const { return ORXMainFeatureWidget::instance(nullptr); }
    ORXFeatureTree* tree() const { return widget()->featureTree(1, false); }
    bool waitForFirstRead() const
    {
        return QTest::qWaitFor([this] { return tree()->HadUpdatedOnce(); }, 20000);
    }
};
