// SPDX-License-Identifier: Apache-2.0
// The update of one item by QGetFeaturesThread.
#include "device/OBDeviceControl.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/FeatureVisibility.h"
#include "model/ORXPropertyTreeItem.h"
#include "reading/FeatureMutex.h"
#include "reading/IFeatureReadingOwner.h"
#include "reading/QGetFeaturesThread.h"

namespace {

const QLatin1String kInvisible("Invisible");
const QLatin1String kBeginner("Beginner");

} // namespace

bool QGetFeaturesThread::IsItemVisible(const QString& visibility, int level)
{
    return FeatureVisibility::isShownAt(visibility, level);
}

bool QGetFeaturesThread::IsTagNameItemVisible(const QString& tag)
{
    return tag.isEmpty() || isFeatureElement(featureTag(tag));
}

bool QGetFeaturesThread::IsFeatureVisibility(const QString& name) const
{
    const FeatureNodePtr node = m_nodes.node(name);
    return node && node->visibility != kInvisible;
}

bool QGetFeaturesThread::beginFeature(const QString& name)
{
    return locked([&](Waiting&, ReadingPass*) {
        if (m_disableUpdateList.contains(name))
            return false;
        m_strCurrentFeature = name;
        return true;
    });
}

bool QGetFeaturesThread::UpdateFeature(ORXPropertyTreeItem* item, UpdateFlags flags)
{
    if (!m_pOwner || !item || !item->value())
        return false;
    const FeatureLock lock(m_pOwner->GetFeatureMutex(), &stopRequest());
    if (!lock.holds() || !beginFeature(item->value()->nodeName(0)))
        return false;
    const bool changed = updateLocked(item, flags);
    locked([this](Waiting&, ReadingPass*) { m_strCurrentFeature.clear(); });
    return changed;
}

// After a stop the camera's answers are no answers: what was asked last is not stored, and the item
// stays as it was from there on.
bool QGetFeaturesThread::updateLocked(ORXPropertyTreeItem* item, UpdateFlags flags)
{
    const FeatureNodePtr node = m_nodes.node(item->value()->nodeName(0));
    if (!node)
        return false;
    m_decider.beginItem();

    bool modeReadOnly = false;
    if (flags & (UpdateVisibility | UpdateAttribute)) {
        const int mode = OBDeviceControl::GetNodeAccessMode(node->name);
        if (stopRequested())
            return false;
        modeReadOnly = mode == OB_FT_ACCESS_READ_ONLY;
        if (!OBDeviceControl::isReadableMode(mode) && node->tag != FeatureTag::Category) {
            item->value()->setLastRead(CTreeItemValue::LastRead::Failed);
            item->setVisibilityString(kInvisible);
            item->setVisible(false, m_lCameraID);
            return false;
        }
    }

    CTreeItemValue* value = item->value();
    if (!node->displayName.isEmpty())
        value->setDisplayName(node->displayName);
    value->setTranslateName(OBDeviceControl::GetDisplayNameTrans(node->name));
    value->setDescription(node->description);
    value->setTranslatedDescription(OBDeviceControl::GetDescriptionTrans(node->name));
    const QString visibility = node->visibility.isEmpty() ? QString(kBeginner) : node->visibility;

    const bool available = m_decider.IsFeatureAvailable(node->pIsAvailable);
    if (stopRequested())
        return false;
    const bool wasVisible = item->visible();
    if (flags & UpdateVisibility && !updateVisibility(*node, item, available, visibility))
        return false;
    // A row that begins to show does not wait for the next full pass for its first value.
    if (!wasVisible && item->visible() && !item->wasRead())
        flags |= UpdateFlags(UpdateValueVisible) | UpdateAttribute;
    if (flags & UpdateAttribute)
        item->setVisibilityString(visibility);
    const bool reads = flags & UpdateValueAll || (flags & UpdateValueVisible && item->visible());
    if (reads)
        m_reader.UpdateGenICamItemValue(*node, item, m_lCameraID);
    if (stopRequested())
        return false;
    if (flags & UpdateAttribute && !updateAttributes(*node, item, available, modeReadOnly))
        return false;
    if (FeatureValueReader::hasReader(node->tag) ? reads : bool(flags & UpdateAttribute))
        item->setWasRead(true, m_lCameraID);
    return item->endUpdateItem(m_lCameraID);
}

bool QGetFeaturesThread::updateVisibility(const FeatureNode& node, ORXPropertyTreeItem* item,
                                          bool available, const QString& visibility)
{
    const bool usable = IsTagNameItemVisible(node.tagName) &&
                        m_decider.IsFeatureImplemented(node.pIsImplemented) &&
                        (available || node.tag != FeatureTag::Category);
    if (stopRequested())
        return false;
    item->setVisibilityString(usable ? visibility : QString(kInvisible));
    const bool shown = usable && IsItemVisible(visibility, m_nUserLevel);
    item->setVisible(shown, m_lCameraID);
    return usable;
}

bool QGetFeaturesThread::updateAttributes(const FeatureNode& node, ORXPropertyTreeItem* item,
                                          bool available, bool modeReadOnly)
{
    const bool lockedNow = m_decider.IsFeatureLocked(node.pIsLocked);
    if (stopRequested())
        return false;
    if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(item->value()))
        integer->setRepresentation(node.representation);
    item->setReadOnly(lockedNow || !available || modeReadOnly);
    return m_docText.update(node, item);
}
