// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXCommonFeature.h"

#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "tree/ORXFeatureTree.h"

#include <algorithm>
#include <array>

namespace {

constexpr char kOwnSelector[] = "Custom_BalanceRatioSelector";
constexpr char kOwnRatio[] = "Custom_BalanceRatio";
constexpr char kOwnCommand[] = "Custom_BalanceCommand";
constexpr char kRatio[] = "BalanceRatio";
constexpr char kSelector[] = "BalanceRatioSelector";
constexpr char kAutomatic[] = "BalanceWhiteAuto";
// While one of these is on, the colours are the user's to balance.
constexpr std::array<const char*, 4> kEnables = {"HueEnable", "SaturationEnable", "GammaEnable",
                                                 "ColorTransformationEnable"};

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
        kAutomatic,
        "BalanceColorTemperatureMode",
        {kOwnSelector, QT_TRANSLATE_NOOP("ORXCommonFeature", "Balance Ratio Selector")},
        {kOwnRatio, QT_TRANSLATE_NOOP("ORXCommonFeature", "Balance Ratio")},
        {kOwnCommand, QT_TRANSLATE_NOOP("ORXCommonFeature", "White Balance"), FeatureTag::Command},
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

// Names and texts stay the page's, visibility is decided by the page, and what the camera's locks
// allow is found out by the write.
void becomeCopy(ORXPropertyTreeItem* own, const ORXPropertyTreeItem* original)
{
    const QString name = own->value()->nodeName(0);
    const bool visible = own->visible();
    own->copy(original);
    own->value()->setNodeName(name);
    own->setItemType(ORXPropertyTreeItem::FeatureItem);
    own->setReadOnly(false);
    own->setVisible(visible, -1);
}

void takeValue(ORXPropertyTreeItem* own, const ORXPropertyTreeItem* original, qint64 cameraId)
{
    own->value()->copy(original->value(), false);
    own->setWasRead(original->wasRead(), cameraId);
    own->endUpdateItem(cameraId);
}

bool wasRead(const ORXPropertyTreeItem* item)
{
    return item->value()->lastRead() == CTreeItemValue::LastRead::Done;
}

// What could not be read counts as off.
bool isOn(const ORXPropertyTreeItem* item)
{
    const auto* value = item ? dynamic_cast<const CTreeBooleanItemValue*>(item->value()) : nullptr;
    return value && wasRead(item) && value->checked();
}

// The changes that updateWhiteBalance() looks at.
bool concernsWhiteBalance(const QString& name, bool valueChanged)
{
    static const QSet<QString> kBoth = {
        QStringLiteral("BalanceRatio"),         QStringLiteral("BalanceWhiteAuto"),
        QStringLiteral("BalanceRatioSelector"), QStringLiteral("HueEnable"),
        QStringLiteral("SaturationEnable"),     QStringLiteral("GammaEnable")};
    static const QSet<QString> kValueOnly = {QStringLiteral("ColorTransformationEnable"),
                                             QStringLiteral("PixelFormat")};
    return kBoth.contains(name) || (valueChanged && kValueOnly.contains(name));
}

} // namespace

const QMap<QString, QString>& getCommonTransMap()
{
    static const QMap<QString, QString> kTexts = commonTable().texts();
    return kTexts;
}

// The camera's white balance and the page's; borrowed for the length of one operation.
struct ORXCommonFeature::WhiteBalance
{
    bool isComplete() const
    {
        return ratio && selector && automatic && ownRatio && ownSelector && ownCommand;
    }

    ORXPropertyTreeItem* ratio;
    ORXPropertyTreeItem* selector;
    ORXPropertyTreeItem* automatic;
    ORXPropertyTreeItem* ownRatio;
    ORXPropertyTreeItem* ownSelector;
    ORXPropertyTreeItem* ownCommand;
};

ORXCommonFeature::ORXCommonFeature(QWidget* parent)
    : CuratedPage(commonTable(), ORXPropertyTreeItem::CommonPage, parent)
{
    onOwnWrite(kOwnRatio, [this](const QVariant& value) {
        return setWhiteBalanceValue(QString::fromLatin1(kRatio), value);
    });
    onOwnWrite(kOwnSelector, [this](const QVariant& value) {
        return setWhiteBalanceValue(QString::fromLatin1(kSelector), value);
    });
    onOwnWrite(kOwnCommand, [this](const QVariant&) { return balanceOnce(); });
    m_visibleTimer.setSingleShot(true);
    connect(&m_visibleTimer, &QTimer::timeout, this, &ORXCommonFeature::updateWhiteBalanceVisible);
}

void ORXCommonFeature::onAWB(qint64) {}

void ORXCommonFeature::createTransMap()
{
    fillTransMap(getCommonTransMap());
}

ORXCommonFeature::WhiteBalance ORXCommonFeature::whiteBalance(ORXPropertyTreeItem* root)
{
    return {cameraItem(kRatio),        cameraItem(kSelector),        cameraItem(kAutomatic),
            pageItem(kOwnRatio, root), pageItem(kOwnSelector, root), pageItem(kOwnCommand, root)};
}

