// SPDX-License-Identifier: Apache-2.0
#include "steps/StepActor.h"

#include "basetools/QtDifferences.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTreeView>

#include <algorithm>
#include <tuple>

namespace {

// Visible widgets of a kind from left to right and from top to bottom, those of the active dialog
// first.
template <typename Widget>
QList<Widget*> visibleWidgets()
{
    QList<Widget*> result;
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* candidate = qobject_cast<Widget*>(widget);
        if (candidate && candidate->isVisible())
            result.append(candidate);
    }
    const QWidget* modal = QApplication::activeModalWidget();
    const auto place = [modal](const QWidget* widget) {
        const QPoint at = widget->mapToGlobal(QPoint(0, 0));
        return std::make_tuple(!(modal && modal->isAncestorOf(widget)), at.x(), at.y());
    };
    std::stable_sort(result.begin(), result.end(),
                     [&place](const QWidget* a, const QWidget* b) { return place(a) < place(b); });
    return result;
}

QString plain(QString text)
{
    return text.remove(QLatin1Char('&')).trimmed();
}

bool isCalled(const QString& text, const QString& name)
{
    return plain(text).compare(name, Qt::CaseInsensitive) == 0;
}

void sendMouse(QWidget* widget, QEvent::Type type, const QPoint& at)
{
    const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void click(QWidget* widget, const QPoint& at)
{
    sendMouse(widget, QEvent::MouseButtonPress, at);
    sendMouse(widget, QEvent::MouseButtonRelease, at);
}

void sendKey(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &release);
}

void typeInto(QWidget* widget, const QString& text)
{
    for (const QChar character : text)
        sendKey(widget, 0, Qt::NoModifier, QString(character));
}

QWidget* largestWindow()
{
    QWidget* largest = nullptr;
    for (QWidget* widget : visibleWidgets<QWidget>()) {
        if (widget->isWindow() && (!largest || widget->width() > largest->width()))
            largest = widget;
    }
    return largest;
}

// The first row of that name that the view shows or can be scrolled to: none that is hidden or in a
// closed branch.
QModelIndex indexCalled(const QAbstractItemView& view, const QModelIndex& parent,
                        const QString& name)
{
    const auto* tree = qobject_cast<const QTreeView*>(&view);
    for (int row = 0; row < view.model()->rowCount(parent); ++row) {
        if (tree && tree->isRowHidden(row, parent))
            continue;
        const QModelIndex index = view.model()->index(row, 0, parent);
        if (isCalled(index.data(Qt::DisplayRole).toString(), name))
            return index;
        if (tree && !tree->isExpanded(index))
            continue;
        const QModelIndex below = indexCalled(view, index, name);
        if (below.isValid())
            return below;
    }
    return {};
}

// The editor proper: a delegate may wrap it.
template <typename Editor>
Editor* editorIn(QWidget* widget)
{
    auto* editor = qobject_cast<Editor*>(widget);
    return editor ? editor : widget->findChild<Editor*>();
}

QString enter(QWidget* editor, const QString& value)
{
    if (auto* box = editorIn<QComboBox>(editor)) {
        for (int i = 0; i < box->count(); ++i) {
            if (!isCalled(box->itemText(i), value))
                continue;
            box->setCurrentIndex(i);
            emit box->activated(i);
            return QString();
        }
        return QStringLiteral("there is no entry \"%1\"").arg(value);
    }
    if (auto* line = editorIn<QLineEdit>(editor)) {
        line->setFocus();
        line->selectAll();
        typeInto(line, value);
        sendKey(line, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        return QString();
    }
    if (auto* button = editorIn<QAbstractButton>(editor)) {
        if (button->isCheckable() && button->isChecked() == (value == QLatin1String("1")))
            return QString();
        button->click();
        return QString();
    }
    return QStringLiteral("the editor is of no kind that can be filled");
}

} // namespace

