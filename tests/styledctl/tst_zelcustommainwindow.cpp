// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomLineEdit.h"
#include "styledctl/ZELCustomMainWindow.h"
#include "styledctl/ZELCustomPushButton.h"
#include "styledctl/ZELCustomTitleBar.h"
#include "support/TestMain.h"

#include <QMouseEvent>
#include <QSignalSpy>
#include <QVBoxLayout>

class TestZELCustomMainWindow : public GuardedTest
{
    Q_OBJECT

private slots:
    void enterInAnEditorPressesNoButton()
    {
        ZELCustomMainWindow window;
        auto* edit = new ZELCustomLineEdit;
        auto* button = new ZELCustomPushButton("DeviceReset"_s, nullptr);
        window.cContentLayout()->addWidget(edit);
        window.cContentLayout()->addWidget(button);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        edit->setFocus();
        QSignalSpy clicked(button, &QPushButton::clicked);
        QTest::keyClick(edit, Qt::Key_Return);
        QTest::keyClick(edit, Qt::Key_Enter);
        QTest::keyClick(edit, Qt::Key_Escape);
        QCOMPARE(clicked.size(), 0);
        QVERIFY(window.isVisible());
    }

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

    void firstFocusIsInTheContent()
    {
        ZELCustomMainWindow window;
        auto* edit = new ZELCustomLineEdit;
        window.cContentLayout()->addWidget(edit);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTRY_VERIFY(edit->hasFocus());
        // The keyboard reaches the close button too.
        QTest::keyClick(edit, Qt::Key_Tab);
        QVERIFY(window.cTitleBar()->cCloseButton()->hasFocus());
    }

    void titleDragMovesTheWindow()
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
    }

    void hiddenTitleLeavesItsRoom()
    {
        ZELCustomMainWindow window;
        window.setFixedSize(300, 200);
        window.show();
        window.layout()->activate();
        const int with = window.cContentWidget()->height();
        window.cSetTitleVisible(false);
        window.layout()->activate();
        QCOMPARE(window.cContentWidget()->height(), with + window.cTitleBar()->height());
        window.cEnableDefaultShadow();
        window.layout()->activate();
        QVERIFY(window.cContentWidget()->x() > 1);
        QCOMPARE(window.size(), QSize(300, 200));
    }

    void closeButtonCloses()
    {
        ZELCustomMainWindow window;
        window.show();
        QTest::mouseClick(window.cTitleBar()->cCloseButton(), Qt::LeftButton);
        QVERIFY(!window.isVisible());
    }

    void staysOverAnOwnerThatStaysOnTop()
    {
        QWidget owner;
        QVERIFY(!(ZELCustomMainWindow(&owner).windowFlags() & Qt::WindowStaysOnTopHint));
        owner.setWindowFlag(Qt::WindowStaysOnTopHint);
        QWidget inner(&owner);
        QVERIFY(ZELCustomMainWindow(&inner).windowFlags() & Qt::WindowStaysOnTopHint);
    }
};

OBFT_TEST_MAIN(TestZELCustomMainWindow)
#include "tst_zelcustommainwindow.moc"
