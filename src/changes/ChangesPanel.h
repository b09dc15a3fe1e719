// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/ChangeJournal.h"

#include <QPointer>
#include <QWidget>

class FeatureFileDialog;
class ORXFeatureTree;
class ThemedTable;
class ZELCustomPushButton;

// The list of changes of one camera, with what can be done with a line of it and with feature
// files. Owned by its parent; GUI thread.
class ChangesPanel : public QWidget
{
    Q_OBJECT
public:
    // `tree` is not owned, and outlives it.
    ChangesPanel(ORXFeatureTree* tree, QWidget* parent);
    ~ChangesPanel() override;

    ChangeJournal* journal() const { return m_pJournal; }
    // The buttons, for whoever has room for them beside the panel.
    QWidget* actions() const { return m_pActions; }
    // Writes the current line's old value by the ordinary road of an edit; false when it has none.
    bool revert();
    // Ask the user for a file first. The dialogs work on while the window is used.
    void saveToFile();
    void compareWithFile();
    // The same with the file.
    void saveTo(const QString& path);
    void compareWith(const QString& path);

signals:
    // The user wants to see the feature in its group.
    void SigShowFeature(const QString& name);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void buildLayout();
    void makeView();
    void retranslate();
    void updateButtons();
    int currentRow() const;
    FeatureFileDialog* dialog();

    ORXFeatureTree* m_pTree;               // Not owned.
    ChangeJournal* m_pJournal;             // Owned (child).
    ThemedTable* m_pView = nullptr;        // Owned (child); made when it is first to be seen.
    QWidget* m_pActions;                   // Owned by where it stands, at first the panel.
    ZELCustomPushButton* m_pRevert;        // Owned (child).
    ZELCustomPushButton* m_pSave;          // Owned (child).
    ZELCustomPushButton* m_pCompare;       // Owned (child).
    QPointer<FeatureFileDialog> m_pDialog; // Owned, or gone with the window.
};
