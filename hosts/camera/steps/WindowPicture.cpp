// SPDX-License-Identifier: Apache-2.0
#include "steps/WindowPicture.h"

#include <QApplication>
#include <QImageWriter>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>

namespace WindowPicture {

namespace {

int areaOf(const QWidget* widget)
{
    return widget->width() * widget->height();
}

} // namespace

QImage grab()
{
    QWidgetList windows;
    QRect whole;
    qreal pixelRatio = 1;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || window->isMinimized())
            continue;
        windows.append(window);
        whole |= QRect(window->pos(), window->size());
        pixelRatio = std::max(pixelRatio, window->devicePixelRatioF());
    }
    if (windows.isEmpty())
        return QImage();
    std::stable_sort(windows.begin(), windows.end(),
                     [](const QWidget* a, const QWidget* b) { return areaOf(a) > areaOf(b); });
    QImage picture(whole.size() * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (QWidget* window : windows)
        painter.drawPixmap(window->pos() - whole.topLeft(), window->grab());
    return picture;
}

bool save(const QString& file, QString* error)
{
    const QImage picture = grab();
    if (picture.isNull()) {
        *error = QStringLiteral("no window is visible");
        return false;
    }
    QImageWriter writer(file);
    if (writer.write(picture))
        return true;
    *error = QStringLiteral("cannot save %1: %2").arg(file, writer.errorString());
    return false;
}

} // namespace WindowPicture
