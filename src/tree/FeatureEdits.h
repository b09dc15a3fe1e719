// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureTag.h"

#include <QObject>

class FeatureLoadingOverlay;
class FeatureMessages;
class FeatureReadingControl;
class IORXFeatureWidget;
class QVariant;

// Writes what the user entered and does what follows: log, message, overlay, what is read again,
// and what the camera's special commands need besides. Owned by a tree; GUI thread, calls the host,
// which may close or release the window meanwhile.
class FeatureEdits : public QObject
{
    Q_OBJECT
public:
    // `page` owns it; the others are not owned and outlive its last operation.
    FeatureEdits(IORXFeatureWidget* page, FeatureReadingControl& reading, FeatureMessages& messages,
                 FeatureLoadingOverlay& overlay);

    // Under the overlay, which goes when the features have been read again; true on success.
    bool edit(FeatureTag tag, const QString& name, const QVariant& value);
    // The same without the overlay.
    bool write(FeatureTag tag, const QString& name, const QVariant& value);
    // The next "AcquisitionStart" is swallowed: the camera was stopped.
    void skipNextStart() { m_bSkipAcquisitionStart = true; }

signals:
    // The camera has taken the value, and what it invalidates is not read yet.
    void SigWritten(const QString& name);
    // The camera has taken the command.
    void SigExecuted(const QString& name);
    // The camera restarts: nothing is to be asked or edited any more.
    void SigDeviceReset();
    // A command has replaced the settings as a whole.
    void SigSettingsLoaded();

private:
    bool afterCommand(const QString& name);
    bool afterDeviceReset();

    IORXFeatureWidget* m_pPage;       // Not owned.
    FeatureReadingControl& m_reading; // Not owned.
    FeatureMessages& m_messages;      // Not owned.
    FeatureLoadingOverlay& m_overlay; // Not owned.
    bool m_bSkipAcquisitionStart = false;
};
