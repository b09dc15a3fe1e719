// SPDX-License-Identifier: Apache-2.0
#include "application.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

namespace {

QApplication* s_application = nullptr;

} // namespace

void application_start(int* argc, char** argv)
{
    s_application = new QApplication(*argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
}

void application_run(int milliseconds)
{
    // Not quit(), which in Qt 6 closes the windows first.
    QTimer::singleShot(milliseconds, s_application, [] { QApplication::exit(); });
    QApplication::exec();
}

int application_windows(void)
{
    int visible = 0;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        visible += widget->isVisible() ? 1 : 0;
    return visible;
}

void application_end(void)
{
    delete s_application;
    s_application = nullptr;
}
