// SPDX-License-Identifier: Apache-2.0
#include "support/TestMain.h"

#include "support/GuiThreadReads.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QWheelEvent>

namespace {

constexpr int kFarFromWindows = 5000; // pixels

} // namespace

void GuardedTest::init()
{
    MessageGuard::install();
    MessageGuard::takeFaults();
    GuiThreadReads::take();
    prepare();
}

void GuardedTest::cleanup()
{
    finish();
    QStringList faults = MessageGuard::takeFaults();
    if (failsOnGuiThreadReads()) {
        faults += GuiThreadReads::take();
        faults.removeDuplicates();
    }
    if (!faults.isEmpty())
        QFAIL(qPrintable(faults.join(QLatin1Char('\n'))));
}

bool showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

bool sendWheel(QWidget* widget)
{
    const QPointF centre = widget->rect().center();
    QWheelEvent event(centre, widget->mapToGlobal(centre.toPoint()), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    event.setAccepted(true);
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

int runGuardedTest(int argc, char** argv, std::unique_ptr<GuardedTest> (*make)())
{
    // Every test program has a home of its own: tests never touch the user's files, nor each
    // other's when they run at the same time. Only the font cache stays where it is.
    const QTemporaryDir home;
    if (qEnvironmentVariableIsEmpty("XDG_CACHE_HOME"))
        qputenv("XDG_CACHE_HOME", QDir::homePath().toLocal8Bit() + "/.cache");
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    // With Qt 6 a window that opens below the pointer shows at once what is under it.
    QCursor::setPos(kFarFromWindows, kFarFromWindows);
    const std::unique_ptr<GuardedTest> test = make();
    return QTest::qExec(test.get(), argc, argv);
}
