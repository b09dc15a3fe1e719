// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/CuratedPage.h"

#include <QTimer>

// The page of the features that most users need, with a simplified white balance: either one
// command, or ratio and colour, as it fits the camera's state. Owned by the main widget; GUI
// thread.
//
// Ratio and colour are copies of the camera's "BalanceRatio" and "BalanceRatioSelector", which the
// page observes; what the user enters is written to those.
class ORXCommonFeature : public CuratedPage
{
    Q_OBJECT
public:
    enum UpdateWhiteBalanceType { BuildWhiteBalance = 0, WhiteBalanceChanged = 1 };

    explicit ORXCommonFeature(QWidget* parent);

    void itemValueChanged(ORXPropertyTreeItem* item) override;
    void itemVisibleStateChanged(ORXPropertyTreeItem* item) override;
    void createTransMap() override;
    // Copies the camera's white balance into the page: all of it when it is built, else what the
    // feature `name` changed. Which items show is decided soon after, in one go for all changes, by
    // the values that passes have read; at the end of it while the first full read is under way.
    // `root` null means the shown camera's.
    void updateWhiteBalance(const QString& name, UpdateWhiteBalanceType type,
                            ORXPropertyTreeItem* root);
    // Writes the camera feature of that name, "BalanceRatioSelector" as an enumeration, any other
    // as an integer; features that depend on it are read again. False when the camera lacks it or
    // refuses.
    bool setWhiteBalanceValue(const QString& name, const QVariant& value);

signals:
    void SigAWB(qint64 cameraId);

public slots:
    void onAWB(qint64 cameraId);

protected:
    void afterItemsCreated(ORXPropertyTreeItem* root) override;

private:
    struct WhiteBalance;
    WhiteBalance whiteBalance(ORXPropertyTreeItem* root);
    void scheduleWhiteBalanceVisible();
    void updateWhiteBalanceVisible();
    bool balanceOnce();

    QTimer m_visibleTimer; // one decision for the changes of one round of the event loop
};

// Node name to English text of the page's groups and own items.
const QMap<QString, QString>& getCommonTransMap();
