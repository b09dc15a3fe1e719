// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/CuratedPageTable.h"
#include "tree/IORXFeatureWidget.h"

#include <functional>

class ORXFeatureTree;

// Base of the curated pages: builds groups and items from the page's table, translates them in the
// page's context, and passes writes on to the camera's whole tree. Features of the camera are the
// whole tree's own items, shown a second time, so that both pages always show the same; only
// page items, whose names begin with "Custom_", are made here. Owned by the main widget; GUI
// thread.
class CuratedPage : public IORXFeatureWidget
{
    Q_OBJECT
public:
    ~CuratedPage() override;

    // The write of a page item runs its handler (onOwnWrite), any other goes through the whole
    // tree. True when the camera has no whole tree: nothing was refused.
    bool setFeatureValue(const QString& tagName, const QString& nodeName,
                         const QVariant& value) override;
    void itemVisibleStateChanged(ORXPropertyTreeItem* item) override;
    QString readOnlyReason(const ORXPropertyTreeItem& item) const override;
    void removeCameraID(qint64 cameraId) override;
    // Null when the camera has no whole tree or the table no groups.
    ORXPropertyTreeItem* creatRootItem() override;
    void translate() override;
    // From the table.
    void createTransMap() override;

    // For the page and the objects that it consists of:

    // The whole tree of the shown camera; null when there is none.
    ORXFeatureTree* tree() const;
    // An item of the page, searched below `start` (null: the shown camera's root); may be null.
    ORXPropertyTreeItem* pageItem(const char* name, ORXPropertyTreeItem* start = nullptr);
    // The camera's feature, shown by the page or not; may be null.
    ORXPropertyTreeItem* cameraItem(const char* name) const;

    // What the user's edit of a page item does; returns false for a refusal. A page item without a
    // handler just keeps the value.
    using OwnWrite = std::function<bool(const QVariant& value)>;
    void onOwnWrite(const char* name, const OwnWrite& write);

    // The page's hooks hear, or hear no more, of changes of a feature that it does not show.
    void observe(ORXPropertyTreeItem* item);
    void unobserve(ORXPropertyTreeItem* item);

protected:
    // `table` is not owned and must outlive the page.
    CuratedPage(const CuratedPageTable& table, ORXPropertyTreeItem::ParentType type,
                QWidget* parent);

    // Adds one line of a table to a group that is being built; null when the camera lacks it.
    ORXPropertyTreeItem* addItem(ORXPropertyTreeItem* group, const CuratedItem& line);
    // Hook at the end of creatRootItem(): `root` is not yet shown.
    virtual void afterItemsCreated(ORXPropertyTreeItem* root);

    // For createTransMap(): the texts (node name to English), translated.
    void fillTransMap(const QMap<QString, QString>& texts);
    // `text` in the page's context.
    QString translated(const char* text) const;

private:
    void followVisibility(ORXPropertyTreeItem* root, const QString& leader, qint64 cameraId);
    void forgetObserved(qint64 cameraId);

    const CuratedPageTable& m_table; // Not owned.
    QMap<QString, OwnWrite> m_ownWrites;
    QMultiMap<qint64, ORXPropertyTreeItem*> m_observed; // by camera. Not owned.
};
