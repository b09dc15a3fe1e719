// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/IORXListen.h"
#include "pages/CuratedPage.h"
#include "pages/ImgProcessingPanel.h"
#include "pages/LUTItems.h"
#include "pages/MatrixItems.h"
#include "pages/PaletteItem.h"
#include "pages/RegionPicture.h"
#include "selector/SelectorChecks.h"

#include <QTimer>

// The page of image processing: region and automatics' areas with a picture to draw in, embedded
// information, events, look-up table with its curve editor, colour correction matrix, palettes. The
// picture or the curve stands below the rows of the group that it belongs to. Owned by the main
// widget; GUI thread.
class ORXImgProcessingFeature : public CuratedPage, public IORXListen
{
    Q_OBJECT
public:
    explicit ORXImgProcessingFeature(QWidget* parent);
    ~ORXImgProcessingFeature() override;

    bool setFeatureValue(const QString& tagName, const QString& nodeName,
                         const QVariant& value) override;
    void itemValueChanged(ORXPropertyTreeItem* item) override;
    void itemVisibleStateChanged(ORXPropertyTreeItem* item) override;
    void itemSpecialInfoChanged(ORXPropertyTreeItem* item, int info) override;
    void resetCamaraID(qint64 cameraId) override;
    void removeCameraID(qint64 cameraId) override;
    void updateValue() override;
    void translate() override;
    int notify(int code, void* payload) override;

    // The page has come into sight.
    void afterCurrentTabShow();
    // The first half of stopHostCalls(): returns at once.
    void requestStop();
    // No worker of the page calls the host any more on return; running calls are waited for.
    void stopHostCalls();
    // Tells every listener that drawing in a mode (RegionDrawWidget::DrawMode) begins or ends.
    void notifyDrawModeChange(int mode, bool on);

    RegionDrawWidget* regionPicture() const { return m_pPanel->region(); }
    QLUTDrawWidget* lutEditor() const { return m_pPanel->lut(); }
    // The camera's colour correction matrix; null when it has none.
    ColorMatrix* colorMatrix() const { return m_matrix.matrix(); }

protected:
    void afterItemsCreated(ORXPropertyTreeItem* root) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void attach(ORXPropertyTreeItem* root);
    void requestStates();
    void rereadBehindSelectors();
    void scheduleRefresh();
    void refresh();
    void forgetCamera();
    bool showsGroup(const char* group);
    void updatePanel();
    QVector<SelectorChecks*> checks() { return {m_pChunks, m_pEvents}; }

    SelectorChecks* m_pChunks;    // Owned (child).
    SelectorChecks* m_pEvents;    // Owned (child).
    ImgProcessingPanel* m_pPanel; // Owned (child).
    RegionPicture m_region;
    LUTItems m_lut;
    MatrixItems m_matrix;
    PaletteItem m_palette;
    QTimer m_refreshTimer;          // many changes of items are one refresh
    bool m_bDrawnElsewhere = false; // another page draws in the same camera
};
