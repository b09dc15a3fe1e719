// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ORXPropertyTreeItem.h"

#include <QStyledItemDelegate>
#include <QTimer>
#include <QVariant>

#include <functional>

// Delegate of every page's view: makes, fills, places and reads the value editors, one row of a
// table for each tag, and paints the rows. Owned by its view; GUI thread.
//
// An editor writes only while on_CommitData or on_CommitData_Combox runs, that is after the user
// acted on it; filling an editor never writes (see EditorFillGuard).
class ORXPropertyTreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    static constexpr int kRowHeight = 38;        // device-independent pixels
    static constexpr int kMatrixRowHeight = 128; // row of the colour correction matrix

    // Makes the editor of a page's own kind of item, below `parent`, not owned by the creator.
    using ExternalCreator = std::function<QWidget*(QWidget* parent, ORXPropertyTreeItem* item)>;
    using ExternalFiller = std::function<void(QWidget* editor, ORXPropertyTreeItem* item)>;
    // Registers the editor of a tag that a folder above provides (the colour correction matrix).
    static void registerExternalEditor(FeatureTag tag, const ExternalCreator& create,
                                       const ExternalFiller& fill);

    ORXPropertyTreeDelegate(ORXPropertyTreeItem::ParentType type, QObject* parent);
    ~ORXPropertyTreeDelegate() override;

    void setIsCanEdit(bool canEdit);
    // The row that shows the drop line, above it or below; null for none. Not owned.
    void setCurMoveItem(ORXPropertyTreeItem* item, bool below = false);
    void clearInfo();
    // Whether value cells of the tag have an editor.
    static bool hasEditor(FeatureTag tag);
    // Whether the item's editors can be used now; a page may still disable its own.
    bool isUsable(const ORXPropertyTreeItem& item) const;
    // Marks an item whose state, now shown, is not the one that was published last: an edit, or a
    // read that is under way. Its next read then tells all views, even if the camera took the edit
    // back.
    static void noteShownState(ORXPropertyTreeItem* item);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

signals:
    // The user is about to leave the editor or takes back what was typed; values that were held
    // back meanwhile can be shown.
    void sigEditingEnded(QWidget* editor);

public slots:
    void on_CommitData();
    void on_CommitData_Combox(int state);
    void on_CommandTimeout();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class EditorFillGuard;

    // The cell that an editor stands in.
    struct Cell
    {
        ORXPropertyTreeItem* item; // Not owned.
        int column;
    };
    // What reading an editor back gave.
    struct Edited
    {
        bool write = false;
        QVariant value; // invalid: execute
        bool startTimer = false;
    };
    using Create = QWidget* (ORXPropertyTreeDelegate::*)(QWidget* parent, const Cell& cell) const;
    using Fill = void (ORXPropertyTreeDelegate::*)(QWidget* editor, const Cell& cell) const;
    using Read = Edited (ORXPropertyTreeDelegate::*)(QWidget* editor, const Cell& cell) const;
    struct EditorRow
    {
        Create create = nullptr;
        Fill fill = nullptr;
        Read read = nullptr;
        bool whenReadOnly = false; // the editor does not follow the item's read-only state
    };
    static const EditorRow& editorRow(FeatureTag tag);

    QWidget* createIntegerEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createEnumationEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createBoolEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createStringEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createFloatEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createCommandEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createCustomDrawEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createCustomWaterMarkEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createCustomCCMEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createCustomPalettesModeEditor(QWidget* parent, const Cell& cell) const;
    QWidget* createCustomFFCorrectionEditor(QWidget* parent, const Cell& cell) const;

    void setIntegerEditorData(QWidget* editor, const Cell& cell) const;
    void setEnumationEditorData(QWidget* editor, const Cell& cell) const;
    void setBoolEditorData(QWidget* editor, const Cell& cell) const;
    void setStringEditorData(QWidget* editor, const Cell& cell) const;
    void setFloatEditorData(QWidget* editor, const Cell& cell) const;
    void setCommandEditorData(QWidget* editor, const Cell& cell) const;
    void setCustomDrawEditorData(QWidget* editor, const Cell& cell) const;
    void setCustomWaterMarkEditorData(QWidget* editor, const Cell& cell) const;
    void setCustomCCMEditorData(QWidget* editor, const Cell& cell) const;
    void setCustomPalettesModeEditorData(QWidget* editor, const Cell& cell) const;
    void setCustomFFCorrectionEditorData(QWidget* editor, const Cell& cell) const;

    Edited readLineEdit(QWidget* editor, const Cell& cell) const;
    Edited readInteger(QWidget* editor, const Cell& cell) const;
    Edited readComboBox(QWidget* editor, const Cell& cell) const;
    Edited readButton(QWidget* editor, const Cell& cell) const;
    Edited readCheckBox(QWidget* editor, const Cell& cell) const;

    // Connects the editor's commit signal to this delegate; false when it has none.
    bool connectCommit(QWidget* editor) const;
    // What every new editor of a feature gets: disabled until filled, named after the feature.
    QWidget* prepared(QWidget* editor, const Cell& cell, bool useFont) const;
    QWidget* makeLineEdit(QWidget* parent, const Cell& cell) const;
    void fillLineEdit(QWidget* editor, const Cell& cell, const QString& text, int kind) const;
    void fillEntries(QWidget* editor, const Cell& cell, bool withPalettes) const;
    bool alternativeStyle() const;
    void commit();
    void paintName(QPainter* painter, const QStyleOptionViewItem& option,
                   const QString& html) const;
    // Behind a name that takes `nameWidth` pixels, if there is room.
    static void paintUnit(QPainter* painter, const QStyleOptionViewItem& option, int nameWidth,
                          const QString& unit);
    static void paintNoValue(QPainter* painter, const QStyleOptionViewItem& option);
    void paintDropLine(QPainter* painter, const QStyleOptionViewItem& option) const;

    bool m_bCommitting = false;
    bool m_bCanEdit = true;
    ORXPropertyTreeItem::ParentType m_pageType;
    int m_nInfo = 0;
    mutable QTimer m_commandTimer;
    ORXPropertyTreeItem* m_pCurMoveItem = nullptr; // Not owned.
    bool m_bMoveBelow = false;
    bool m_bDestroying = false;
};
