// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPointer>

class ORXFeatureSaveWidget;
class QWidget;
class ZELCustomMessageBox;

// The user's way to the settings that the camera stores: their dialog, or a message when the camera
// has none. Owned by its window; GUI thread.
class SettingsAction : public QObject
{
    Q_OBJECT
public:
    explicit SettingsAction(QWidget* window);

    // Returns when the dialog or the message is closed. The host may close or release the window
    // meanwhile.
    void run(qint64 cameraId);
    // Closes the message.
    void end();
    // The language has changed.
    void retranslate();

public slots:
    void onBeforeDeleteFeature(qint64 key);

private:
    void fillPrompt();

    QWidget* m_pWindow;                       // Not owned.
    QPointer<ORXFeatureSaveWidget> m_pDialog; // Not owned; on the stack while it is shown.
    QPointer<ZELCustomMessageBox> m_pPrompt;  // Not owned; on the stack while it is shown.
};
