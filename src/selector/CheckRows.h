// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureTag.h"

#include <QVector>

class CTreeCustomWaterMarkItemValue;
class ORXFeatureTreeView;
class ORXPropertyTreeItem;
class QString;

// The rows of check boxes below a group of a page, two boxes in a row. Boxes are numbered from 0,
// row by row. Knows what they show, not what it stands for. Owned by SelectorChecks; GUI thread.
class CheckRows
{
public:
    // `tag` is that of the rows.
    explicit CheckRows(FeatureTag tag)
        : m_tag(tag)
    {
    }

    FeatureTag tag() const { return m_tag; }
    // Takes the rows that the group has; makes them, for that many boxes, when it has none. The
    // group owns them.
    void attach(ORXPropertyTreeItem* group, ORXFeatureTreeView* view, int boxes, qint64 cameraId);
    void clear();
    int boxes() const { return 2 * int(m_rows.size()); }

    // Name and text are empty for a box that is not used.
    void setBox(int box, const QString& nodeName, const QString& text, bool disabled);
    // After all boxes were set: shows the rows of the first `used` ones. `recreate`: with new
    // boxes.
    void show(int used, bool recreate);
    void setChecked(int box, bool on);

private:
    CTreeCustomWaterMarkItemValue* boxesOf(int box) const;

    const FeatureTag m_tag;
    qint64 m_lCameraID = -1;
    QVector<ORXPropertyTreeItem*> m_rows; // Not owned.
};
