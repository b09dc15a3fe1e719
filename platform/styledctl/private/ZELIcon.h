// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPixmap>

class QIcon;
class QSize;
class QWidget;

// Pictures of icons in the pixels of the screen. QIcon itself gives them only where the host's
// application has set an attribute, and a library does not set those.
namespace ZELIcon {

// The icon for a place of this size in the widget; smaller when the icon has no picture that large.
QPixmap pixmap(const QIcon& icon, const QSize& size, const QWidget* widget);

} // namespace ZELIcon
