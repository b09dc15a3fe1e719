// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>
#include <QTranslator>

namespace {

class BracketTranslator : public QTranslator
{
public:
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return QStringLiteral("[%1]").arg(QLatin1String(text));
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestZELCustomMessageBox : public GuardedTest
{
    Q_OBJECT
private slots:
    void answers_data();
    void answers();
    void modelessBoxIsHiddenByItsAnswer();
    void modalBoxReturnsTheAnswer();
    void textsAreShownAsTheyAre();
    void longTextIsShownWhole();
    void languageChange();
};

void TestZELCustomMessageBox::answers_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("key"); // 0: close the window; negative: press the button -key
    QTest::addColumn<int>("result");
    using Box = ZELCustomMessageBox;
    QTest::newRow("one, enter") << 1 << int(Qt::Key_Return) << int(Box::Result_Ok);
    QTest::newRow("one, escape") << 1 << int(Qt::Key_Escape) << int(Box::Result_Ok);
    QTest::newRow("two, enter") << 2 << int(Qt::Key_Enter) << int(Box::Result_Ok);
    QTest::newRow("two, escape") << 2 << int(Qt::Key_Escape) << int(Box::Result_Cancel);
    QTest::newRow("two, closed") << 2 << 0 << int(Box::Result_Cancel);
    QTest::newRow("two, cancel") << 2 << -int(Box::Result_Cancel) << int(Box::Result_Cancel);
    QTest::newRow("three, no") << 3 << -int(Box::Result_No) << int(Box::Result_No);
    QTest::newRow("three, escape") << 3 << int(Qt::Key_Escape) << int(Box::Result_Cancel);
    QTest::newRow("unknown count, enter") << 9 << int(Qt::Key_Return) << int(Box::Result_Ok);
}

void TestZELCustomMessageBox::answers()
{
    QFETCH(int, buttons);
    QFETCH(int, key);
    QFETCH(int, result);
    ZELCustomMessageBox box;
    box.cSetButtons(buttons);
    box.cSetContent(QStringLiteral("text"));
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
    QCOMPARE(box.cResult(), result);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(!box.isVisible());
}

void TestZELCustomMessageBox::modelessBoxIsHiddenByItsAnswer()
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

void TestZELCustomMessageBox::modalBoxReturnsTheAnswer()
{
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<ZELCustomMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        QCOMPARE(box->cCaption(), QStringLiteral("Reset"));
        QTest::mouseClick(box->cButton(ZELCustomMessageBox::Result_No), Qt::LeftButton);
    });
    QCOMPARE(ZELCustomMessageBox::cShowMessage(nullptr, QStringLiteral("Reset"), QString(),
                                               QStringLiteral("Sure?"), 4, 3),
             int(ZELCustomMessageBox::Result_No));
}

void TestZELCustomMessageBox::textsAreShownAsTheyAre()
{
    ZELCustomMessageBox box;
    const QString title = QStringLiteral("Failed <b>hard</b>");
    const QString text = QStringLiteral("Node 'a&lt;b':\r\n<i>0x80000106</i>");
    box.cSetTextTitle(title);
    box.cSetContent(text);
    box.cEndSetParameter();
    bool titleFound = false;
    for (const QLabel* label : box.findChildren<QLabel*>())
        titleFound |= label->text() == title && label->textFormat() == Qt::PlainText;
    QVERIFY(titleFound);
    QCOMPARE(box.findChild<QTextEdit*>()->toPlainText(),
             QStringLiteral("Node 'a&lt;b':\n<i>0x80000106</i>"));
}

void TestZELCustomMessageBox::longTextIsShownWhole()
{
    ZELCustomMessageBox box;
    box.cSetContent(QString(700, QLatin1Char('x')) + QStringLiteral("\nlast"));
    box.cEndSetParameter();
    box.show();
    auto* edit = box.findChild<QTextEdit*>();
    QVERIFY(box.width() < 700);
    QTextCursor end = edit->textCursor();
    end.movePosition(QTextCursor::End);
    QVERIFY(edit->viewport()->rect().contains(edit->cursorRect(end)));
}

void TestZELCustomMessageBox::languageChange()
{
    ZELCustomMessageBox standard;
    ZELCustomMessageBox named;
    named.cSetCaption(QStringLiteral("Mine"));
    standard.cSetButtons(2);
    standard.cEndSetParameter();
    named.cEndSetParameter();
    BracketTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(standard.cCaption(), QStringLiteral("[Prompt]"));
    QCOMPARE(standard.cButton(ZELCustomMessageBox::Result_Cancel)->text(),
             QStringLiteral("[Cancel]"));
    QCOMPARE(named.cCaption(), QStringLiteral("Mine"));
    QCoreApplication::removeTranslator(&translator);
}

OBFT_TEST_MAIN(TestZELCustomMessageBox)
#include "tst_zelcustommessagebox.moc"
