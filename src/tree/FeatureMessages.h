// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QWidget;
class ZELCustomMessageBox;

// The message box of a page: one at a time; while one is shown, further messages are dropped. It
// goes with the page's window. Owned by its page; GUI thread.
class FeatureMessages : public QObject
{
    Q_OBJECT
public:
    struct Message
    {
        QString title;
        QString text; // empty: the title is all there is to say
        int hintStyle;
        Qt::TextFormat format = Qt::PlainText; // of the text
    };

    explicit FeatureMessages(QWidget* page);

    // Words that stay as they are. An empty caption is "Prompt".
    void show(const Message& message, const QString& caption);
    // Words of the interface language: `message` makes them anew when it changes meanwhile.
    void showTranslated(const std::function<Message()>& message);
    // That a feature could not be written, with the host's error code.
    void showWriteFailure(const QString& name, const QString& value, int error);
    // The language has changed.
    void retranslate();

    // What follows a text that reports an error.
    static QString errorText(int error);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool showBox(const Message& message, const QString& caption);
    void fillBox(const Message& message, const QString& caption);
    void hideWithWindow();

    QWidget* m_pPage;                       // Not owned.
    QPointer<ZELCustomMessageBox> m_pBox;   // Owned by the page.
    std::function<Message()> m_translation; // Null when the words stay as they are.
};
