// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/CuratedPage.h"

// The page of trigger, line, encoder and frequency converter features, with an automatic software
// trigger of its own. Owned by the main widget; GUI thread.
//
// The period, in milliseconds, is taken when the automatic trigger is switched on. While it is on,
// the period and the camera's "TriggerSoftware" cannot be used; it ends when the user switches it
// off, when another camera is shown, and when reading pauses because the window was closed.
class ORXTriggerFeature : public CuratedPage
{
    Q_OBJECT
public:
    explicit ORXTriggerFeature(QWidget* parent);

    void resetCamaraID(qint64 cameraId) override;
    void createTransMap() override;

protected:
    void afterItemsCreated(ORXPropertyTreeItem* root) override;

private:
    bool enableAutoTrigger(const QVariant& value);
    void showAutoTrigger(qint64 cameraId, bool enabled);
};

// Node name to English text of the page's groups and page items.
const QMap<QString, QString>& getTriggerTransMap();
