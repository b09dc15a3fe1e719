// SPDX-License-Identifier: Apache-2.0
#include "tree/FeatureTreeTest.h"

#include "api/ApplicationSetup.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/DescriptionBuilder.h"
#include "tree/ORXPropertySpinBox.h"

namespace {

constexpr int kOverlay = 1; // index of the overlay for devices of type 0

QByteArray description()
{
    using namespace DescriptionBuilder;
    const QString entries = "<EnumEntry Name=\"Mono8\"><Value>0</Value></EnumEntry>"
                            "<EnumEntry Name=\"Mono16\"><Value>7</Value></EnumEntry>"_s;
    return wrap(
        elements("Category Root pFeature=Image,Control;"
                 "Category Image pFeature="
                 "Width,Height,PixelFormat,Gain,ReverseX,Note,Detail;"
                 "Category Control pFeature="
                 "AcquisitionStart,AcquisitionStop,UserSetLoad,DeviceReset,"
                 "TriggerSoftware,Counter,RegionDisplaySelector,DeviceUserID;"
                 "Integer Height pValue=HeightReg; MaskedIntReg HeightReg pInvalidator=Width;"
                 "Float Gain Unit=dB; Boolean ReverseX pIsLocked=TLParamsLocked; StringReg Note;"
                 "Integer Detail Visibility=Expert; Command AcquisitionStart;"
                 "Command AcquisitionStop; Command UserSetLoad; Command DeviceReset;"
                 "Command TriggerSoftware; Integer Counter PollingTime=50;"
                 "StringReg DeviceUserID; Integer TLParamsLocked") +
        node("Integer"_s, "Width"_s, child("Description"_s, "Columns of the image."_s)) +
        node("Enumeration"_s, "PixelFormat"_s, entries) +
        node("Enumeration"_s, "RegionDisplaySelector"_s, entries));
}

} // namespace

void FeatureTreeTest::prepare()
{
    ApplicationSetup::runOnce();
    m_host = std::make_unique<FakeHost>();
    m_host->serve(description());
    m_host->set("Width"_s, FakeHost::integerFeature(320, 16, 4096, 16));
    m_host->set("PixelFormat"_s, FakeHost::enumFeature(7));
    m_host->set("Gain"_s, FakeHost::floatFeature(1.5F, 0.0F, 24.0F));
    m_host->set("DeviceUserID"_s, FakeHost::textFeature("Bench 3"));
    m_host->install();
    OBDeviceControl::Init(description().constData(), nullptr);
    OBDeviceControl::GetFavoritesFeatureMap()->clear();
    OBDeviceControl::SetUserLevel(0);
    IFeatureTreeFinder::install(&m_finder);
    m_tree = makeTree(1);
    m_tree->activateWindow();
}

void FeatureTreeTest::finish()
{
    m_host->pace().openAllGates();
    m_tree.reset();
    m_finder.trees.clear();
    IFeatureTreeFinder::install(nullptr);
    FakeHost::uninstall();
    OBDeviceControl::GetFavoritesFeatureMap()->clear();
    OBDeviceControl::SetUserLevel(1);
    ORXInterface::setLanguage("ENG"_s);
    ZELCustomLoadingDialog::hideLoading(kOverlay);
}

std::unique_ptr<ORXFeatureTree> FeatureTreeTest::makeTree(qint64 cameraId)
{
    auto tree = std::make_unique<ORXFeatureTree>(cameraId);
    tree->CreateFeature();
    tree->resize(500, 900);
    tree->show();
    m_finder.trees.insert(cameraId, tree.get());
    return tree;
}

void FeatureTreeTest::readOnce()
{
    m_tree->StartUpdateThread();
    QTRY_VERIFY(m_tree->HadUpdatedOnce());
    QTRY_VERIFY(editor<ORXPropertySpinBox>("Width"));
    QTRY_COMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(320));
    m_host->clearCalls();
}

void FeatureTreeTest::readWithoutPolling()
{
    readOnce();
    m_tree->PauseUpdateThread();
    m_tree->StopThread(false);
    QCoreApplication::processEvents();
    m_host->clearCalls();
}

QString FeatureTreeTest::overlay()
{
    return ZELCustomLoadingDialog::text(kOverlay);
}

ZELCustomMessageBox* FeatureTreeTest::messageBox()
{
    return m_tree->findChild<ZELCustomMessageBox*>();
}
