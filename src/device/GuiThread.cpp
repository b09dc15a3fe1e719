// SPDX-License-Identifier: Apache-2.0
#include "device/GuiThread.h"

#include <QCoreApplication>
#include <QThread>

bool onGuiThread()
{
    const QCoreApplication* application = QCoreApplication::instance();
    return !application || QThread::currentThread() == application->thread();
}
