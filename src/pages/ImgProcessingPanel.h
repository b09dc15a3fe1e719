// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStackedWidget>

class QLUTDrawWidget;
class QScrollArea;
class RegionDrawWidget;

// What stands below the rows of the image processing page: the picture of the sensor, the curve of
// the look-up table, or nothing. Owned by its page; GUI thread.
class ImgProcessingPanel : public QStackedWidget
{
    Q_OBJECT
public:
    // Shares the height of the page, in its layout, with the rows.
    ImgProcessingPanel(QWidget* rows, QWidget* page);

    enum Content { Nothing, Region, Curve };
    // `width` is that of the page.
    void setContent(Content content, int width);
    // Takes no more height than its content can use at that width of the page.
    void fit(int width);

    RegionDrawWidget* region() const { return m_pRegion; }
    QLUTDrawWidget* lut() const { return m_pLut; }

private:
    RegionDrawWidget* m_pRegion; // Owned (child).
    QScrollArea* m_pLutPanel;    // Owned (child).
    QLUTDrawWidget* m_pLut;      // Owned (child).
};
