// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "support/BracketTranslator.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>

class TestZELCustomMessageBox : public GuardedTest
{
    Q_OBJECT

private slots:
    void answers_data()
    {
        // key 0: close the window; negative: press the button -key
        const Rows<int, int, int> row("buttons", "key", "result");
        using Box = ZELCustomMessageBox;
        row("one, enter", 1, Qt::Key_Return, Box::Result_Ok);
        row("one, escape", 1, Qt::Key_Escape, Box::Result_Ok);
        row("two, enter", 2, Qt::Key_Enter, Box::Result_Ok);
        row("two, escape", 2, Qt::Key_Escape, Box::Result_Cancel);
        row("two, closed", 2, 0, Box::Result_Cancel);
        row("two, cancel", 2, -int(Box::Result_Cancel), Box::Result_Cancel);
        row("three, no", 3, -int(Box::Result_No), Box::Result_No);
        row("three, escape", 3, Qt::Key_Escape, Box::Result_Cancel);
        row("unknown count, enter", 9, Qt::Key_Return, Box::Result_Ok);
    }

    void answers()
    {
        QFETCH(int, buttons);
        QFETCH(int, key);
        ZELCustomMessageBox box;
        box.cSetButtons(buttons);
        box.cSetContent("text"_s);
        box.cSetHintStyle(ZELCustomMessageBox::Hint_Question);
        box.cEndSetParameter();
        box.show();
        QCOMPARE(box.cResult(), int(ZELCustomMessageBox::Result_None));
        QSignalSpy clicked(&box, &ZELCustomMessageBox::cSigClicked);
        if (key == 0)
            box.close();
        else if (key < 0)
            QTest::mouseClick(box.cButton(-key), Qt::LeftButton);
        else
            QTest::keyClick(&box, Qt::Key(key));
        QTEST(box.cResult(), "result");
        QCOMPARE(clicked.size(), 1);
        QVERIFY(!box.isVisible());
    }

    void modelessBoxIsHiddenByItsAnswer()
    {
        QWidget owner;
        QPointer<ZELCustomMessageBox> box = new ZELCustomMessageBox(&owner);
        box->cEndSetParameter();
        box->show();
        QVERIFY(!box->isModal());
        QTest::mouseClick(box->cButton(ZELCustomMessageBox::Result_Ok), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // The owner decides when the box goes: it may still ask for the answer.
        QVERIFY(box && !box->isVisible());
    }

    void modalBoxReturnsTheAnswer()
    {
        QTimer::singleShot(0, [] {
            auto* box = qobject_cast<ZELCustomMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box);
            QCOMPARE(box->cCaption(), "Reset"_s);
            QTest::mouseClick(box->cButton(ZELCustomMessageBox::Result_No), Qt::LeftButton);
        });
        QCOMPARE(ZELCustomMessageBox::cShowMessage(nullptr, "Reset"_s, QString(), "Sure?"_s, 4, 3),
                 int(ZELCustomMessageBox::Result_No));
    }

    void textsAreShownAsTheyAre()
    {
        ZELCustomMessageBox box;
        const QString title = "Failed <b>hard</b>"_s;
        const QString text = "Node 'a&lt;b':\r\n<i>0x80000106</i>"_s;
        box.cSetTextTitle(title);
        box.cSetContent(text);
        box.cEndSetParameter();
        bool titleFound = false;
        for (const QLabel* label : box.findChildren<QLabel*>())
            titleFound |= label->text() == title && label->textFormat() == Qt::PlainText;
        QVERIFY(titleFound);
        QCOMPARE(box.findChild<QTextEdit*>()->toPlainText(), "Node 'a&lt;b':\n<i>0x80000106</i>"_s);
    }

    void richTextKeepsLinesAndBlanks()
    {
        const auto filled = [](Qt::TextFormat format, const QString& text) {
            auto box = std::make_unique<ZELCustomMessageBox>();
            box->cSetContent(text);
            box->cSetContentFormat(format);
            box->cEndSetParameter();
            return box;
        };
        const auto rich =
            filled(Qt::RichText, "Node 'a&lt;b&gt; &amp; c':\r\nR&D,  <b>0x5</b>\nend"_s);
        const QString read = "Node 'a<b> & c':\nR&D,  0x5\nend"_s;
        QCOMPARE(rich->findChild<QTextEdit*>()->toPlainText(), read);
        // What is the same to read is as wide.
        QCOMPARE(rich->width(), filled(Qt::PlainText, read)->width());
    }

    void longTextIsShownWhole()
    {
        ZELCustomMessageBox box;
        box.cSetContent(QString(700, QLatin1Char('x')) + "\nlast"_s);
        box.cEndSetParameter();
        box.show();
        auto* edit = box.findChild<QTextEdit*>();
        QVERIFY(box.width() < 700);
        QTextCursor end = edit->textCursor();
        end.movePosition(QTextCursor::End);
        QVERIFY(edit->viewport()->rect().contains(edit->cursorRect(end)));
    }

    void languageChange()
    {
        ZELCustomMessageBox standard;
        ZELCustomMessageBox named;
        named.cSetCaption("Mine"_s);
        standard.cSetButtons(2);
        standard.cEndSetParameter();
        named.cEndSetParameter();
        BracketTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(standard.cCaption(), "[ZELCustomMessageBox|Prompt]"_s);
        QCOMPARE(standard.cButton(ZELCustomMessageBox::Result_Cancel)->text(),
                 "[ZELCustomMessageBox|Cancel]"_s);
        QCOMPARE(named.cCaption(), "Mine"_s);
        QCoreApplication::removeTranslator(&translator);
    }
};

OBFT_TEST_MAIN(TestZELCustomMessageBox)
#include "tst_zelcustommessagebox.moc"
