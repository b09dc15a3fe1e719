// SPDX-License-Identifier: Apache-2.0
#include "pages/ORXTriggerFeature.h"

#include "model/CTreeItemValue.h"
#include "tree/ORXFeatureTree.h"

namespace {

constexpr char kTriggerSoftware[] = "TriggerSoftware";
constexpr char kAutoTrigTime[] = "Custom_AutoTrigTime";
constexpr char kEnableAutoTrig[] = "Custom_EnableAutoTrig";

const CTreeIntergerItemValue::Numbers kPeriodMs = {1000, 1, 1000000000, 1};

const CuratedPageTable& triggerTable()
{
    static const CuratedPageTable kTable = {
        "ORXTriggerFeature",
        QT_TRANSLATE_NOOP("ORXTriggerFeature", "Trigger"),
        {
            // Triggers are inputs to the camera, lines its outputs.
            {"Custom_Trigger",
             QT_TRANSLATE_NOOP("ORXTriggerFeature", "IO Input"),
             {
                 "TriggerSelector",
                 "TriggerMode",
                 "TriggerSource",
                 "TriggerActivation",
                 "TriggerDelay",
                 {kAutoTrigTime, QT_TRANSLATE_NOOP("ORXTriggerFeature", "Auto Trigger Time(ms)"),
                  FeatureTag::Integer, kPeriodMs, kTriggerSoftware},
                 {kEnableAutoTrig, QT_TRANSLATE_NOOP("ORXTriggerFeature", "Enable Auto Trigger"),
                  FeatureTag::Boolean, false, kTriggerSoftware},
                 kTriggerSoftware,
             }},
            {"Custom_IOControl",
             QT_TRANSLATE_NOOP("ORXTriggerFeature", "IO Output"),
             {
                 "LineSelector",
                 "LineMode",
                 "LineDebouncerTime",
                 "LineSource",
                 "HardwareTriggerSource",
                 "HardwareTriggerActivation",
                 "LineTriggerSoftware",
                 "StrobeEnable",
                 "StrobeLineDuration",
                 "StrobeLineDelay",
                 "StrobeLinePreDelay",
             }},
            {"Custom_EncoderControl",
             QT_TRANSLATE_NOOP("ORXTriggerFeature", "Encoder Control"),
             {
                 "EncoderSelector",
                 "EncoderSourceA",
                 "EncoderSourceB",
                 "EncoderOutputMode",
                 "EncoderCounterMode",
                 "EncoderCounter",
                 "EncoderCounterMax",
                 "EncoderCounterReset",
                 "EncoderMaxReverseCounter",
                 "EncoderReverseCounterReset",
             }},
            {"Custom_FrequencyConverterControl",
             QT_TRANSLATE_NOOP("ORXTriggerFeature", "Frequency Converter Control"),
             {
                 "InputSource",
                 "PreDivider",
                 "Multiplier",
                 "PostDivider",
             }},
        }};
    return kTable;
}

} // namespace

const QMap<QString, QString>& getTriggerTransMap()
{
    static const QMap<QString, QString> kTexts = triggerTable().texts();
    return kTexts;
}

ORXTriggerFeature::ORXTriggerFeature(QWidget* parent)
    : CuratedPage(triggerTable(), ORXPropertyTreeItem::TriggerPage, parent)
{
    onOwnWrite(kEnableAutoTrig, [this](const QVariant& value) { return enableAutoTrigger(value); });
}

void ORXTriggerFeature::createTransMap()
{
    fillTransMap(getTriggerTransMap());
}

void ORXTriggerFeature::afterItemsCreated(ORXPropertyTreeItem*)
{
    connect(tree(), &ORXFeatureTree::SigAutoSoftwareTrigChanged, this,
            &ORXTriggerFeature::showAutoTrigger, Qt::UniqueConnection);
}

void ORXTriggerFeature::resetCamaraID(qint64 cameraId)
{
    ORXFeatureTree* before = tree();
    if (before && cameraId != cameraID())
        before->SetAutoSoftwareTrig(false, 0);
    CuratedPage::resetCamaraID(cameraId);
}

bool ORXTriggerFeature::enableAutoTrigger(const QVariant& value)
{
    const ORXPropertyTreeItem* trigger = pageItem(kTriggerSoftware);
    const ORXPropertyTreeItem* time = pageItem(kAutoTrigTime);
    if (!trigger || !time)
        return false;
    const bool enable = value.toInt() > 0;
    tree()->SetAutoSoftwareTrig(enable, time->value()->value().toUInt());
    // What the triggers changed, and whether the camera locks the command by itself.
    if (!enable)
        tree()->rereadInvalidated(trigger->value()->nodeName(0));
    return true;
}

void ORXTriggerFeature::showAutoTrigger(qint64 cameraId, bool enabled)
{
    if (!getRootItem(cameraId, false))
        return;
    const auto find = [=](const char* name) {
        return getItemByNodeName(QString::fromLatin1(name), nullptr, cameraId);
    };
    ORXPropertyTreeItem* enable = find(kEnableAutoTrig);
    ORXPropertyTreeItem* trigger = find(kTriggerSoftware);
    ORXPropertyTreeItem* time = find(kAutoTrigTime);
    if (!enable || !trigger || !time)
        return;
    enable->value()->setValue(enabled);
    enable->notifyViewUpdate(cameraId, -1, false);
    // Passes set the read-only state by the camera's locks; this switch is not theirs.
    trigger->value()->setEnabled(!enabled);
    for (ORXPropertyTreeItem* item : {trigger, time}) {
        item->setReadOnly(enabled);
        item->notifyViewUpdate(cameraId, -1, false);
    }
}