void ORXCommonFeature::afterItemsCreated(ORXPropertyTreeItem* root)
{
    connect(tree(), &ORXFeatureTree::SigFirstEndUpdateFeature, this,
            &ORXCommonFeature::scheduleWhiteBalanceVisible, Qt::UniqueConnection);
    updateWhiteBalance(QString(), BuildWhiteBalance, root);
}

void ORXCommonFeature::updateWhiteBalance(const QString& name, UpdateWhiteBalanceType type,
                                          ORXPropertyTreeItem* root)
{
    const WhiteBalance parts = whiteBalance(root);
    if (!parts.isComplete())
        return;
    if (type == BuildWhiteBalance) {
        QVector<ORXPropertyTreeItem*> watched = {parts.ratio, parts.selector};
        for (const char* enable : kEnables)
            watched.append(cameraItem(enable));
        for (ORXPropertyTreeItem* item : qAsConst(watched))
            unobserve(item);
        becomeCopy(parts.ownRatio, parts.ratio);
        becomeCopy(parts.ownSelector, parts.selector);
        parts.ownCommand->setReadOnly(false);
        for (ORXPropertyTreeItem* item : qAsConst(watched))
            observe(item);
    } else {
        // Another pixel format may have other colours.
        const bool format = name == QLatin1String("PixelFormat");
        if (format || name == QLatin1String(kSelector))
            takeValue(parts.ownSelector, parts.selector, cameraID());
        if (format || name == QLatin1String(kRatio))
            takeValue(parts.ownRatio, parts.ratio, cameraID());
    }
    scheduleWhiteBalanceVisible();
}

void ORXCommonFeature::itemValueChanged(ORXPropertyTreeItem* item)
{
    const QString name = item->value()->nodeName(0);
    if (item->isFeatureTreeItem() && concernsWhiteBalance(name, true))
        updateWhiteBalance(name, WhiteBalanceChanged, nullptr);
}

void ORXCommonFeature::itemVisibleStateChanged(ORXPropertyTreeItem* item)
{
    CuratedPage::itemVisibleStateChanged(item);
    if (item->isFeatureTreeItem() && concernsWhiteBalance(item->value()->nodeName(0), false))
        scheduleWhiteBalanceVisible();
}

void ORXCommonFeature::scheduleWhiteBalanceVisible()
{
    if (tree() && tree()->HadUpdatedOnce())
        m_visibleTimer.start(0);
}

// By what the passes have read: the window never waits for the camera.
void ORXCommonFeature::updateWhiteBalanceVisible()
{
    const qint64 cameraId = cameraID();
    const WhiteBalance parts = whiteBalance(nullptr);
    if (!parts.isComplete())
        return;
    bool command = false;
    bool ratio = false;
    if (parts.automatic->visible()) {
        const auto* automatic =
            dynamic_cast<const CTreeEnumationItemValue*>(parts.automatic->value());
        if (!automatic || !wasRead(parts.automatic))
            return; // stays as it is
        if (automatic->number() == 0) {
            ratio = std::any_of(kEnables.begin(), kEnables.end(),
                                [this](const char* name) { return isOn(cameraItem(name)); });
            command = !ratio;
        }
    }
    parts.ownCommand->setVisible(command, cameraId);
    for (ORXPropertyTreeItem* item : {parts.ownRatio, parts.ownSelector}) {
        item->setVisible(ratio, cameraId);
        item->notifyViewUpdate(cameraId, -1, false);
    }
}

// Writing -----------------------------------------------------------------------------------------

bool ORXCommonFeature::setWhiteBalanceValue(const QString& name, const QVariant& value)
{
    ORXPropertyTreeItem* item = tree() ? tree()->propertyItemByName(name) : nullptr;
    if (!item)
        return false;
    const FeatureTag tag =
        name == QLatin1String(kSelector) ? FeatureTag::Enumeration : FeatureTag::Integer;
    if (!tree()->setFeatureValue(featureTagName(tag), name, value.toInt()))
        return false;
    if (ORXPropertyTreeItem::isAlive(item)) {
        item->value()->setValue(value);
        item->endUpdateItem(cameraID());
    }
    return true;
}

// The "White Balance" button lets the camera balance once: the command stands for the entry "Once"
// of "BalanceWhiteAuto". A camera without an entry of that name is asked for number 1, which is the
// usual one, and shows the user what it makes of it.
bool ORXCommonFeature::balanceOnce()
{
    const ORXPropertyTreeItem* automatic = cameraItem(kAutomatic);
    const auto* value =
        automatic ? dynamic_cast<const CTreeEnumationItemValue*>(automatic->value()) : nullptr;
    if (!value)
        return false;
    constexpr qint64 kUsualOnce = 1;
    const QString text = value->nameMap().value(QStringLiteral("Once"));
    const qint64 once = value->valueMap().key(text, kUsualOnce);
    return tree()->setFeatureValue(featureTagName(FeatureTag::Enumeration),
                                   QString::fromLatin1(kAutomatic), once);
}
