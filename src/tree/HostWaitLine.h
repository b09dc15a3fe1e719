// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QTimer>

#include <functional>

// Says what the camera is being waited for, and for how long, once one call of the host lasts
// longer than a second; takes no room otherwise. Watches as long as its parent is seen. GUI thread.
class HostWaitLine : public QLabel
{
    Q_OBJECT
public:
    // `nameOf` gives the name under which the user knows a feature. `parent` owns it.
    HostWaitLine(const std::function<QString(const QString& feature)>& nameOf, QWidget* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();

    const std::function<QString(const QString&)> m_nameOf;
    QTimer m_timer;
};
