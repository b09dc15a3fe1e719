// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/IORXListen.h"
#include "pages/CuratedPage.h"
#include "region/RegionArea.h"
#include "selector/SelectorChecks.h"
#include "tree/SelectorRowsLock.h"

#include <QTimer>

#include <memory>

class ColorMatrix;
class QLUTDrawWidget;
class QScrollArea;
class QStackedWidget;
class RegionDrawWidget;

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
    void createTransMap() override;
    int notify(int code, void* payload) override;

    // The page has come into sight.
    void afterCurrentTabShow();
    // The first half of stopHostCalls(): returns at once.
    void requestStop();
    // No worker of the page calls the host any more on return; running calls are waited for.
    void stopHostCalls();
    // Tells every listener that drawing in a mode (RegionDrawWidget::DrawMode) begins or ends.
    void notifyDrawModeChange(int mode, bool on);

    RegionDrawWidget* regionPicture() const { return m_pRegion; }
    QLUTDrawWidget* lutEditor() const { return m_pLut; }
    // The camera's colour correction matrix; null when it has none.
    ColorMatrix* colorMatrix() const { return m_matrix.get(); }

protected:
    void afterItemsCreated(ORXPropertyTreeItem* root) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildLayout();
    void createLUTItems(ORXPropertyTreeItem* root);
    void connectLUTItems();
    void updateLUTItems();
    void lockTable(bool lock);
    void createMatrixItems(ORXPropertyTreeItem* root);
    void attachMatrix(ORXPropertyTreeItem* root);
    static bool concernsMatrix(const QString& nodeName);
    void updateMatrix();
    void settleMatrixOfFile(ORXPropertyTreeItem* matrix);
    void createPaletteItem(ORXPropertyTreeItem* root);
    void updatePalette();

    void scheduleRefresh();
    void refresh();
    void forgetCamera();
    bool showsGroup(const char* group);
    void updateAreas();
    void updatePanel();
    void fitPanel();
    void setDrawMode(int mode);
    void rereadBehindSelectors();
    void writeRegion(const RegionArea::Target& target);
    QVector<SelectorChecks*> checks() { return {m_pChunks, m_pEvents}; }

    SelectorChecks* m_pChunks;   // Owned (child).
    SelectorChecks* m_pEvents;   // Owned (child).
    QStackedWidget* m_pPanels;   // Owned (child).
    RegionDrawWidget* m_pRegion; // Owned (child).
    QScrollArea* m_pLutPanel;    // Owned (child).
    QLUTDrawWidget* m_pLut;      // Owned (child).
    std::unique_ptr<ColorMatrix> m_matrix;
    SelectorRowsLock m_tableLock;   // while a table is transferred
    QTimer m_refreshTimer;          // many changes of items are one refresh
    QTimer m_areasTimer;            // waits for the end of a pass
    bool m_bMatrixChanged = false;  // in the camera, since the last refresh
    bool m_bDrawnElsewhere = false; // another page draws in the same camera
};
