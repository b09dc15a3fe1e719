// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/CuratedPage.h"
#include "pages/WhiteBalance.h"

// The page of the features that most users need, with a simplified white balance. Owned by the main
// widget; GUI thread.
class ORXCommonFeature : public CuratedPage
{
    Q_OBJECT
public:
    enum UpdateWhiteBalanceType { BuildWhiteBalance = 0, WhiteBalanceChanged = 1 };

    explicit ORXCommonFeature(QWidget* parent);

    void itemValueChanged(ORXPropertyTreeItem* item) override;
    void itemVisibleStateChanged(ORXPropertyTreeItem* item) override;
    void createTransMap() override;
    // See WhiteBalance: build(root), or take(name) of the shown camera.
    void updateWhiteBalance(const QString& name, UpdateWhiteBalanceType type,
                            ORXPropertyTreeItem* root);
    bool setWhiteBalanceValue(const QString& name, const QVariant& value);

signals:
    void SigAWB(qint64 cameraId);

public slots:
    void onAWB(qint64 cameraId);

protected:
    void afterItemsCreated(ORXPropertyTreeItem* root) override;

private:
    WhiteBalance m_whiteBalance;
};

// Node name to English text of the page's groups and page items.
const QMap<QString, QString>& getCommonTransMap();
