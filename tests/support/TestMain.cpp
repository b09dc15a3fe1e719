// SPDX-License-Identifier: Apache-2.0
#include "support/TestMain.h"

#include <QApplication>
#include <QStandardPaths>

void GuardedTest::init()
{
    MessageGuard::install();
    MessageGuard::takeFaults();
    prepare();
}

void GuardedTest::cleanup()
{
    finish();
    const QStringList faults = MessageGuard::takeFaults();
    if (!faults.isEmpty())
        QFAIL(qPrintable(faults.join(QLatin1Char('\n'))));
}

int runGuardedTest(int argc, char** argv, std::unique_ptr<GuardedTest> (*make)())
{
    // Tests never touch the user's own files, and look the same on every machine.
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    const std::unique_ptr<GuardedTest> test = make();
    return QTest::qExec(test.get(), argc, argv);
}
