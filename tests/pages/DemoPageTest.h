// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DemoCamera.h"
#include "ManualClock.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "support/TestMain.h"

#include <memory>

// Base of tests of the window on the simulated demo camera. Each test function has a camera of its
// own, whose time stands still until the test moves the clock, and opens the window itself.
class DemoPageTest : public GuardedTest
{
protected:
    void prepare() override;
    void finish() override;

    // `lacking`: features that the description does not list.
    void open(const QStringList& lacking = {}, int language = 0);
    // At the camera itself, past the window. An integer, an enumeration or a boolean is read.
    int write(const char* name, const char* text);
    qint64 read(const char* name);

    std::unique_ptr<ManualClock> m_clock;
    std::unique_ptr<DemoCamera> m_demo;
    std::unique_ptr<MeddledCamera> m_camera; // what the window talks to
    std::unique_ptr<PageWindow> m_window;
};
