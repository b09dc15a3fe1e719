// SPDX-License-Identifier: Apache-2.0
#include "tree/EditorFocus.h"

#include "tree/ORXPropertySpinBox.h"
#include "tree/QPropertyLineEdit.h"

#include <QApplication>
#include <QComboBox>
#include <QSignalBlocker>

#include <vector>

namespace {

bool belongsTo(const QObject* popup, const QObject* editor)
{
    while (popup && popup != editor)
        popup = popup->parent();
    return popup;
}

// Lists and context menus are windows, which a hidden or disabled editor leaves open.
void closePopups(QWidget* editor)
{
    QWidget* popup = QApplication::activePopupWidget();
    if (!belongsTo(popup, editor))
        return;
    if (auto* comboBox = qobject_cast<QComboBox*>(editor))
        comboBox->hidePopup();
    else
        popup->close();
}

} // namespace

bool EditorFocus::isInside(const QWidget* editor)
{
    const QWidget* focus = editor->window()->focusWidget();
    return focus && (focus == editor || editor->isAncestorOf(focus));
}

bool EditorFocus::hasPendingEdit(const QWidget* editor)
{
    if (const auto* spinBox = qobject_cast<const ORXPropertySpinBox*>(editor))
        return spinBox->hasPendingEdit();
    const auto* lineEdit = qobject_cast<const QPropertyLineEdit*>(editor);
    return lineEdit && lineEdit->hasPendingEdit();
}

void EditorFocus::drop(QWidget* editor)
{
    closePopups(editor);
    if (!isInside(editor))
        return;
    // Losing the focus commits, also inside editors that write by themselves.
    std::vector<QSignalBlocker> silent;
    QList<QWidget*> parts = editor->findChildren<QWidget*>();
    parts.append(editor);
    for (QWidget* part : qAsConst(parts)) {
        silent.emplace_back(part);
        auto* lineEdit = qobject_cast<QPropertyLineEdit*>(part);
        if (lineEdit && lineEdit->hasPendingEdit())
            lineEdit->Rollback();
    }
    editor->parentWidget()->setFocus(Qt::OtherFocusReason);
}
