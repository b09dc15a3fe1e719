// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomPushButton.h"
#include "support/TestMain.h"

#include <QSignalSpy>

class TestZELCustomPushButton : public GuardedTest
{
    Q_OBJECT

private slots:
    void guardIgnoresSecondClick_data()
    {
        const Rows<int> row("way");
        row("mouse", 0);
        row("space", Qt::Key_Space);
        row("enter", Qt::Key_Return);
        row("program", -1);
    }

    void guardIgnoresSecondClick()
    {
        QFETCH(int, way);
        ZELCustomPushButton button;
        qint64 now = 1000;
        button.cSetClickClock([&now] { return now; });
        button.cSetControlClickEvent(true);
        QSignalSpy clicked(&button, &QPushButton::clicked);
        const auto press = [&] {
            if (way == 0)
                QTest::mouseClick(&button, Qt::LeftButton);
            else if (way < 0)
                button.click();
            else
                QTest::keyClick(&button, Qt::Key(way));
        };
        press();
        QCOMPARE(clicked.size(), 1);
        now += 499;
        press();
        QCOMPARE(clicked.size(), 1);
        // Filling an editor again sets the guard again: that must not open it.
        button.cSetControlClickEvent(true);
        press();
        QCOMPARE(clicked.size(), 1);
        now += 1;
        press();
        QCOMPARE(clicked.size(), 2);
    }

    void unguardedButtonTakesEveryClick()
    {
        ZELCustomPushButton button;
        QSignalSpy clicked(&button, &QPushButton::clicked);
        for (int i = 0; i < 5; ++i)
            QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(clicked.size(), 5);
    }

    void slowHandlerDoesNotOpenTheGuard()
    {
        ZELCustomPushButton button;
        qint64 now = 0;
        button.cSetClickClock([&now] { return now; });
        button.cSetControlClickEvent(true);
        int handled = 0;
        connect(&button, &QPushButton::clicked, this, [&] {
            // A handler that runs the event loop may be clicked while it runs.
            if (++handled == 1) {
                QTest::mouseClick(&button, Qt::LeftButton);
                now += 100;
            }
        });
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(handled, 1);
    }

    void releaseOfAnIgnoredPressDoesNothing()
    {
        ZELCustomPushButton button;
        qint64 now = 0;
        button.cSetClickClock([&now] { return now; });
        button.cSetControlClickEvent(true);
        QSignalSpy clicked(&button, &QPushButton::clicked);
        QTest::mouseClick(&button, Qt::LeftButton);
        now = 400;
        QTest::mousePress(&button, Qt::LeftButton);
        now = 600;
        QTest::mouseRelease(&button, Qt::LeftButton);
        QCOMPARE(clicked.size(), 1);
    }
};

OBFT_TEST_MAIN(TestZELCustomPushButton)
#include "tst_zelcustompushbutton.moc"
