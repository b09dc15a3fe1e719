// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "changes/FeatureFileThread.h"
#include "styledctl/ZELCustomMainWindow.h"
#include "tree/SelectorRowsLock.h"

class FeatureFileTable;
class ORXFeatureTree;
class QLabel;
class QProgressBar;
class ThemedTable;
class ZELCustomPushButton;

// Saves the camera's values to a file, or shows a file beside the camera and applies what the user
// chooses. Works while the window is used; closing it, its window or the tree ends what runs. Owned
// by its parent; GUI thread.
class FeatureFileDialog : public ZELCustomMainWindow
{
    Q_OBJECT
public:
    // `tree` is not owned, and outlives it.
    FeatureFileDialog(ORXFeatureTree* tree, QWidget* parent);
    ~FeatureFileDialog() override;

    // Each shows the dialog, and that is all while something runs: nothing here waits for the
    // camera.
    void save(const QString& path);
    void compare(const QString& path);
    // Writes the chosen rows.
    void apply();

    FeatureFileTable* table() const { return m_pTable; }
    bool isWorking() const { return m_thread.isBusy(); }
    // What has come of it, in one sentence.
    QString summary() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Outcome {
        None,
        Working,
        Saved,       // numbers: saved, not saved
        NotSaved,    // the file cannot be written
        NotReadable, // the file cannot be read
        Faulty,      // lines that are not understood
        NoLines,
        Compared, // numbers: differing, all
        Applied,  // numbers: written, chosen
        Stopped
    };
    void buildLayout();
    void retranslate();
    bool isFree();
    void start(FeatureFileJob job);
    void stop();
    void onProgress();
    void onEnded();
    void afterSave(const FeatureFileJob& job);
    void tell(Outcome outcome, int first = 0, int second = 0);
    void updateButtons();
    QString outcomeText() const;

    ORXFeatureTree* m_pTree;       // Not owned.
    FeatureFileTable* m_pTable;    // Owned (child).
    QLabel* m_pSummary;            // Owned (child).
    QProgressBar* m_pProgress;     // Owned (child).
    ThemedTable* m_pView;          // Owned (child).
    ZELCustomPushButton* m_pApply; // Owned (child).
    ZELCustomPushButton* m_pClose; // Owned (child).
    QString m_strPath;
    QString m_strModel; // that the file was saved from
    Outcome m_outcome = Outcome::None;
    int m_first = 0;
    int m_second = 0;
    SelectorRowsLock m_rowsLock;
    FeatureFileThread m_thread;
};
