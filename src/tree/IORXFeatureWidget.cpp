// SPDX-License-Identifier: Apache-2.0
#include "tree/IORXFeatureWidget.h"

#include "model/CTreeItemValue.h"
#include "tree/IFeatureItems.h"
#include "tree/ORXFeatureTreeView.h"

IORXFeatureWidget::IORXFeatureWidget(ORXPropertyTreeItem::ParentType type, QWidget* parent)
    : ZELCustomWidget(parent)
    , m_pageType(type)
    , m_pTreeView(new ORXFeatureTreeView(type, this, this))
{
    cSetBackgroundColor(QStringLiteral("ZEL_DB_COLOR_IORXFeatureWidgetColor_Background"));
}

IORXFeatureWidget::~IORXFeatureWidget()
{
    m_pTreeView->resetData(-1, nullptr);
    for (ORXPropertyTreeItem* root : qAsConst(m_rootItems)) {
        if (root)
            removeFeatureTreeItem(root);
        delete root;
    }
}

void IORXFeatureWidget::afterSetFeatureValue(const QString&) {}
void IORXFeatureWidget::itemValueChanged(ORXPropertyTreeItem*) {}
void IORXFeatureWidget::itemVisibleStateChanged(ORXPropertyTreeItem*) {}
void IORXFeatureWidget::itemExpandStateChanged(ORXPropertyTreeItem*, bool) {}
void IORXFeatureWidget::itemSpecialInfoChanged(ORXPropertyTreeItem*, int) {}
QString IORXFeatureWidget::readOnlyReason(const ORXPropertyTreeItem&) const
{
    return {};
}
void IORXFeatureWidget::updateValue() {}
void IORXFeatureWidget::createTransMap() {}
ORXPropertyTreeItem* IORXFeatureWidget::creatRootItem()
{
    return nullptr;
}
void IORXFeatureWidget::resetSpecialItemValue() {}

ORXPropertyTreeItem* IORXFeatureWidget::getRootItem(qint64 cameraId, bool create)
{
    const qint64 key = cameraId < 0 ? m_lCameraID : cameraId;
    if (key == -1)
        return nullptr;
    ORXPropertyTreeItem* root = m_rootItems.value(key, nullptr);
    if (root || !create)
        return root;
    m_pTreeView->setForbiddenUpdate(true);
    root = creatRootItem();
    m_pTreeView->setForbiddenUpdate(false);
    m_rootItems.insert(key, root);
    return root;
}

void IORXFeatureWidget::setRootItem(qint64 cameraId, ORXPropertyTreeItem* root)
{
    m_rootItems.insert(cameraId, root);
}

bool IORXFeatureWidget::isInitialized(qint64 cameraId)
{
    return m_rootItems.contains(cameraId);
}

void IORXFeatureWidget::resetCamaraID(qint64 cameraId)
{
    if (cameraId == m_lCameraID)
        return;
    m_lCameraID = cameraId;
    const bool initialized = isInitialized(cameraId);
    ORXPropertyTreeItem* root = getRootItem(-1, true);
    if (initialized)
        updateValue();
    else
        resetSpecialItemValue();
    translate();
    m_pTreeView->resetData(m_lCameraID, root);
    if (!root) {
        m_lCameraID = -1;
        return;
    }
    m_pTreeView->openPersistentEdit(root, false);
    const QVector<ORXPropertyTreeItem*> groups = root->children();
    for (ORXPropertyTreeItem* group : groups)
        group->setExpanded(group->isDefaultExpanded(), m_lCameraID);
}

void IORXFeatureWidget::removeCameraID(qint64 cameraId)
{
    if (cameraId == m_lCameraID) {
        m_lCameraID = -1;
        m_pTreeView->resetData(-1, nullptr);
    }
    ORXPropertyTreeItem* root = m_rootItems.take(cameraId);
    if (!root)
        return;
    removeFeatureTreeItem(root);
    delete root;
}

void IORXFeatureWidget::removeFeatureTreeItem(ORXPropertyTreeItem* item)
{
    for (int row = item->childCount() - 1; row >= 0; --row) {
        ORXPropertyTreeItem* child = item->child(row);
        if (!child)
            return;
        // The whole tree owns its items; here they were only shown.
        if (m_pageType != ORXPropertyTreeItem::FeatureTreePage && child->isFeatureTreeItem()) {
            child->removeView(m_pTreeView);
            child->setParent(nullptr, m_pageType);
        } else {
            removeFeatureTreeItem(child);
        }
    }
}

void IORXFeatureWidget::setExpandedAll(bool expand)
{
    if (expand)
        m_pTreeView->expandAll();
    else
        m_pTreeView->collapseAll();
}

void IORXFeatureWidget::setIsCanEdit(bool canEdit)
{
    m_bCanEdit = canEdit;
    m_pTreeView->setIsCanEdit(canEdit);
}

ORXPropertyTreeItem* IORXFeatureWidget::createOneItem(bool create, ORXPropertyTreeItem* parent,
                                                      const QString& name,
                                                      const IFeatureItems* tree, bool isCategory,
                                                      bool keepVisible)
{
    ORXPropertyTreeItem* item = nullptr;
    if (create) {
        item = new ORXPropertyTreeItem(parent, m_pageType);
        item->setIsFeatureTreeItem(false);
        item->setReadOnly(false);
        item->setItemType(isCategory ? ORXPropertyTreeItem::CategoryItem
                                     : ORXPropertyTreeItem::FeatureItem);
        item->value()->setNodeName(name);
    } else {
        item = tree ? tree->propertyItemByName(name) : nullptr;
        if (!item)
            return nullptr;
        item->setParent(parent, m_pageType);
    }
    item->registerView(m_pTreeView);
    if (!keepVisible)
        item->setVisible(false, -1);
    return item;
}

ORXPropertyTreeItem* IORXFeatureWidget::getItemByNodeName(const QString& name,
                                                          ORXPropertyTreeItem* start,
                                                          qint64 cameraId)
{
    const ORXPropertyTreeItem* from = start ? start : getRootItem(cameraId, false);
    if (!from)
        return nullptr;
    const QVector<ORXPropertyTreeItem*> children = from->children();
    for (ORXPropertyTreeItem* child : children) {
        if (child->value() && child->value()->nodeName(0) == name)
            return child;
        if (ORXPropertyTreeItem* found = getItemByNodeName(name, child, cameraId))
            return found;
    }
    return nullptr;
}

void IORXFeatureWidget::translate()
{
    createTransMap();
    if (ORXPropertyTreeItem* root = getRootItem(-1, true))
        translateItem(root);
}

void IORXFeatureWidget::translateItem(ORXPropertyTreeItem* item)
{
    const QVector<ORXPropertyTreeItem*> children = item->children();
    for (ORXPropertyTreeItem* child : children)
        translateItem(child);
    if (!item->value())
        return;
    if (!item->isFeatureTreeItem()) {
        const auto text = m_transMap.constFind(item->value()->nodeName(0));
        if (text != m_transMap.constEnd()) {
            item->value()->setDisplayName(*text);
            item->value()->setTranslateName(*text);
        }
    }
    // Their editors show translated texts.
    if (item->tag() == FeatureTag::Command || item->tag() == FeatureTag::Enumeration)
        item->notifyViewUpdate(m_lCameraID, -1, false);
}
