// SPDX-License-Identifier: Apache-2.0
#include "reading/FeatureItemUpdate.h"

#include "device/OBDeviceControl.h"
#include "device/StopRequest.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/FeatureVisibility.h"
#include "model/ORXPropertyTreeItem.h"

namespace {

const QLatin1String kInvisible("Invisible");
const QLatin1String kBeginner("Beginner");

} // namespace

FeatureItemUpdate::FeatureItemUpdate(const StopRequest& stop)
    : m_stop(stop)
    , m_reader(m_decider)
    , m_docText(m_decider)
{
}

void FeatureItemUpdate::setNodes(const FeatureNodeMap& nodes)
{
    m_nodes = nodes;
    m_decider.setNodes(nodes);
}

bool FeatureItemUpdate::isKnownVisible(const QString& name) const
{
    const FeatureNodePtr node = m_nodes.node(name);
    return node && node->visibility != kInvisible;
}

// After a stop the camera's answers are no answers: what was asked last is not stored, and the item
// stays as it was from there on.
bool FeatureItemUpdate::update(ORXPropertyTreeItem* item, ReadingPass::UpdateFlags flags)
{
    const FeatureNodePtr node = m_nodes.node(item->value()->nodeName(0));
    if (!node)
        return false;
    m_decider.beginItem();

    bool modeReadOnly = false;
    if (flags & (ReadingPass::UpdateVisibility | ReadingPass::UpdateAttribute)) {
        const int mode = OBDeviceControl::GetNodeAccessMode(node->name);
        if (m_stop.isRequested())
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
    value->setDescription(node->description);
    const QString visibility = node->visibility.isEmpty() ? QString(kBeginner) : node->visibility;

    const bool available = m_decider.IsFeatureAvailable(node->pIsAvailable);
    if (m_stop.isRequested())
        return false;
    const bool wasVisible = item->visible();
    if (flags & ReadingPass::UpdateVisibility &&
        !updateVisibility(*node, item, available, visibility))
        return false;
    // A row that begins to show does not wait for the next full pass for its first value.
    if (!wasVisible && item->visible() && !item->wasRead())
        flags |= ReadingPass::UpdateFlags(ReadingPass::UpdateValueVisible) |
                 ReadingPass::UpdateAttribute;
    if (flags & ReadingPass::UpdateAttribute)
        item->setVisibilityString(visibility);
    const bool reads = flags & ReadingPass::UpdateValueAll ||
                       (flags & ReadingPass::UpdateValueVisible && item->visible());
    if (reads)
        m_reader.UpdateGenICamItemValue(*node, item, m_lCameraID);
    if (m_stop.isRequested())
        return false;
    if (flags & ReadingPass::UpdateAttribute &&
        !updateAttributes(node, item, available, modeReadOnly))
        return false;
    if (FeatureValueReader::hasReader(node->tag) ? reads
                                                 : bool(flags & ReadingPass::UpdateAttribute))
        item->setWasRead(true, m_lCameraID);
    return item->endUpdateItem(m_lCameraID);
}

bool FeatureItemUpdate::updateVisibility(const FeatureNode& node, ORXPropertyTreeItem* item,
                                         bool available, const QString& visibility)
{
    const bool usable = (node.tagName.isEmpty() || isFeatureElement(node.tag)) &&
                        m_decider.IsFeatureImplemented(node.pIsImplemented) &&
                        (available || node.tag != FeatureTag::Category);
    if (m_stop.isRequested())
        return false;
    item->setVisibilityString(usable ? visibility : QString(kInvisible));
    const bool shown = usable && FeatureVisibility::isShownAt(visibility, m_nUserLevel);
    item->setVisible(shown, m_lCameraID);
    return usable;
}

bool FeatureItemUpdate::updateAttributes(const FeatureNodePtr& node, ORXPropertyTreeItem* item,
                                         bool available, bool modeReadOnly)
{
    const bool lockedNow = m_decider.IsFeatureLocked(node->pIsLocked);
    if (m_stop.isRequested())
        return false;
    if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(item->value()))
        integer->setRepresentation(node->representation);
    // What unlocks it does not help while it is not available.
    const ReadOnlyCause cause = !available     ? ReadOnlyCause::NotAvailable
                                : lockedNow    ? ReadOnlyCause::Locked
                                : modeReadOnly ? ReadOnlyCause::AccessMode
                                               : ReadOnlyCause::None;
    item->setReadOnly(cause != ReadOnlyCause::None, cause);
    return m_docText.update(node, item);
}
