// SPDX-License-Identifier: Apache-2.0
#include "pages/DemoPageTest.h"

#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/SettingsFile.h"
#include "reading/QGetFeaturesThread.h"
#include "styledctl/ZELCustomMessageBox.h"

#include <QAbstractButton>

void DemoPageTest::prepare()
{
    SettingsFile::removeAll();
    m_folder = std::make_unique<QTemporaryDir>();
    OBDeviceControl::SetUserLevel(0);
    m_clock = std::make_unique<ManualClock>();
    m_demo = std::make_unique<DemoCamera>(m_clock.get());
}

void DemoPageTest::finish()
{
    if (m_camera)
        m_camera->openGate();
    m_window.reset();
    m_camera.reset();
    m_demo.reset();
    SettingsFile::removeAll();
    OBDeviceControl::SetUserLevel(1);
    ORXInterface::setLanguage("ENG"_s);
}

void DemoPageTest::open(const QStringList& lacking, int language)
{
    if (!m_camera)
        m_camera = std::make_unique<MeddledCamera>(*m_demo, lacking);
    m_window = std::make_unique<PageWindow>(*m_camera, language);
}

int DemoPageTest::write(const char* name, const char* text)
{
    static const QHash<QByteArray, int> kTypes = {{"Enumeration", OB_FT_TYPE_ENUMERATION},
                                                  {"Boolean", OB_FT_TYPE_BOOLEAN},
                                                  {"Command", OB_FT_TYPE_COMMAND},
                                                  {"Float", OB_FT_TYPE_FLOAT}};
    const DescriptionNode* node = m_demo->nodes().find(name);
    return m_demo->write(kTypes.value(node->tag.c_str(), OB_FT_TYPE_INTEGER), name, text);
}

qint64 DemoPageTest::read(const char* name) const
{
    _ZDCC_INTVALUE_EX_T record = {};
    m_demo->read(OB_FT_TYPE_INTEGER, name, &record);
    return record.value;
}

void DemoPageTest::watchSelection(const char* selector, qint64 selected, const char* feature)
{
    m_strangeReads = 0;
    m_camera = std::make_unique<MeddledCamera>(*m_demo);
    m_camera->beforeRead = [this, selector, selected, feature](const QString& name) {
        if (name != QLatin1String(feature))
            return;
        // The slower the others, the longer the selector is away from its place.
        if (!qobject_cast<QGetFeaturesThread*>(QThread::currentThread()))
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        else if (read(selector) != selected)
            ++m_strangeReads;
    };
}

ORXImgProcessingFeature* DemoPageTest::imagePage() const
{
    return m_window->widget()->findChild<ORXImgProcessingFeature*>();
}

QAbstractButton* DemoPageTest::box(const QByteArray& selector, int entry) const
{
    ORXPropertyTreeItem* row =
        m_window->item(kImage, "Custom_" + selector + '_' + QByteArray::number(entry & ~1));
    const ORXFeatureTreeView* view = m_window->page(kImage)->treeView();
    return row ? qobject_cast<QAbstractButton*>(view->editorOf(row, entry % 2)) : nullptr;
}

const ZELCustomMessageBox* DemoPageTest::messageBox() const
{
    const auto* box = m_window->tree()->findChild<ZELCustomMessageBox*>();
    return box && box->isVisible() ? box : nullptr;
}

QString DemoPageTest::message() const
{
    return messageBox() ? messageBox()->cContent() : QString();
}
