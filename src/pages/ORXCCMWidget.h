// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/IORXFeatureNotify.h"

#include <QTableWidget>

#include <memory>

class ORXPropertyTreeItem;
struct ORXCCMWidgetPrivateData;

// Editor of an item with the tag "CustomTagNameCCM": the camera's colour correction matrix, nine
// numbers that are edited cell by cell. What the item's value (CTreeCustomCCMItemValue) says
// decides whether the matrix lives in the camera or in the settings file of the host's software
// (ORXRWCCMValue). Owned by the view; reading is done by an ORXCCMUpdateThread.
//
// | operation                                | thread                        | lock              |
// |------------------------------------------|-------------------------------|-------------------|
// | itemValueChanged                         | GUI or reading; emits signals | see the interface |
// | getSDKCCMEnable                          | any                           | none              |
// | everything else                          | GUI                           | none              |
class ORXCCMWidget : public QTableWidget, public IORXFeatureNotify
{
    Q_OBJECT
public:
    ORXCCMWidget(ORXPropertyTreeItem* item, QWidget* parent);
    ~ORXCCMWidget() override;

    // Lets the delegate make this editor for the tag. Once or more often.
    static void registerEditor();

    // Reads the matrix anew; the cells are filled when that has ended.
    void updateData();
    // Whether the correction of that settings file is on; only then its nine coefficients, where
    // 1024 stands for 1.0, are stored in `values`.
    static bool getSDKCCMEnable(const QString& name, int* values);

public slots:
    void onUpdateEditorData(qint64 cameraID, ORXPropertyTreeItem* item, int column);
    void itemValueChanged(qint64 cameraID, ORXPropertyTreeItem* item, int column,
                          bool needRecreateEditor) override;

signals:
    void sigUpdateEditorData(qint64 cameraID, ORXPropertyTreeItem* item, int column);

private slots:
    void endUpdate();

private:
    void initData();
    void onEditedCCMValue();
    void enableCCMValueChanged(bool on);
    bool enableInFile(bool on);
    bool enableInCamera(bool on);
    bool writeCell(int index, float value);

    ORXPropertyTreeItem* enableItem() const;
    void setEnableItem(bool on);
    void setCellsEnabled(bool on);
    void showCells();
    bool isEdited() const;
    void rereadInTree(const QString& feature);
    void reportFile(const QString& file, const QString& fault, bool once);
    static void forgetFileReport();

    std::unique_ptr<ORXCCMWidgetPrivateData> d;
};
