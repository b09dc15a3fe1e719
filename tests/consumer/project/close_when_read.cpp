// SPDX-License-Identifier: Apache-2.0
// Linked to a host, it waits until an editor shows one of the host's values, and closes the window.
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int kLookMs = 50;
constexpr int kPatienceMs = 60000;

bool showsAValue(const QWidget* window)
{
    const auto editors = window->findChildren<QLineEdit*>();
    for (const QLineEdit* editor : editors) {
        if (editor->isVisible() &&
            (editor->text() == QLatin1String("640") || editor->text() == QLatin1String("left")))
            return true;
    }
    return false;
}

void closeWhenRead()
{
    auto* timer = new QTimer(qApp);
    QElapsedTimer waited;
    waited.start();
    QObject::connect(timer, &QTimer::timeout, [timer, waited] {
        if (waited.elapsed() > kPatienceMs)
            QApplication::exit(1);
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || !showsAValue(window))
                continue;
            std::puts("shown and read");
            timer->stop();
            window->close();
        }
    });
    timer->start(kLookMs);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(closeWhenRead)
