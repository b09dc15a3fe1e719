// SPDX-License-Identifier: Apache-2.0
#include "pages/WhiteBalance.h"

#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "pages/CuratedPage.h"
#include "tree/ORXFeatureTree.h"

#include <QSet>

#include <algorithm>
#include <array>

namespace {

constexpr char kCameraRatio[] = "BalanceRatio";
constexpr char kCameraSelector[] = "BalanceRatioSelector";
constexpr char kAutomatic[] = "BalanceWhiteAuto";
// While one of these is on, the colours are the user's to balance.
constexpr std::array<const char*, 4> kEnables = {"HueEnable", "SaturationEnable", "GammaEnable",
                                                 "ColorTransformationEnable"};

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

} // namespace

// The camera's white balance and the page's; borrowed for the length of one operation.
struct WhiteBalance::Parts
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

WhiteBalance::WhiteBalance(CuratedPage& page)
    : m_page(page)
{
    page.onOwnWrite(kRatio, [this](const QVariant& value) {
        return write(QString::fromLatin1(kCameraRatio), value);
    });
    page.onOwnWrite(kSelector, [this](const QVariant& value) {
        return write(QString::fromLatin1(kCameraSelector), value);
    });
    page.onOwnWrite(kCommand, [this](const QVariant&) { return balanceOnce(); });
    m_visibleTimer.setSingleShot(true);
    connect(&m_visibleTimer, &QTimer::timeout, this, &WhiteBalance::updateVisible);
}

bool WhiteBalance::concerns(const QString& name, bool valueChanged)
{
    static const QSet<QString> kBoth = {
        QStringLiteral("BalanceRatio"),         QStringLiteral("BalanceWhiteAuto"),
        QStringLiteral("BalanceRatioSelector"), QStringLiteral("HueEnable"),
        QStringLiteral("SaturationEnable"),     QStringLiteral("GammaEnable")};
    static const QSet<QString> kValueOnly = {QStringLiteral("ColorTransformationEnable"),
                                             QStringLiteral("PixelFormat")};
    return kBoth.contains(name) || (valueChanged && kValueOnly.contains(name));
}

WhiteBalance::Parts WhiteBalance::parts(ORXPropertyTreeItem* root)
{
    return {m_page.cameraItem(kCameraRatio),  m_page.cameraItem(kCameraSelector),
            m_page.cameraItem(kAutomatic),    m_page.pageItem(kRatio, root),
            m_page.pageItem(kSelector, root), m_page.pageItem(kCommand, root)};
}

void WhiteBalance::build(ORXPropertyTreeItem* root)
{
    const Parts all = parts(root);
    if (!all.isComplete())
        return;
    QVector<ORXPropertyTreeItem*> watched = {all.ratio, all.selector};
    for (const char* enable : kEnables)
        watched.append(m_page.cameraItem(enable));
    for (ORXPropertyTreeItem* item : qAsConst(watched))
        m_page.unobserve(item);
    becomeCopy(all.ownRatio, all.ratio);
    becomeCopy(all.ownSelector, all.selector);
    all.ownCommand->setReadOnly(false);
    for (ORXPropertyTreeItem* item : qAsConst(watched))
        m_page.observe(item);
    scheduleVisible();
}

void WhiteBalance::take(const QString& name)
{
    const Parts all = parts(nullptr);
    if (!all.isComplete())
        return;
    // Another pixel format may have other colours.
    const bool format = name == QLatin1String("PixelFormat");
    if (format || name == QLatin1String(kCameraSelector))
        takeValue(all.ownSelector, all.selector, m_page.cameraID());
    if (format || name == QLatin1String(kCameraRatio))
        takeValue(all.ownRatio, all.ratio, m_page.cameraID());
    scheduleVisible();
}

void WhiteBalance::scheduleVisible()
{
    if (m_page.tree() && m_page.tree()->HadUpdatedOnce())
        m_visibleTimer.start(0);
}

// By what the passes have read: the window never waits for the camera.
void WhiteBalance::updateVisible()
{
    const qint64 cameraId = m_page.cameraID();
    const Parts all = parts(nullptr);
    if (!all.isComplete())
        return;
    bool command = false;
    bool ratio = false;
    if (all.automatic->visible()) {
        const auto* automatic =
            dynamic_cast<const CTreeEnumationItemValue*>(all.automatic->value());
        if (!automatic || !wasRead(all.automatic))
            return; // stays as it is
        if (automatic->number() == 0) {
            ratio = std::any_of(kEnables.begin(), kEnables.end(),
                                [this](const char* name) { return isOn(m_page.cameraItem(name)); });
            command = !ratio;
        }
    }
    all.ownCommand->setVisible(command, cameraId);
    for (ORXPropertyTreeItem* item : {all.ownRatio, all.ownSelector}) {
        item->setVisible(ratio, cameraId);
        item->notifyViewUpdate(cameraId, -1, false);
    }
}

// Writing -----------------------------------------------------------------------------------------

bool WhiteBalance::write(const QString& name, const QVariant& value)
{
    ORXPropertyTreeItem* item = m_page.tree() ? m_page.tree()->propertyItemByName(name) : nullptr;
    if (!item)
        return false;
    const FeatureTag tag =
        name == QLatin1String(kCameraSelector) ? FeatureTag::Enumeration : FeatureTag::Integer;
    if (!m_page.tree()->setFeatureValue(featureTagName(tag), name, value.toInt()))
        return false;
    if (ORXPropertyTreeItem::isAlive(item)) {
        item->value()->setValue(value);
        item->endUpdateItem(m_page.cameraID());
    }
    return true;
}

// The "White Balance" button lets the camera balance once: the command stands for the entry "Once"
// of "BalanceWhiteAuto". A camera without an entry of that name is asked for number 1, which is the
// usual one, and shows the user what it makes of it.
bool WhiteBalance::balanceOnce()
{
    const ORXPropertyTreeItem* automatic = m_page.cameraItem(kAutomatic);
    const auto* value =
        automatic ? dynamic_cast<const CTreeEnumationItemValue*>(automatic->value()) : nullptr;
    if (!value)
        return false;
    constexpr qint64 kUsualOnce = 1;
    const QString text = value->nameMap().value(QStringLiteral("Once"));
    const qint64 once = value->valueMap().key(text, kUsualOnce);
    return m_page.tree()->setFeatureValue(featureTagName(FeatureTag::Enumeration),
                                          QString::fromLatin1(kAutomatic), once);
}
