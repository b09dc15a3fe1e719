// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tree/ORXFeatureTreeView.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>

// Begins a drag as the mouse does; returns when it has ended.
inline void dragRow(const ORXFeatureTreeView* view, const QModelIndex& row)
{
    const QPoint from = view->visualRect(row).center();
    const QPoint way(2 * QApplication::startDragDistance(), 0);
    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, from);
    const QPointer<QWidget> viewport(view->viewport());
    for (int step = 1; step <= 2 && viewport; ++step) {
        const QPoint at = from + step * way;
        QMouseEvent move(QEvent::MouseMove, at, viewport->mapToGlobal(at), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
    }
    if (viewport)
        QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, from);
}

// Only this platform holds a drag up until it ends.
inline bool dragsBlock()
{
    return QGuiApplication::platformName() == QLatin1String("minimal");
}