QString StepActor::act(const StepScript::Step& step)
{
    using Function = QString (StepActor::*)(const QString&);
    static const QHash<QString, Function> functions{
        {QStringLiteral("tab"), &StepActor::showTab},
        {QStringLiteral("select"), &StepActor::selectRow},
        {QStringLiteral("line"), &StepActor::pressLine},
        {QStringLiteral("check"), &StepActor::checkLine},
        {QStringLiteral("file"), &StepActor::enterFile},
        {QStringLiteral("expand"), &StepActor::expandRow},
        {QStringLiteral("collapse"), &StepActor::collapseRow},
        {QStringLiteral("set"), &StepActor::setValue},
        {QStringLiteral("choose"), &StepActor::choose},
        {QStringLiteral("menu"), &StepActor::openMenu},
        {QStringLiteral("press"), &StepActor::press},
        {QStringLiteral("search"), &StepActor::search},
        {QStringLiteral("type"), &StepActor::type},
        {QStringLiteral("key"), &StepActor::key},
        {QStringLiteral("scroll"), &StepActor::scroll},
        {QStringLiteral("size"), &StepActor::resize},
        {QStringLiteral("center"), &StepActor::center},
    };
    const Function function = functions.value(step.verb);
    return function ? (this->*function)(step.argument)
                    : QStringLiteral("\"%1\" is no step with the window").arg(step.verb);
}

bool StepActor::isSaid(const QString& text)
{
    const QList<QLabel*> labels = visibleWidgets<QLabel>();
    return std::any_of(labels.begin(), labels.end(),
                       [&text](const QLabel* label) { return label->text().contains(text); });
}

QString StepActor::notThere(const QString& name)
{
    return QStringLiteral("nothing visible is called \"%1\"").arg(name);
}

StepActor::Row StepActor::findRow(const QString& name)
{
    for (QAbstractItemView* view : visibleWidgets<QAbstractItemView>()) {
        // A header is a view of the same model.
        if (!view->model() || qobject_cast<QHeaderView*>(view))
            continue;
        const QModelIndex index = indexCalled(*view, view->rootIndex(), name);
        if (index.isValid())
            return {view, index};
    }
    return {};
}

// "NAME:INDEX", of the tabs with that object name.
QString StepActor::showTabOf(const QString& argument)
{
    const QString name = argument.section(QLatin1Char(':'), 0, 0);
    const int index = argument.section(QLatin1Char(':'), 1).toInt();
    for (const QTabWidget* tabs : visibleWidgets<QTabWidget>()) {
        if (tabs->objectName() != name || index >= tabs->count())
            continue;
        click(tabs->tabBar(), tabs->tabBar()->tabRect(index).center());
        return QString();
    }
    return notThere(argument);
}

QString StepActor::showTab(const QString& argument)
{
    if (argument.contains(QLatin1Char(':')))
        return showTabOf(argument);
    bool isNumber = false;
    const int number = argument.toInt(&isNumber);
    // Tabs may be buttons of which one is down; the pages' are. A number means the first row of
    // tabs.
    for (const QAbstractButton* button : visibleWidgets<QAbstractButton>()) {
        if (!isNumber || !button->isCheckable() || !button->group() ||
            !button->group()->exclusive())
            continue;
        const QList<QAbstractButton*> tabs = button->group()->buttons();
        if (number < 0 || number >= tabs.size())
            continue;
        if (!tabs.at(number)->isEnabled())
            return QStringLiteral("the tab is disabled");
        tabs.at(number)->click();
        return QString();
    }
    for (QTabBar* bar : visibleWidgets<QTabBar>()) {
        for (int i = 0; i < bar->count(); ++i) {
            if (isNumber ? i != number : !isCalled(bar->tabText(i), argument))
                continue;
            click(bar, bar->tabRect(i).center());
            return QString();
        }
    }
    return isNumber ? notThere(argument) : press(argument);
}

QString StepActor::selectRow(const QString& argument)
{
    const Row row = findRow(argument);
    if (!row.view)
        return notThere(argument);
    row.view->scrollTo(row.index);
    click(row.view->viewport(), row.view->visualRect(row.index).center());
    row.view->setCurrentIndex(row.index);
    return QString();
}

