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
    const auto q = [](const char* text) { return QString::fromLatin1(text); };
    const QString expert = child(q("Visibility"), q("Expert"));
    const QString entries = q("<EnumEntry Name=\"Mono8\"><Value>0</Value></EnumEntry>"
                              "<EnumEntry Name=\"Mono16\"><Value>7</Value></EnumEntry>");
    return wrap(
        category(q("Root"), words("Image Control")) +
        category(q("Image"), words("Width Height PixelFormat Gain ReverseX Note Detail")) +
        category(q("Control"), words("AcquisitionStart AcquisitionStop UserSetLoad DeviceReset "
                                     "TriggerSoftware Counter RegionDisplaySelector "
                                     "DeviceUserID")) +
        node(q("Integer"), q("Width"), child(q("Description"), q("Columns of the image."))) +
        node(q("Integer"), q("Height"), child(q("pValue"), q("HeightReg"))) +
        node(q("MaskedIntReg"), q("HeightReg"), child(q("pInvalidator"), q("Width"))) +
        node(q("Enumeration"), q("PixelFormat"), entries) + node(q("Float"), q("Gain")) +
        node(q("Boolean"), q("ReverseX"), child(q("pIsLocked"), q("TLParamsLocked"))) +
        node(q("StringReg"), q("Note")) + node(q("Integer"), q("Detail"), expert) +
        node(q("Command"), q("AcquisitionStart")) + node(q("Command"), q("AcquisitionStop")) +
        node(q("Command"), q("UserSetLoad")) + node(q("Command"), q("DeviceReset")) +
        node(q("Command"), q("TriggerSoftware")) +
        node(q("Integer"), q("Counter"), child(q("PollingTime"), q("50"))) +
        node(q("Enumeration"), q("RegionDisplaySelector"), entries) +
        node(q("StringReg"), q("DeviceUserID")) + node(q("Integer"), q("TLParamsLocked")));
}

} // namespace

void FeatureTreeTest::prepare()
{
    ApplicationSetup::runOnce();
    m_host.serve(description());
    m_host.set("Width"_s, FakeHost::integerFeature(320, 16, 4096, 16));
    m_host.set("PixelFormat"_s, FakeHost::enumFeature(7));
    m_host.set("Gain"_s, FakeHost::floatFeature(1.5F, 0.0F, 24.0F));
    m_host.set("DeviceUserID"_s, FakeHost::textFeature("Bench 3"));
    m_host.install();
    OBDeviceControl::Init(description().constData(), nullptr);
    OBDeviceControl::GetFavoritesFeatureMap()->clear();
    OBDeviceControl::SetUserLevel(0);
    IFeatureTreeFinder::install(&m_finder);
    m_tree = makeTree(1);
    m_tree->activateWindow();
}

void FeatureTreeTest::finish()
{
    m_host.pace().openAllGates();
    m_tree.reset();
    m_finder.trees.clear();
    IFeatureTreeFinder::install(nullptr);
    FakeHost::uninstall();
    m_host.clearCalls();
    for (const char* name :
         {"Width", "PixelFormat", "Gain", "ReverseX", "Note", "UserSetLoad", "AcquisitionStart"})
        m_host.fail(QString::fromLatin1(name), 0);
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
    m_host.clearCalls();
}

QString FeatureTreeTest::overlay()
{
    return ZELCustomLoadingDialog::text(kOverlay);
}

ZELCustomMessageBox* FeatureTreeTest::messageBox()
{
    return m_tree->findChild<ZELCustomMessageBox*>();
}
