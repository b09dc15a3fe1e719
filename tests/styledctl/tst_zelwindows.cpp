// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomLineEdit.h"
#include "styledctl/ZELCustomLoadingDialog.h"
#include "styledctl/ZELCustomMainWindow.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomTitleBar.h"
#include "support/BracketTranslator.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// The signs are the only direct children of the windows of this test without a layout.
QList<QWidget*> signsOf(const QWidget& window)
{
    QList<QWidget*> found;
    for (QWidget* child : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->inherits("ZELLoadingOverlay"))
            found.append(child);
    }
    return found;
}

void showBusy(QWidget* window, int index)
{
    ZELCustomLoadingDialog::setHostWindow(window, index);
    ZELCustomLoadingDialog::showLoading("busy"_s, index);
}

} // namespace

// The window of the theme, message boxes, and the signs that something is under way.
class TestZELWindows : public GuardedTest
{
    Q_OBJECT

protected:
    void finish() override
    {
        for (const int index : {1, 2, 3}) {
            ZELCustomLoadingDialog::setHostWindow(nullptr, index);
            ZELCustomLoadingDialog::hideLoading(index);
        }
    }

private slots:
    void dialogKeys()
    {
        ZELCustomMainWindow window;
        window.cSetDialogKeys(true);
        QSignalSpy finished(&window, &QDialog::finished);
        window.show();
        QTest::keyClick(&window, Qt::Key_Escape);
        window.show();
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(finished.size(), 2);
        QCOMPARE(finished.at(0).at(0).toInt(), int(QDialog::Rejected));
        QCOMPARE(finished.at(1).at(0).toInt(), int(QDialog::Accepted));
    }

    void keysInTheContentPressNoButton()
    {
        ZELCustomMainWindow window;
        auto* edit = new ZELCustomLineEdit;
        auto* button = new ZELCustomPushButton("DeviceReset"_s, nullptr);
        window.cContentLayout()->addWidget(edit);
        window.cContentLayout()->addWidget(button);
        QVERIFY(showActive(window));
        // The first focus is in the content.
        QTRY_VERIFY(edit->hasFocus());
        QSignalSpy clicked(button, &QPushButton::clicked);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
            QTest::keyClick(edit, key);
        QCOMPARE(clicked.size(), 0);
        QVERIFY(window.isVisible());
        // The keyboard reaches the close button too.
        QTest::keyClick(edit, Qt::Key_Tab);
        QTest::keyClick(button, Qt::Key_Tab);
        QVERIFY(window.cTitleBar()->cCloseButton()->hasFocus());
    }

    void titleMovesTheWindowAndLeavesItsRoom()
    {
        ZELCustomMainWindow window;
        window.setFixedSize(400, 300);
        window.move(100, 100);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QWidget* title = window.cTitleBar();
        const auto send = [&](QEvent::Type type, const QPoint& screen, Qt::MouseButton button) {
            QMouseEvent event(type, title->mapFromGlobal(screen), screen, button,
                              type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                              {});
            QCoreApplication::sendEvent(title, &event);
        };
        send(QEvent::MouseButtonPress, {160, 110}, Qt::LeftButton);
        send(QEvent::MouseMove, {190, 155}, Qt::NoButton);
        QCOMPARE(window.pos(), QPoint(130, 145));
        send(QEvent::MouseButtonRelease, {190, 155}, Qt::LeftButton);
        send(QEvent::MouseMove, {300, 300}, Qt::NoButton);
        QCOMPARE(window.pos(), QPoint(130, 145));
        // Hidden it leaves its room to the content.
        const int with = window.cContentWidget()->height();
        window.cSetTitleVisible(false);
        window.layout()->activate();
        QCOMPARE(window.cContentWidget()->height(), with + window.cTitleBar()->height());
        window.cEnableDefaultShadow();
        window.layout()->activate();
        QVERIFY(window.cContentWidget()->x() > 1);
        QCOMPARE(window.size(), QSize(400, 300));
    }