// A dialog's table goes before the window's below it.
StepActor::Row StepActor::findLine(const QString& text)
{
    QList<QTableView*> tables = visibleWidgets<QTableView>();
    std::stable_sort(tables.begin(), tables.end(), [](const QTableView* a, const QTableView* b) {
        return a->isActiveWindow() && !b->isActiveWindow();
    });
    for (QTableView* table : qAsConst(tables)) {
        const QAbstractItemModel* model = table->model();
        for (int row = 0; model && row < model->rowCount(); ++row) {
            for (int column = 0; column < model->columnCount(); ++column) {
                if (isCalled(model->index(row, column).data().toString(), text))
                    return {table, model->index(row, column)};
            }
        }
    }
    return {};
}

QString StepActor::pressLine(const QString& argument)
{
    const Row line = findLine(argument);
    if (!line.view)
        return notThere(argument);
    line.view->scrollTo(line.index);
    click(line.view->viewport(), line.view->visualRect(line.index).center());
    line.view->setCurrentIndex(line.index);
    return QString();
}

QString StepActor::checkLine(const QString& argument)
{
    const QString text = argument.section(QLatin1Char(':'), 0, 0);
    const Row line = findLine(text);
    if (!line.view)
        return notThere(text);
    const QModelIndex box = line.index.sibling(line.index.row(), 0);
    if (!(box.flags() & Qt::ItemIsUserCheckable))
        return QStringLiteral("\"%1\" has no box").arg(text);
    const bool wanted = argument.section(QLatin1Char(':'), 1) == QLatin1String("1");
    line.view->setCurrentIndex(box);
    if ((box.data(Qt::CheckStateRole).toInt() == Qt::Checked) != wanted)
        sendKey(line.view, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    return (box.data(Qt::CheckStateRole).toInt() == Qt::Checked) == wanted
               ? QString()
               : QStringLiteral("the box of \"%1\" stays as it is").arg(text);
}

QString StepActor::enterFile(const QString& argument)
{
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* name = dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
    if (!name)
        return QStringLiteral("no file dialog is open");
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    name->setFocus();
    name->selectAll();
    typeInto(name, argument);
    sendKey(name, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    return QString();
}

QString StepActor::expandRow(const QString& argument)
{
    if (argument == QLatin1String("*")) {
        for (QTreeView* tree : visibleWidgets<QTreeView>())
            tree->expandAll();
        return QString();
    }
    const Row row = findRow(argument);
    auto* tree = qobject_cast<QTreeView*>(row.view);
    if (!tree)
        return notThere(argument);
    tree->expand(row.index);
    return QString();
}

QString StepActor::collapseRow(const QString& argument)
{
    if (argument == QLatin1String("*")) {
        for (QTreeView* tree : visibleWidgets<QTreeView>())
            tree->collapseAll();
        return QString();
    }
    const Row row = findRow(argument);
    auto* tree = qobject_cast<QTreeView*>(row.view);
    if (!tree)
        return notThere(argument);
    tree->collapse(row.index);
    return QString();
}

QString StepActor::setValue(const QString& argument)
{
    const QString name = argument.section(QLatin1Char(':'), 0, 0);
    const Row row = findRow(name);
    if (!row.view)
        return notThere(name);
    row.view->scrollTo(row.index);
    QApplication::processEvents(); // editors may come into being with the row
    QWidget* editor = row.view->indexWidget(row.index.sibling(row.index.row(), 1));
    if (!editor || !editor->isEnabled())
        return QStringLiteral("\"%1\" has no editor that is open").arg(name);
    return enter(editor, argument.section(QLatin1Char(':'), 1));
}

QString StepActor::choose(const QString& argument)
{
    const QString name = argument.section(QLatin1Char(':'), 0, 0);
    for (QComboBox* box : visibleWidgets<QComboBox>()) {
        if (box->objectName() == name)
            return enter(box, argument.section(QLatin1Char(':'), 1));
    }
    return notThere(name);
}

QString StepActor::openMenu(const QString& argument)
{
    const Row row = findRow(argument);
    if (!row.view)
        return notThere(argument);
    row.view->scrollTo(row.index);
    const QPoint at = row.view->visualRect(row.index).center();
    QCursor::setPos(row.view->viewport()->mapToGlobal(at));
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, row.view->viewport()->mapToGlobal(at));
    QApplication::sendEvent(row.view->viewport(), &event);
    return QString();
}

QString StepActor::press(const QString& argument)
{
    for (QMenu* menu : visibleWidgets<QMenu>()) {
        for (QAction* action : menu->actions()) {
            if (!action->isEnabled() || !isCalled(action->text(), argument))
                continue;
            menu->close();
            action->trigger();
            return QString();
        }
    }
    for (QAbstractButton* button : visibleWidgets<QAbstractButton>()) {
        if (!button->isEnabled() ||
            (button->objectName() != argument && !isCalled(button->text(), argument) &&
             !isCalled(button->toolTip(), argument)))
            continue;
        button->click();
        return QString();
    }
    for (QWidget* widget : visibleWidgets<QWidget>()) {
        if (widget->objectName() != argument)
            continue;
        click(widget, widget->rect().center());
        return QString();
    }
    return notThere(argument);
}

QString StepActor::search(const QString& argument)
{
    for (QLineEdit* line : visibleWidgets<QLineEdit>()) {
        if (!line->objectName().contains(QLatin1String("search"), Qt::CaseInsensitive) &&
            !line->placeholderText().contains(QLatin1String("search"), Qt::CaseInsensitive))
            continue;
        line->setFocus();
        line->selectAll();
        typeInto(line, argument);
        return QString();
    }
    return QStringLiteral("there is no search field");
}

QString StepActor::type(const QString& argument)
{
    QWidget* focus = QApplication::focusWidget();
    if (!focus)
        return QStringLiteral("nothing has the focus");
    typeInto(focus, argument);
    return QString();
}

QString StepActor::key(const QString& argument)
{
    QWidget* focus = QApplication::focusWidget();
    const QKeySequence sequence = QKeySequence::fromString(argument);
    if (!focus || sequence.count() != 1)
        return focus ? QStringLiteral("\"%1\" is no key").arg(argument)
                     : QStringLiteral("nothing has the focus");
    const auto code = QtDifferences::keyCode(sequence[0]);
    sendKey(focus, static_cast<int>(code & ~static_cast<unsigned>(Qt::KeyboardModifierMask)),
            Qt::KeyboardModifiers(QFlag(code & static_cast<unsigned>(Qt::KeyboardModifierMask))),
            QString());
    return QString();
}

QString StepActor::scroll(const QString& argument)
{
    const bool top = argument == QLatin1String("top");
    if (top || argument == QLatin1String("bottom")) {
        for (QAbstractItemView* view : visibleWidgets<QAbstractItemView>())
            view->verticalScrollBar()->setValue(top ? 0 : view->verticalScrollBar()->maximum());
        return QString();
    }
    const Row row = findRow(argument);
    if (!row.view)
        return notThere(argument);
    row.view->scrollTo(row.index, QAbstractItemView::PositionAtTop);
    return QString();
}

QString StepActor::resize(const QString& argument)
{
    const QSize size(argument.section(QLatin1Char('x'), 0, 0).toInt(),
                     argument.section(QLatin1Char('x'), 1, 1).toInt());
    QWidget* largest = largestWindow();
    if (!largest)
        return QStringLiteral("no window is visible");
    largest->setFixedSize(size);
    return QString();
}

QString StepActor::center(const QString&)
{
    const QWidget* largest = largestWindow();
    QWidget* dialog = QApplication::activeWindow();
    if (!largest || !dialog || dialog == largest)
        return QStringLiteral("no dialog is open");
    QRect place = dialog->frameGeometry();
    place.moveCenter(largest->frameGeometry().center());
    dialog->move(place.topLeft());
    return QString();
}
