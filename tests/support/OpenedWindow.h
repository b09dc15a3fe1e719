// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OBFeatureTree/OBFeatureTree.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "main/ORXMainFeatureWidget.h"
#include "model/CTreeItemValue.h"
#include "support/FakeHost.h"
#include "support/Patience.h"
#include "support/TestMain.h"
#include "tree/ORXFeatureTree.h"
#include "tree/ORXFeatureTreeView.h"

#include <QApplication>

#include <memory>

// The window, opened through the exported functions on a host in memory, as a host does it.
// Released again when it goes. Without a size it keeps its own.
class OpenedWindow
{
public:
    OpenedWindow(FakeHost& host, const QByteArray& description, int language = 0,
                 const QSize& size = QSize(900, 700))
    {
        OB_FT_Init(description.constData(), nullptr, nullptr);
        _OB_FT_DEVICEINFO_ info = {};
        qstrncpy(info.deviceName, "Test camera", sizeof(info.deviceName));
        OB_FT_SetDeviceInfo(&info);
        host.installInWindow();
        if (size.isValid())
            OB_FT_SetWidgetSize(size.width(), size.height());
        OB_FT_SetWidgetPosition(10, 10);
        OB_FT_Start(nullptr, language);
    }
    ~OpenedWindow() { OB_FT_Release(); }
    OpenedWindow(const OpenedWindow&) = delete;
    OpenedWindow& operator=(const OpenedWindow&) = delete;

    ORXMainFeatureWidget* widget() const { return ORXMainFeatureWidget::instance(nullptr); }
    ORXFeatureTree* tree() const { return widget()->featureTree(1, false); }
    ORXFeatureTreeView* view() const { return tree()->treeView(); }
    ORXPropertyTreeItem* item(const char* name) const
    {
        return tree()->propertyItemByName(QString::fromLatin1(name));
    }
    ORXFeatureGroup* column() const { return widget()->featureGroup(1); }
    CFeatureGroupTreeView* groups() const { return column()->groupView(); }
    const CFeatureGroupModel* groupModel() const
    {
        return static_cast<const CFeatureGroupModel*>(groups()->model());
    }
    QModelIndex group(const char* name) const { return groupModel()->groupIndex(0, item(name)); }
    void showGroup(const char* name) const { groups()->OnChangedIndex(group(name)); }
    bool waitForFirstRead() const
    {
        return QTest::qWaitFor([this] { return tree()->HadUpdatedOnce(); }, kWindowPatienceMs);
    }
};

// Base of tests of that window: each test function has a host of its own, which serves the
// description, and leaves nothing behind. The GUI thread never reads from it.
class OpenedWindowTest : public GuardedTest
{
protected:
    explicit OpenedWindowTest(const QByteArray& description)
        : m_xml(description)
    {
    }
    void prepare() override
    {
        m_host = std::make_unique<FakeHost>();
        m_host->serve(m_xml);
    }
    void finish() override
    {
        OB_FT_Release();
        FakeHost::uninstall();
        OBDeviceControl::SetUserLevel(1);
        ORXInterface::setLanguage("ENG"_s);
    }
    bool failsOnGuiThreadReads() const override { return true; }

    const QByteArray m_xml;
    std::unique_ptr<FakeHost> m_host;
};

// The window with the first read behind it.
class ReadWindow : public OpenedWindow
{
public:
    ReadWindow(FakeHost& host, const QByteArray& description, int language = 0)
        : OpenedWindow(host, description, language)
    {
        if (!waitForFirstRead())
            qFatal("no first read");
        QApplication::processEvents();
    }
};

// The same of the description that the function makes.
template <QByteArray (*makeDescription)()>
class DescribedWindowTest : public OpenedWindowTest
{
protected:
    DescribedWindowTest()
        : OpenedWindowTest(makeDescription())
    {
    }
};
