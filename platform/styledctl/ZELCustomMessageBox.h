// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "styledctl/ZELCustomMainWindow.h"

#include <QString>

class QLabel;
class QTextEdit;
class ZELCustomPushButton;

// Message to the user, modal (exec()) or modeless (show()). Set the parts, then call
// cEndSetParameter() once, then show. Texts are plain text, unless the body is told to be rich
// text, and can be selected and copied. Escape answers with the last button, Enter with the first
// one.
class STYLEDCTL_EXPORT ZELCustomMessageBox : public ZELCustomMainWindow
{
    Q_OBJECT
public:
    enum HintStyle {
        Hint_None = 0,
        Hint_Success = 1,
        Hint_Warning = 2,
        Hint_Error = 3,
        Hint_Question = 4,
        Hint_Information = 5
    };
    enum Buttons { Buttons_Ok = 1, Buttons_OkCancel = 2, Buttons_YesNoCancel = 3 };
    enum Result { Result_None = 0, Result_Ok = 1, Result_Cancel = 2, Result_No = 3 };

    explicit ZELCustomMessageBox(QWidget* parent = nullptr);

    // A Buttons value; others count as Buttons_Ok.
    void cSetButtons(int buttons);
    // Body text.
    void cSetContent(const QString& text);
    // Qt::PlainText at first. In rich text line breaks and blanks of the body stay what they are.
    void cSetContentFormat(Qt::TextFormat format);
    // Heading over the body; without it the body stands alone.
    void cSetTextTitle(const QString& text);
    // Title strip; "Prompt" when never set.
    void cSetCaption(const QString& text);
    // A HintStyle value; selects picture and accent.
    void cSetHintStyle(int style);
    // Closes the settings: builds the buttons and fits the size to the texts.
    void cEndSetParameter();

    QString cContent() const { return m_contentText; }
    QString cTextTitle() const { return m_titleText; }
    QString cCaption() const { return cTitleText(); }
    int cHintStyle() const { return m_hint; }
    // Result_None until a button was pressed. Closing the window counts as the last button.
    int cResult() const { return m_result; }
    // Button of a Result value, null when this box has none.
    ZELCustomPushButton* cButton(int result) const;

    // Modal box with everything set in one call; returns the result.
    static int cShowMessage(QWidget* parent, const QString& caption, const QString& title,
                            const QString& content, int hintStyle, int buttons = Buttons_Ok);

    void reject() override;

signals:
    void cSigClicked(int result);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void answer(int result);
    void buildButtons();
    void translateButtons();

    QString m_titleText;
    QString m_contentText;
    Qt::TextFormat m_contentFormat = Qt::PlainText;
    bool m_hasCaption = false;
    int m_buttons = Buttons_Ok;
    int m_hint = Hint_None;
    int m_result = Result_None;
    QLabel* m_picture;                 // Owned (child).
    QLabel* m_title;                   // Owned (child).
    QTextEdit* m_content;              // Owned (child).
    QWidget* m_buttonRow;              // Owned (child).
    QList<ZELCustomPushButton*> m_row; // Owned (children), in display order.
};
