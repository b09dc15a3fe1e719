// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/GuiNotices.h"
#include "model/IORXFeatureNotify.h"

#include <QTableWidget>

#include <memory>

class ORXPropertyTreeItem;
struct ORXCCMWidgetPrivateData;

// Editor of an item with the tag "CustomTagNameCCM": the camera's colour correction matrix, nine
// numbers that are edited cell by cell. Shows what the ColorMatrix of the item's value
// (CTreeCustomCCMItemValue) knows. Owned by the view.
//
// | operation                                | thread                        | lock              |
// |------------------------------------------|-------------------------------|-------------------|
// | itemValueChanged                         | GUI or reading; the signal is | see the interface |
// |                                          | emitted on the GUI thread     |                   |
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
    // Shows what is known of the matrix.
    void showMatrix();
    // Whether the correction of that settings file is on; only then its nine coefficients, where
    // 1024 stands for 1.0, are stored in `values`.
    static bool getSDKCCMEnable(const QString& name, int* values);

public slots:
    void onUpdateEditorData(qint64 cameraID, ORXPropertyTreeItem* item, int column);
    void itemValueChanged(qint64 cameraID, ORXPropertyTreeItem* item, int column,
                          bool needRecreateEditor) override;

signals:
    void sigUpdateEditorData(qint64 cameraID, ORXPropertyTreeItem* item, int column);

private:
    void initData();
    void onEditedCCMValue();
    void showCells();
    void setCellsEnabled(bool on);
    bool isEdited() const;

    std::unique_ptr<ORXCCMWidgetPrivateData> d;
    GuiNotices m_notices;
};
