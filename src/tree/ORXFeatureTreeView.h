// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/GuiNotices.h"
#include "model/IORXFeatureNotify.h"
#include "model/ORXPropertyTreeItem.h"
#include "styledctl/ZELCustomQssHelper.h"
#include "tree/FeatureRowsView.h"

#include <atomic>

class IFeatureViewPage;

// The tree view of a page: shows one camera's items, turns their notifications into updates of rows
// and editors, and tells the page. Owned by its page.
//
// | operation                        | thread                            | lock              |
// |----------------------------------|-----------------------------------|-------------------|
// | item... (IORXFeatureNotify)      | GUI or reading; the signals are   | see the interface |
// |                                  | emitted on the GUI thread         |                   |
// | everything else                  | GUI                               | none              |
class ORXFeatureTreeView : public FeatureRowsView,
                           public IORXFeatureNotify,
                           public ZELCustomQssHelper
{
    Q_OBJECT
public:
    ORXFeatureTreeView(ORXPropertyTreeItem::ParentType type, IFeatureViewPage* page,
                       QWidget* parent);

    void resetData(qint64 cameraId, ORXPropertyTreeItem* root);
    // While set, notifications of items are dropped.
    void setForbiddenUpdate(bool forbidden);
    // Forgets the rows; the items stay.
    void clearModelInfo();
    // Text in the middle of an empty view.
    void setPlaceholderText(const QString& text);
    QString placeholderText() const { return m_strPlaceholder; }

    qint64 cameraID() const { return m_lCameraID; }

    void itemVisibleChanged(qint64 cameraId, ORXPropertyTreeItem* item, bool visible) override;
    void itemExpanded(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded) override;
    void itemValueChanged(qint64 cameraId, ORXPropertyTreeItem* item, int column,
                          bool needRecreateEditor) override;
    void itemSpecialInfoChanged(qint64 cameraId, ORXPropertyTreeItem* item, int info) override;

signals:
    void sigSetItemVisible(qint64 cameraId, ORXPropertyTreeItem* item, bool visible);
    void sigSetItemExpended(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded);
    void sigUpdateEditorData(qint64 cameraId, ORXPropertyTreeItem* item, int kind, bool recreate);
    void sigUpdateSpecialInfo(qint64 cameraId, ORXPropertyTreeItem* item, int info);

public slots:
    void onSetItemVisible(qint64 cameraId, ORXPropertyTreeItem* item, bool visible);
    void onSetItemExpended(qint64 cameraId, ORXPropertyTreeItem* item, bool expanded);
    void onUpdateEditorData(qint64 cameraId, ORXPropertyTreeItem* item, int kind, bool recreate);
    void onUpdateSpecialInfo(qint64 cameraId, ORXPropertyTreeItem* item, int info);
    void OnSigExpanded(const QModelIndex& index);
    void OnSigCollapsed(const QModelIndex& index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool concerns(qint64 cameraId, ORXPropertyTreeItem* item) const;

    IFeatureViewPage* m_pPage;                   // Not owned.
    std::atomic<bool> m_bForbiddenUpdate{false}; // read by the notifying threads
    bool m_bDirectNotification = false;          // the running notification came on this thread
    qint64 m_lCameraID = -1;
    QString m_strPlaceholder;
    GuiNotices m_notices;
};
