// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomWidget.h"
#include "tree/IFeatureViewPage.h"

#include <QMap>
#include <QString>

class IFeatureItems;
class ORXFeatureTreeView;

// Base of every page of features: one root item per camera, the page's tree view, the switch of the
// shown camera. A page owns its roots and the items that it makes itself; items of the whole tree
// are only borrowed. GUI thread.
class IORXFeatureWidget : public ZELCustomWidget, public IFeatureViewPage
{
    Q_OBJECT
public:
    IORXFeatureWidget(ORXPropertyTreeItem::ParentType type, QWidget* parent);
    ~IORXFeatureWidget() override;

    // Hooks of the page's view; nothing in the base.
    void afterSetFeatureValue(const QString& nodeName) override;
    void itemValueChanged(ORXPropertyTreeItem* item) override;
    void itemVisibleStateChanged(ORXPropertyTreeItem* item) override;
    void itemExpandStateChanged(ORXPropertyTreeItem* item, bool expanded) override;
    void itemSpecialInfoChanged(ORXPropertyTreeItem* item, int info) override;
    QString readOnlyReason(const ORXPropertyTreeItem& item) const override;

    // Shows another camera, making its root if needed.
    virtual void resetCamaraID(qint64 cameraId);
    // Destroys the camera's root; borrowed items are only detached.
    virtual void removeCameraID(qint64 cameraId);
    // Root of the camera (a negative key: of the shown one), made when `create` is set; may be
    // null.
    virtual ORXPropertyTreeItem* getRootItem(qint64 cameraId, bool create);
    virtual void setExpandedAll(bool expand);
    // True when a root was asked for, even if the page could make none.
    virtual bool isInitialized(qint64 cameraId);
    virtual void updateValue();
    // Renews the display texts of the page items.
    virtual void translate();
    // Fills m_transMap (node name to display text).
    virtual void createTransMap();
    virtual ORXPropertyTreeItem* creatRootItem();
    virtual void resetSpecialItemValue();

    // Makes a page item (`create`) or borrows the one of `name` from `tree`; null when there is
    // none. The item is hidden at first unless `keepVisible`.
    ORXPropertyTreeItem* createOneItem(bool create, ORXPropertyTreeItem* parent,
                                       const QString& name, const IFeatureItems* tree,
                                       bool isCategory, bool keepVisible);
    // Depth-first below `start` (null: the camera's root); null when there is none.
    ORXPropertyTreeItem* getItemByNodeName(const QString& name, ORXPropertyTreeItem* start,
                                           qint64 cameraId);
    void setIsCanEdit(bool canEdit);
    bool isCanEdit() const { return m_bCanEdit; }
    qint64 cameraID() const { return m_lCameraID; }
    ORXPropertyTreeItem::ParentType pageType() const { return m_pageType; }
    ORXFeatureTreeView* treeView() const { return m_pTreeView; }

protected:
    void removeFeatureTreeItem(ORXPropertyTreeItem* item);
    // The root that a page keeps for a camera; null forgets it without destroying it.
    void setRootItem(qint64 cameraId, ORXPropertyTreeItem* root);
    void setCameraID(qint64 cameraId) { m_lCameraID = cameraId; }

    QMap<QString, QString> m_transMap;

private:
    void translateItem(ORXPropertyTreeItem* item);

    ORXPropertyTreeItem::ParentType m_pageType;
    qint64 m_lCameraID = -1;
    bool m_bCanEdit = true;
    ORXFeatureTreeView* m_pTreeView;                // Owned (child).
    QMap<qint64, ORXPropertyTreeItem*> m_rootItems; // Owned.
};
