// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/Literals.h"
#include "support/MessageGuard.h"
#include "support/Rows.h"

#include <QObject>
#include <QTest>
#include <QWidget>

#include <memory>

// Base of every test class: after each test function, log lines of warning level and above that
// the function did not announce with MessageGuard fail it, and so do announced lines that did not
// come.
class GuardedTest : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

protected:
    // Hooks for subclasses instead of init() and cleanup().
    virtual void prepare() {}
    virtual void finish() {}
    // True fails a test function in which a host of the tests was read on the GUI thread.
    virtual bool failsOnGuiThreadReads() const { return false; }
};

// Shows the window and makes it the active one; false when it does not become that.
bool showActive(QWidget& window);
// Turns the wheel down over the middle of the widget; whether the widget accepts that.
bool sendWheel(QWidget* widget);

// Runs one test class under a QApplication; returns Qt Test's exit code.
int runGuardedTest(int argc, char** argv, std::unique_ptr<GuardedTest> (*make)());

#define OBFT_TEST_MAIN(TestClass)                                                                  \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        return runGuardedTest(argc, argv, []() -> std::unique_ptr<GuardedTest> {                   \
            return std::make_unique<TestClass>();                                                  \
        });                                                                                        \
    }
