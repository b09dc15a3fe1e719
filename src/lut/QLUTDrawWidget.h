// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTCameraTransfer.h"
#include "lut/LUTCurve.h"
#include "lut/LUTFileDialogs.h"
#include "lut/LUTMessage.h"

#include <QWidget>

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
    int GetCurrentDrawLine() const { return m_curve.type(); }
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
    bool isTransferring() const { return m_transfer.isRunning(); }
    // Ends a running transfer before its next host call. With `wait` no host call is in progress on
    // return; for moments when the host's callbacks are about to go.
    void StopTransfer(bool wait);

    // What SetToCamera() and SaveToFile() take: a value for every index, within the range.
    LUTPoints GetSettinngPoints() const;
    // Makes one line out of pairs; what lies between them is filled in.
    void SetLUTInfo(int maximumIndex, int maximumValue, const LUTPoints& points, int lineType);
    // Points of a table, the same in the whole process: those of the camera that was read last.
    static int PointCount() { return LUTCurve::pointCount(); }
    const LUTPlot& plot() const { return m_curve.plot(); }
    const LUTLine& currentLine() const { return m_curve.line(); }

    QSize sizeHint() const override;

signals:
    // The page's items about the table should be shown anew.
    void SigUpdateFeatureTree();
    void SigTransferring(bool running);

public slots:
    void UpdateLutInfo(int maximumIndex, int maximumValue, float xScale, float yScale);

protected:
    bool event(QEvent* event) override;
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
    void showReading(const QPoint& position);

    LUTCurve m_curve;
    float m_fGamma = 1.0F;
    float m_fContrast = 0.0F;
    float m_fLum = 0.0F;
    LUTMessage m_message;
    LUTFileDialogs m_files;
    LUTCameraTransfer m_transfer; // ends before everything else goes
};
