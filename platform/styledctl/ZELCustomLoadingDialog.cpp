// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELCustomLoadingDialog.h"

#include "styledctl/private/ZELLoadingOverlay.h"

#include <QApplication>
#include <QHash>
#include <QSet>

namespace {

struct Sign
{
    QPointer<QWidget> host;
    bool hosted = false; // A host was given, alive or not.
    bool shown = false;
    bool placed = false; // There was a window to lie over.
    QString text;
    QPointer<ZELLoadingOverlay> overlay; // Owned by its parent window.
};

QHash<int, Sign>& signs()
{
    static QHash<int, Sign> all;
    return all;
}

// A sign whose window died is not shown any more.
bool alive(const Sign& sign)
{
    return sign.shown && (!sign.placed || sign.overlay);
}

QWidget* hostOf(const Sign& sign)
{
    if (sign.hosted)
        return sign.host;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() != Qt::ToolTip &&
            window->windowType() != Qt::Popup)
            return window;
    }
    return nullptr;
}

void removeOverlay(Sign& sign)
{
    const ZELLoadingOverlay* overlay = sign.overlay;
    sign.overlay.clear();
    delete overlay;
}

int freeRow(const QWidget* host)
{
    QSet<int> taken;
    for (const Sign& sign : qAsConst(signs())) {
        if (sign.overlay && sign.overlay->parentWidget() == host)
            taken.insert(sign.overlay->row());
    }
    int row = 0;
    while (taken.contains(row))
        ++row;
    return row;
}

} // namespace

void ZELCustomLoadingDialog::showLoading(const QString& text, int index)
{
    Sign& sign = signs()[index];
    QWidget* host = hostOf(sign);
    if (sign.overlay && sign.overlay->parentWidget() != host)
        removeOverlay(sign);
    if (!sign.overlay && host)
        sign.overlay = new ZELLoadingOverlay(host, freeRow(host));
    sign.shown = true;
    sign.placed = sign.overlay;
    sign.text = text;
    if (!sign.overlay)
        return;
    sign.overlay->setText(text);
    sign.overlay->show();
    // The caller is about to keep the GUI thread busy.
    if (sign.overlay->isVisible())
        sign.overlay->repaint();
}

void ZELCustomLoadingDialog::hideLoading(int index)
{
    const auto it = signs().find(index);
    if (it == signs().end())
        return;
    it->shown = false;
    removeOverlay(*it);
    if (!it->hosted)
        signs().erase(it);
}

void ZELCustomLoadingDialog::setHostWindow(QWidget* window, int index)
{
    Sign& sign = signs()[index];
    if (sign.host == window && sign.hosted == (window != nullptr))
        return;
    const bool shown = alive(sign);
    const QString text = sign.text;
    hideLoading(index);
    if (!window) {
        signs().remove(index);
    } else {
        Sign& renewed = signs()[index];
        renewed.host = window;
        renewed.hosted = true;
    }
    if (shown)
        showLoading(text, index);
}

bool ZELCustomLoadingDialog::isLoading(int index)
{
    const auto it = signs().constFind(index);
    return it != signs().cend() && alive(*it);
}

QString ZELCustomLoadingDialog::text(int index)
{
    return isLoading(index) ? signs().value(index).text : QString();
}
