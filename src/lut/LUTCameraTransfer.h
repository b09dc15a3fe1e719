// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/ORXLUTThread.h"

#include <QPointer>

class LUTMessage;

// The transfers of the curve editor as the user sees them: what is under way and how far it is, the
// loading sign, the message at the end. The worker does them; nothing here waits for the camera but
// StopTransfer() and the destructor. Ends a transfer when the editor's window is closed. Owned by
// QLUTDrawWidget; GUI thread.
class LUTCameraTransfer : public QObject
{
    Q_OBJECT
public:
    // Neither is owned.
    LUTCameraTransfer(QWidget* editor, LUTMessage& message);
    ~LUTCameraTransfer() override;

    // Begin a transfer; nothing when one of the same kind runs already. `points` is what the table
    // is expected to have.
    void LoadFromCamera(int points);
    // What was written is read back afterwards.
    void SetToCamera(const LUTPoints& points);
    // Ends a running transfer before its next host call. With `wait` no host call is in progress on
    // return.
    void StopTransfer(bool wait);

    // Ends the transfers of the camera before; -1 for none.
    void resetCameraID(qint64 cameraId);
    qint64 cameraID() const { return m_lCameraID; }
    bool isRunning() const { return m_bRunning; }
    int done() const { return m_nDone; }
    int total() const { return m_nTotal; }
    // The table that was read last from the present camera; empty when there is none.
    LUTPoints points() const { return m_thread.points(); }

signals:
    void SigTransferring(bool running);
    void SigProgress();
    // points() has a table; the scales are pixels for each index and value.
    void SigUpdateLUTInfo(int maximumIndex, int maximumValue, float xScale, float yScale);
    // The camera's table was written, as far as it would have it.
    void SigWritten();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void OnReport();
    void OnProgress(int done, int total);
    void OnFinshLoadFromCamera();
    void OnFinishSetToCamera();
    void OnThreadEnd();
    void begin(int total);
    void end();
    void showLoading(const QString& text);
    void showFailedRead();

    QWidget* const m_pEditor; // Not owned.
    LUTMessage& m_message;    // Not owned.
    qint64 m_lCameraID = -1;
    LUTTransferReport m_report; // of the job that ended last
    bool m_bRunning = false;
    bool m_bStopped = false; // since the last request
    int m_nDone = 0;         // points
    int m_nTotal = 0;
    QPointer<QWidget> m_pWatchedWindow; // Not owned.
    ORXLUTThread m_thread;              // ends before everything else goes
};
