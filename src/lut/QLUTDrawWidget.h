// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTFoldLine.h"
#include "lut/LUTFreeLine.h"
#include "lut/LUTPlot.h"
#include "lut/LUTSmoothCurve.h"
#include "lut/LUTTransferReport.h"

#include <QPointer>
#include <QWidget>

class ORXLUTThread;
class ZELCustomMessageBox;

// Shows the camera's look-up table as a curve, lets the user edit it with mouse and keyboard, keeps
// it in text files and exchanges it with the camera. Owned by the page that embeds it; GUI thread.
// The transfers run on a worker; nothing here waits for the camera but the destructor, which waits
// for the one host call that may be in progress.
//
// While a transfer runs the curve cannot be edited. It ends when the window is closed, when another
// camera is chosen or on StopTransfer(); a table that was written in part is reported to the user.
class QLUTDrawWidget final : public QWidget
{
    Q_OBJECT
public:
    enum DrawLineType { FoldLine = 0, SmoothCurve = 1, FreeLine = 2 };

    explicit QLUTDrawWidget(QWidget* parent = nullptr);
    ~QLUTDrawWidget() override;

    // A DrawLineType; others are ignored. Clears the selection.
    void SetDrawLineChanged(int type);
    int GetCurrentDrawLine() const { return m_nDrawLine; }
    // Stored for the page; the curve does not depend on them.
    void SetGammaValue(float gamma) { m_fGamma = gamma; }
    void SetContrastValue(float contrast) { m_fContrast = contrast; }
    void SetLumValue(float luminance) { m_fLum = luminance; }
    float GammaValue() const { return m_fGamma; }
    float ContrastValue() const { return m_fContrast; }
    float LumValue() const { return m_fLum; }

    // Begin a transfer in the background; nothing when one of the same kind runs already.
    void LoadFromCamera();
    void SetToCamera();
    // Ask for a file with a modal dialog, then tell the outcome in a message box.
    void LoadFromFile();
    void SaveToFile();
    // Back to a straight line, in all kinds of line.
    void ClearDraw();

    // The camera whose table is shown, -1 for none; ends transfers of the one before.
    void resetCameraID(qint64 cameraId);
    // Has the camera's tree read the table's features again and tells the page.
    void UpdateFeatureTree();
    bool isTransferring() const { return m_bTransferring; }
    // Ends a running transfer before its next host call. With `wait` no host call is in progress on
    // return; for moments when the host's callbacks are about to go.
    void StopTransfer(bool wait);

    // What SetToCamera() and SaveToFile() take: a value for every index, within the range.
    LUTPoints GetSettinngPoints() const;
    // Makes one line out of pairs; what lies between them is filled in.
    void SetLUTInfo(int maximumIndex, int maximumValue, const LUTPoints& points, int lineType);
    // Points of a table, the same in the whole process: those of the camera that was read last.
    static int PointCount() { return s_nPointCount; }
    const LUTPlot& plot() const { return m_plot; }
    const LUTLine& currentLine() const { return *m_lines[m_nDrawLine]; }

    QSize sizeHint() const override;

signals:
    // The page's items about the table should be shown anew.
    void SigUpdateFeatureTree();
    void SigTransferring(bool running);

public slots:
    void UpdateLutInfo(int maximumIndex, int maximumValue, float xScale, float yScale);
    void OnFinshLoadFromCamera();
    void OnFinishSetToCamera();
    void OnThreadEnd();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void OnLoadFromFile();
    void OnSaveToFile();
    void OnReport();
    void OnProgress(int done, int total);
    void connectThread();
    void setRange(int maximumIndex, int maximumValue);
    void beginTransfer(int total);
    void endTransfer();
    void showLoading(const QString& text);
    void showFailedRead();
    void showMessage(const QString& text, int hintStyle);
    bool editKey(int key, int step);
    void showReading(const QPoint& position);
    LUTLine& line() { return *m_lines[m_nDrawLine]; }

    static int s_nPointCount; // GUI thread

    LUTPlot m_plot;
    LUTFoldLine m_foldLine;
    LUTSmoothCurve m_smoothCurve;
    LUTFreeLine m_freeLine;
    LUTLine* const m_lines[3] = {&m_foldLine, &m_smoothCurve, &m_freeLine}; // Not owned; by type.
    int m_nDrawLine = FoldLine;

    float m_fGamma = 1.0F;
    float m_fContrast = 0.0F;
    float m_fLum = 0.0F;

    qint64 m_lCameraID = -1;
    ORXLUTThread* m_pThread;    // Owned (child).
    LUTTransferReport m_report; // of the job that ended last
    bool m_bTransferring = false;
    bool m_bStopped = false; // since the last request
    int m_nProgressDone = 0;
    int m_nProgressTotal = 0;
    QPointer<QWidget> m_pWatchedWindow;          // Not owned.
    QPointer<ZELCustomMessageBox> m_pMessageBox; // Owned (child).
};
