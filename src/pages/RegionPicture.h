// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "region/RegionArea.h"

#include <QObject>
#include <QTimer>

class CuratedPage;
class RegionDrawWidget;

// The picture of the sensor on a page: shows the areas as the passes have read them, writes what
// the user draws, and tells who draws in the camera. Owned by the page; GUI thread.
class RegionPicture : public QObject
{
    Q_OBJECT
public:
    // Neither is owned.
    RegionPicture(CuratedPage& page, RegionDrawWidget& picture);

    // Shows the areas, if no pass is under way; else SigOutdated() comes again.
    void update();
    // A RegionDrawWidget::DrawMode: which area the user can draw in.
    void setDrawMode(int mode);
    // The camera goes: nothing is shown or drawn any more.
    void clear();

signals:
    // Drawing in a mode has begun or ended.
    void SigDrawModeChange(int mode, bool on);
    void SigOutdated();

private:
    void writeRegion(const RegionArea::Target& target);

    CuratedPage& m_page;         // Not owned.
    RegionDrawWidget& m_picture; // Not owned.
    QTimer m_timer;              // waits for the end of a pass
};