    void staysOverAnOwnerThatStaysOnTop()
    {
        QWidget owner;
        QVERIFY(!(ZELCustomMainWindow(&owner).windowFlags() & Qt::WindowStaysOnTopHint));
        owner.setWindowFlag(Qt::WindowStaysOnTopHint);
        QWidget inner(&owner);
        QVERIFY(ZELCustomMainWindow(&inner).windowFlags() & Qt::WindowStaysOnTopHint);
    }

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
        const auto [buttons, key] = fetchRow<int, int>();
        QWidget owner;
        const QPointer<ZELCustomMessageBox> shown = new ZELCustomMessageBox(&owner);
        ZELCustomMessageBox& box = *shown;
        box.cSetButtons(buttons);
        box.cSetContent("text"_s);
        box.cSetHintStyle(ZELCustomMessageBox::Hint_Question);
        box.cEndSetParameter();
        box.show();
        QVERIFY(!box.isModal());
        QCOMPARE(box.cResult(), int(ZELCustomMessageBox::Result_None));
        QSignalSpy clicked(&box, &ZELCustomMessageBox::cSigClicked);
        if (key == 0)
            box.close();
        else if (key < 0)
            QTest::mouseClick(box.cButton(-key), Qt::LeftButton);
        else
            QTest::keyClick(&box, Qt::Key(key));
        QCOMPARE(clicked.size(), 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        // The owner decides when the box goes: it may still ask for the answer.
        QVERIFY(shown && !box.isVisible());
        QTEST(box.cResult(), "result");
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

    void signLiesOverItsWindow()
    {
        QWidget first;
        QWidget second;
        for (QWidget* window : {&first, &second}) {
            window->resize(500, 400);
            window->show();
        }
        second.activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&first));
        showBusy(&first, 1);
        QCOMPARE(signsOf(first).size(), 1);
        QVERIFY(signsOf(second).isEmpty());
        const QWidget* sign = signsOf(first).constFirst();
        QVERIFY(sign->isVisible());
        const auto inLowerMiddle = [&] {
            const QRect area = sign->geometry();
            return first.rect().contains(area) &&
                   qAbs(area.center().x() - first.width() / 2) <= 1 &&
                   area.top() > first.height() / 2;
        };
        QVERIFY(inLowerMiddle());
        first.resize(800, 700);
        QTRY_VERIFY(inLowerMiddle());
        ZELCustomLoadingDialog::setHostWindow(&second, 1);
        QVERIFY(signsOf(first).isEmpty());
        QCOMPARE(signsOf(second).size(), 1);
        QCOMPARE(ZELCustomLoadingDialog::text(1), "busy"_s);
    }

    void signsOfOneWindowAreApart()
    {
        QWidget window;
        window.resize(500, 400);
        window.show();
        showBusy(&window, 1);
        showBusy(&window, 2);
        ZELCustomLoadingDialog::showLoading("more"_s, 1);
        QCOMPARE(ZELCustomLoadingDialog::text(1), "more"_s);
        ZELCustomLoadingDialog::hideLoading(1);
        ZELCustomLoadingDialog::hideLoading(3);
        QVERIFY(!ZELCustomLoadingDialog::isLoading(1));
        QVERIFY(ZELCustomLoadingDialog::text(1).isEmpty());
        QVERIFY(ZELCustomLoadingDialog::isLoading(2));
        QCOMPARE(ZELCustomLoadingDialog::text(2), "busy"_s);
        showBusy(&window, 3);
        const QList<QWidget*> signs = signsOf(window);
        QCOMPARE(signs.size(), 2);
        QVERIFY(!signs.at(0)->geometry().intersects(signs.at(1)->geometry()));
    }

    void windowTakesItsSignsAlong()
    {
        auto* window = new QWidget;
        window->show();
        showBusy(window, 1);
        delete window;
        QVERIFY(!ZELCustomLoadingDialog::isLoading(1));
        ZELCustomLoadingDialog::hideLoading(1);
        // Without any window as well.
        ZELCustomLoadingDialog::showLoading("again"_s, 1);
        QVERIFY(ZELCustomLoadingDialog::isLoading(1));
        ZELCustomLoadingDialog::hideLoading(1);
        QVERIFY(!ZELCustomLoadingDialog::isLoading(1));
    }

    void inputReachesTheWindowBelow()
    {
        QWidget window;
        window.resize(300, 200);
        auto* layout = new QVBoxLayout(&window);
        auto* edit = new ZELCustomLineEdit;
        auto* button = new QPushButton;
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        layout->addWidget(edit);
        layout->addWidget(button);
        QVERIFY(showActive(window));
        edit->setFocus();
        showBusy(&window, 1);
        QVERIFY(edit->hasFocus());
        QTest::keyClicks(edit, "12"_s);
        QCOMPARE(edit->text(), "12"_s);
        QSignalSpy clicked(button, &QPushButton::clicked);
        const QPoint onSign = signsOf(window).constFirst()->geometry().center();
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, onSign);
        QCOMPARE(clicked.size(), 1);
    }
};

OBFT_TEST_MAIN(TestZELWindows)
#include "tst_zelwindows.moc"
