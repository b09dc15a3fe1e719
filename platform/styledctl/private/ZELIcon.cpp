// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELIcon.h"

#include <QIcon>
#include <QWidget>

namespace ZELIcon {

QPixmap pixmap(const QIcon& icon, const QSize& size, const QWidget* widget)
{
    QPixmap picture = icon.pixmap(size * widget->devicePixelRatioF());
    if (picture.isNull() || size.isEmpty())
        return picture;
    const qreal across = qreal(picture.width()) / size.width();
    const qreal down = qreal(picture.height()) / size.height();
    picture.setDevicePixelRatio(qMax(1.0, qMax(across, down)));
    return picture;
}

} // namespace ZELIcon
