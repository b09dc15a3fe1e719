// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXCommonFeature.h"

#include "tree/ORXFeatureTree.h"

namespace {

const QVector<CuratedItem>& getBasicFeatureList()
{
    static const QVector<CuratedItem> kItems = {
        "AcquisitionFrameRateEnable",
        "AcquisitionFrameRate",
        "ResultingFrameRate",
        "ExposureAuto",
        "ExposureTime",
        "GainAuto",
        "Gain",
        "Width",
        "Height",
        "PixelFormat",
        "TestPattern",
        "DigitalShift",
        "AcquisitionLineRate",
        "AcquisitionLineRateEnable",
        "ResultingLineRate",
    };
    return kItems;
}

const QVector<CuratedItem>& getISPFeatureList()
{
    static const QVector<CuratedItem> kItems = {
        "GammaEnable",
        "GammaSelector",
        "Gamma",
        "SharpnessEnable",
        "Sharpness",
        "Brightness",
        "HueEnable",
        "Hue",
        "SaturationEnable",
        "Saturation",
        "BalanceWhiteAuto",
        "BalanceColorTemperatureMode",
        {WhiteBalance::kSelector, QT_TRANSLATE_NOOP("ORXCommonFeature", "Balance Ratio Selector")},
        {WhiteBalance::kRatio, QT_TRANSLATE_NOOP("ORXCommonFeature", "Balance Ratio")},
        {WhiteBalance::kCommand, QT_TRANSLATE_NOOP("ORXCommonFeature", "White Balance"),
         FeatureTag::Command},
        "ShadingSelector",
        "ActivateShading",
        "FPNCUserEnable",
        "PRNUCUserEnable",
    };
    return kItems;
}

const QVector<CuratedItem>& getTLFeatureList()
{
    static const QVector<CuratedItem> kItems = {
        "GevSCPSPacketSize",
        "GevSCPD",
        "GevPAUSEFrameReception",
        "DeviceTapGeometry",
        "ClConfiguration",
        "DeviceConnectionConfig",
        "DeviceConnectionConfigDefault",
    };
    return kItems;
}

const CuratedPageTable& commonTable()
{
    static const CuratedPageTable kTable = {
        "ORXCommonFeature",
        QT_TRANSLATE_NOOP("ORXCommonFeature", "Common Features"),
        {
            {"Custom_BasicGroup", QT_TRANSLATE_NOOP("ORXCommonFeature", "Basic Features"),
             getBasicFeatureList()},
            {"Custom_ISPGroup", QT_TRANSLATE_NOOP("ORXCommonFeature", "ISP"), getISPFeatureList()},
            {"Custom_TransportLayerGroup",
             QT_TRANSLATE_NOOP("ORXCommonFeature", "Transport Layer Control"), getTLFeatureList()},
        }};
    return kTable;
}

} // namespace

const QMap<QString, QString>& getCommonTransMap()
{
    static const QMap<QString, QString> kTexts = commonTable().texts();
    return kTexts;
}

ORXCommonFeature::ORXCommonFeature(QWidget* parent)
    : CuratedPage(commonTable(), ORXPropertyTreeItem::CommonPage, parent)
    , m_whiteBalance(*this)
{
}

void ORXCommonFeature::onAWB(qint64) {}

void ORXCommonFeature::createTransMap()
{
    fillTransMap(getCommonTransMap());
}

void ORXCommonFeature::afterItemsCreated(ORXPropertyTreeItem* root)
{
    connect(tree(), &ORXFeatureTree::SigFirstEndUpdateFeature, &m_whiteBalance,
            &WhiteBalance::scheduleVisible, Qt::UniqueConnection);
    updateWhiteBalance(QString(), BuildWhiteBalance, root);
}

void ORXCommonFeature::updateWhiteBalance(const QString& name, UpdateWhiteBalanceType type,
                                          ORXPropertyTreeItem* root)
{
    if (type == BuildWhiteBalance)
        m_whiteBalance.build(root);
    else
        m_whiteBalance.take(name);
}

bool ORXCommonFeature::setWhiteBalanceValue(const QString& name, const QVariant& value)
{
    return m_whiteBalance.write(name, value);
}

void ORXCommonFeature::itemValueChanged(ORXPropertyTreeItem* item)
{
    const QString name = item->value()->nodeName(0);
    if (item->isFeatureTreeItem() && WhiteBalance::concerns(name, true))
        updateWhiteBalance(name, WhiteBalanceChanged, nullptr);
}

void ORXCommonFeature::itemVisibleStateChanged(ORXPropertyTreeItem* item)
{
    CuratedPage::itemVisibleStateChanged(item);
    if (item->isFeatureTreeItem() && WhiteBalance::concerns(item->value()->nodeName(0), false))
        m_whiteBalance.scheduleVisible();
}
