// SPDX-License-Identifier: Apache-2.0
#include "selector/CheckRows.h"

#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/ORXPropertyTreeItem.h"
#include "tree/ORXFeatureTreeView.h"

void CheckRows::attach(ORXPropertyTreeItem* group, ORXFeatureTreeView* view, int boxes,
                       qint64 cameraId)
{
    clear();
    m_lCameraID = cameraId;
    const QVector<ORXPropertyTreeItem*> items = group->children();
    for (ORXPropertyTreeItem* item : items) {
        if (item->tag() == m_tag)
            m_rows.append(item);
    }
    if (!m_rows.isEmpty())
        return;
    for (int first = 0; first < boxes; first += 2) {
        auto* row = new ORXPropertyTreeItem(group, ORXPropertyTreeItem::ImageProcessingPage);
        row->setIsFeatureTreeItem(false);
        row->setItemType(ORXPropertyTreeItem::FeatureItem);
        row->setReadOnly(false);
        row->setTagName(featureTagName(m_tag));
        row->registerView(view);
        row->setVisible(false, -1);
        m_rows.append(row);
    }
}

void CheckRows::clear()
{
    m_rows.clear();
    m_lCameraID = -1;
}

CTreeCustomWaterMarkItemValue* CheckRows::boxesOf(int box) const
{
    return dynamic_cast<CTreeCustomWaterMarkItemValue*>(m_rows.at(box / 2)->value());
}

void CheckRows::setBox(int box, const QString& nodeName, const QString& text, bool disabled)
{
    boxesOf(box)->setColumn(box % 2, nodeName, text);
    boxesOf(box)->setColumnDisabled(box % 2, disabled);
}

void CheckRows::show(int used, bool recreate)
{
    for (int row = 0; row < m_rows.size(); ++row) {
        m_rows.at(row)->setVisible(2 * row < used, m_lCameraID);
        m_rows.at(row)->notifyViewUpdate(m_lCameraID, 1, recreate);
    }
}

void CheckRows::setChecked(int box, bool on)
{
    boxesOf(box)->setCheckState(box % 2, on ? Qt::Checked : Qt::Unchecked);
    m_rows.at(box / 2)->notifyViewUpdate(m_lCameraID, 1, false);
}
