// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ccm/ORXCCMUpdateThread.h"
#include "tree/SelectorRowsLock.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <array>
#include <functional>
#include <optional>

class ORXFeatureTree;
class ORXPropertyTreeItem;

// The colour correction matrix of a camera, or of the settings file of the host's software: reads
// it, writes single coefficients and switches it. Owned by the page that makes its item, so that it
// works whether or not the editor of that item is open. GUI thread; reading is done by an
// ORXCCMUpdateThread.
class ColorMatrix : public QObject
{
    Q_OBJECT
public:
    // `enableItem` is the item that switches the matrix: not owned, may be null or go at any
    // moment.
    ColorMatrix(qint64 cameraId, bool deviceMode, ORXPropertyTreeItem* enableItem, QObject* parent);
    ~ColorMatrix() override;

    bool isInCamera() const { return m_bDeviceMode; }
    // Whether the coefficients are known, that is: were read and are not being read now.
    bool isKnown() const { return m_bKnown && !m_bReading; }
    // Whether the matrix is known and on: only then it can be edited.
    bool isOn() const { return isKnown() && m_result.enabled; }
    // Row by row; 1.0 is one in the settings file, too.
    const std::array<double, ORXRWCCMValue::kCoefficients>& values() const { return m_values; }
    float minimum() const { return m_result.minimum; } // of the camera's coefficients
    float maximum() const { return m_result.maximum; }
    ORXPropertyTreeItem* enableItem() const; // null once it has gone

    // Whether the user sees it. Out of sight nothing is read, and a reading ends at once; what was
    // wanted meanwhile is read when it is seen again.
    void setShown(bool shown);
    // Reads it anew, now or as soon as it is seen and not being edited.
    void read();
    // The first half of stopHostCalls(): returns at once.
    void requestStop();
    // Nothing is asked of the host any more; a running call, and what puts the camera back, is
    // waited for.
    void stopHostCalls();
    // Whether the user is typing a coefficient: then reading waits until editingEnded(). One at a
    // time; null takes it away.
    void setEditedTest(const std::function<bool()>& isEdited) { m_isEdited = isEdited; }
    void editingEnded();

    // Writes a coefficient of a matrix in the camera; a refusal is told to the user.
    bool writeCell(int index, float value);
    // Switches the matrix. While it is being read that has to end first.
    void switchTo(bool on);

    // Whether the correction of that settings file is on; only then its nine coefficients, where
    // 1024 stands for 1.0, are stored in `values`. Any thread.
    static bool enabledInFile(const QString& name, int* values);

signals:
    // Something that is shown has changed.
    void SigChanged();

private:
    void onJobEnded();
    void stopReading();
    void take(const ORXCCMUpdateThread::Result& result);
    void reportReading(const ORXCCMUpdateThread::Result& result);
    void showSwitch(bool on);
    bool enableInFile(bool on);
    bool enableInCamera(bool on);
    void rereadInTree(const QString& feature);
    void reportFile(const QString& file, const QString& fault, bool once);
    ORXFeatureTree* tree() const;

    const qint64 m_lCameraID;
    const bool m_bDeviceMode;
    ORXPropertyTreeItem* m_pEnableItem; // Not owned.
    std::function<bool()> m_isEdited;
    ORXRWCCMValue m_settings;
    ORXCCMUpdateThread::Result m_result; // of the last reading
    std::array<double, ORXRWCCMValue::kCoefficients> m_values{};
    bool m_bShown = false;
    bool m_bKnown = false;
    bool m_bReading = false;      // the thread works, or its end was not handled yet
    bool m_bReadAgain = false;    // was asked for meanwhile
    std::optional<bool> m_wanted; // switched by the user meanwhile
    SelectorRowsLock m_rowsLock;
    ORXCCMUpdateThread m_thread;
};
