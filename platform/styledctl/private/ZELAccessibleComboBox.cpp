// SPDX-License-Identifier: Apache-2.0
#include "styledctl/private/ZELAccessibleComboBox.h"

#include <QAbstractItemView>
#include <QComboBox>

namespace {

QAccessibleInterface* make(const QString& className, QObject* object)
{
    auto* box = className == QLatin1String("ZELCustomComboBox") ? qobject_cast<QComboBox*>(object)
                                                                : nullptr;
    return box ? new ZELAccessibleComboBox(box) : nullptr;
}

// QAccessible must not call into a library that was unloaded.
struct Installed
{
    Installed() { QAccessible::installFactory(make); }
    ~Installed() { QAccessible::removeFactory(make); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;
};

} // namespace

void ZELAccessibleComboBox::install()
{
    static const Installed installed;
}

ZELAccessibleComboBox::ZELAccessibleComboBox(QComboBox* box)
    : QAccessibleWidget(box, QAccessible::ComboBox)
{
}

QComboBox* ZELAccessibleComboBox::box() const
{
    return static_cast<QComboBox*>(widget());
}

QString ZELAccessibleComboBox::text(QAccessible::Text kind) const
{
    const bool named = !box()->accessibleName().isEmpty();
    if (kind == QAccessible::Value || (kind == QAccessible::Name && !named))
        return box()->currentText();
    return QAccessibleWidget::text(kind);
}

QStringList ZELAccessibleComboBox::actionNames() const
{
    return {showMenuAction(), pressAction()};
}

void ZELAccessibleComboBox::doAction(const QString& name)
{
    if (!box()->isEnabled() || (name != showMenuAction() && name != pressAction()))
        return;
    // Only a list that was opened before has a view.
    const bool open = box()->findChild<QAbstractItemView*>() && box()->view()->isVisible();
    if (open)
        box()->hidePopup();
    else
        box()->showPopup();
}

QAccessibleInterface* ZELAccessibleComboBox::child(int index) const
{
    return index == 0 ? QAccessible::queryAccessibleInterface(box()->view()) : nullptr;
}

int ZELAccessibleComboBox::indexOfChild(const QAccessibleInterface* child) const
{
    return child && child->object() == box()->view() ? 0 : -1;
}
