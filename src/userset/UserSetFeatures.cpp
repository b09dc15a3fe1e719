// SPDX-License-Identifier: Apache-2.0
#include "userset/UserSetFeatures.h"

#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "tree/ORXFeatureTree.h"
#include "tree/PageSupport.h"

#include <QVariant>

UserSetFeatures::UserSetFeatures(qint64 cameraId)
    : m_lCameraID(cameraId)
    , m_pTree(PageSupport::treeOf(cameraId))
{
    for (std::size_t i = 0; m_pTree && i < m_items.size(); ++i)
        m_items[i] =
            m_pTree->propertyItemByName(QString::fromLatin1(UserSetTable::features()[i].name));
}

ORXFeatureTree* UserSetFeatures::tree() const
{
    return m_pTree;
}

bool UserSetFeatures::isComplete() const
{
    bool complete = m_pTree != nullptr;
    for (std::size_t i = 0; i < m_items.size(); ++i)
        complete = complete && (m_items[i] || !UserSetTable::features()[i].required);
    return complete;
}

ORXPropertyTreeItem* UserSetFeatures::item(UserSetTable::Feature feature) const
{
    ORXPropertyTreeItem* found = m_items[feature];
    return m_pTree && found && ORXPropertyTreeItem::isAlive(found) ? found : nullptr;
}

int UserSetFeatures::number(UserSetTable::Feature feature) const
{
    const ORXPropertyTreeItem* found = item(feature);
    return found && found->value() ? found->value()->value().toInt() : -1;
}

// The item takes the value only if the camera did: what it shows decides whether the next press
// selects a set again.
bool UserSetFeatures::write(UserSetTable::Feature feature, int value)
{
    ORXPropertyTreeItem* target = item(feature);
    if (!target)
        return false;
    if (number(feature) == value)
        return true;
    if (!m_pTree->setFeatureValue(target, value, false))
        return false;
    target = item(feature);
    if (!target)
        return false;
    target->value()->setValue(value);
    target->notifyViewUpdate(m_lCameraID, -1, false);
    return true;
}

bool UserSetFeatures::execute(UserSetTable::Feature feature)
{
    ORXPropertyTreeItem* command = item(feature);
    return command && m_pTree->setFeatureValue(command, QVariant(), false);
}

void UserSetFeatures::registerView(IORXFeatureNotify* view)
{
    for (ORXPropertyTreeItem* each : m_items) {
        if (each)
            each->registerView(view);
    }
}

void UserSetFeatures::removeView(IORXFeatureNotify* view)
{
    for (ORXPropertyTreeItem* each : m_items) {
        if (each && ORXPropertyTreeItem::isAlive(each))
            each->removeView(view);
    }
}
