// SPDX-License-Identifier: Apache-2.0
#include "StormUser.h"

#include "model/ORXPropertyTreeItem.h"
#include "model/ORXPropertyTreeModel.h"
#include "support/Literals.h"
#include "support/OpenedWindow.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>

namespace {

constexpr int kTraceLength = 15;
constexpr int kMostTypingPauseMs = 30;

ORXFeatureTreeView* viewInSight(const OpenedWindow& window)
{
    const auto views = window.widget()->findChildren<ORXFeatureTreeView*>();
    for (ORXFeatureTreeView* view : views) {
        if (view->isVisible())
            return view;
    }
    return window.view();
}

} // namespace

void StormUser::note(const QString& text)
{
    m_trace.append(text);
    if (m_trace.size() > kTraceLength)
        m_trace.removeFirst();
}

void StormUser::enter(const QString& name, const QString& value)
{
    m_entered.append("set "_s + name + QLatin1Char(' ') + value);
}

QStringList StormUser::takeEntered()
{
    QStringList entered;
    entered.swap(m_entered);
    return entered;
}

void StormUser::act(const OpenedWindow& window)
{
    using Action = void (StormUser::*)(const OpenedWindow&);
    struct Weighed
    {
        int weight;
        Action action;
    };
    static const Weighed kActions[] = {
        {60, &StormUser::edit},     {8, &StormUser::search},         {12, &StormUser::changeGroup},
        {6, &StormUser::changeTab}, {2, &StormUser::changeLanguage}, {4, &StormUser::changeLevel},
        {4, &StormUser::refresh},   {1, &StormUser::closeAndStart},  {4, &StormUser::fold},
        {4, &StormUser::favor}};
    int left = 0;
    for (const Weighed& each : kActions)
        left += each.weight;
    left = upTo(left - 1);
    for (const Weighed& each : kActions) {
        left -= each.weight;
        if (left < 0) {
            (this->*each.action)(window);
            break;
        }
    }
    QTest::qWait(upTo(20));
}

void StormUser::rest(const OpenedWindow& window)
{
    window.column()->findChild<QLineEdit*>("FeatureSearch"_s)->setFocus();
    window.column()->ClearSearch();
    QApplication::processEvents();
}

QModelIndex StormUser::rowInSight(const ORXFeatureTreeView* view)
{
    return view->indexAt(QPoint(5, 40 + 38 * upTo(11)));
}

void StormUser::edit(const OpenedWindow& window)
{
    ORXFeatureTreeView* view = viewInSight(window);
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(rowInSight(view));
    QWidget* editor = item ? view->editorOf(item) : nullptr;
    if (!editor || !editor->isEnabled() || !item->value())
        return;
    const QString name = item->value()->nodeName(0);
    if (auto* button = qobject_cast<QAbstractButton*>(editor)) {
        press(button, name);
    } else if (auto* box = qobject_cast<QComboBox*>(editor)) {
        choose(box, name);
    } else if (qobject_cast<QAbstractSpinBox*>(editor)) {
        type(editor, name, QString::number(10000 + upTo(80000)));
    } else if (item->tagName() == QLatin1String("Float")) {
        type(editor, name,
             QString::number(10 + upTo(80)) + QLatin1Char('.') +
                 QString::number(11 + upTo(7) * 11));
    } else if (qobject_cast<QLineEdit*>(editor)) {
        type(editor, name, "text%1"_s.arg(upTo(99999)));
    }
}

void StormUser::press(QAbstractButton* button, const QString& name)
{
    note("press "_s + name);
    m_triggersByItself |= name == QLatin1String("Custom_EnableAutoTrig");
    // What is written is the opposite of what the box says when the button goes up.
    enter(name, button->isCheckable() ? "?"_s : QString());
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
}

void StormUser::choose(const QPointer<QComboBox>& box, const QString& name)
{
    box->setFocus(); // ends another edit, which may take this editor away
    if (!box || box->currentIndex() + 1 >= box->count())
        return;
    const QString entry = box->itemText(box->currentIndex() + 1);
    note("choose "_s + name + QLatin1Char(' ') + entry);
    enter(name, entry.right(1)); // "Entry3" is 3
    QTest::keyClick(box, Qt::Key_Down);
}

// Key by key to whatever has the focus, as a keyboard does it.
void StormUser::type(const QPointer<QWidget>& editor, const QString& name, const QString& text)
{
    const bool finish = !oneIn(4);
    note("type "_s + name + QLatin1Char(' ') + text + (finish ? ""_s : " and leave it"_s));
    editor->setFocus();
    const QWidget* focused = QApplication::focusWidget();
    if (!editor || !focused || (focused != editor && !editor->isAncestorOf(focused)))
        return;
    enter(name, text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    for (const QChar key : text) {
        QTest::qWait(upTo(kMostTypingPauseMs));
        if (QWidget* focus = QApplication::focusWidget())
            QTest::keyClick(focus, key.toLatin1());
    }
    QWidget* focus = QApplication::focusWidget();
    if (finish && focus)
        QTest::keyClick(focus, Qt::Key_Return);
}

void StormUser::search(const OpenedWindow& window)
{
    static const QStringList kTexts = {"feature 1"_s,     "feature"_s, "wid"_s,
                                       "no such thing"_s, QString(),   QString()};
    const QString text = kTexts.at(upTo(int(kTexts.size()) - 1));
    note("search \""_s + text + QLatin1Char('"'));
    window.column()->findChild<QLineEdit*>("FeatureSearch"_s)->setText(text);
}

void StormUser::changeGroup(const OpenedWindow& window)
{
    CFeatureGroupTreeView* groups = window.groups();
    const QModelIndex page = groups->currentIndex().parent().isValid()
                                 ? groups->currentIndex().parent()
                                 : groups->model()->index(0, 0);
    const int row = upTo(qMax(0, groups->model()->rowCount(page) - 1));
    if (groups->isRowHidden(row, page))
        return;
    note("group %1"_s.arg(row));
    groups->OnChangedIndex(groups->model()->index(row, 0, page));
}

void StormUser::changeTab(const OpenedWindow& window)
{
    const int tab = upTo(3) % 3; // the tree twice as often
    note("tab %1"_s.arg(tab));
    window.groups()->OnChangedIndex(window.groupModel()->pageIndex(tab));
}

void StormUser::changeLanguage(const OpenedWindow& window)
{
    const int language = upTo(1);
    note("language %1"_s.arg(language));
    window.widget()->SetLanguage(language);
}

void StormUser::changeLevel(const OpenedWindow& window)
{
    const int level = upTo(1);
    note("level %1"_s.arg(level));
    OBDeviceControl::SetUserLevel(level);
    window.widget()->OnUserLeverChanged();
}

void StormUser::refresh(const OpenedWindow& window)
{
    note("refresh"_s);
    if (oneIn(2))
        window.widget()->OnToolBarBtnClicked(94);
    else
        OB_FT_UpdateFeatures();
}

void StormUser::fold(const OpenedWindow& window)
{
    const bool folds = oneIn(2);
    note(folds ? "collapse all"_s : "expand all"_s);
    if (folds)
        viewInSight(window)->collapseAll();
    else
        viewInSight(window)->expandAll();
}

void StormUser::favor(const OpenedWindow& window)
{
    ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(rowInSight(window.view()));
    if (item && item->childCount() == 0 && !oneIn(4)) {
        note("favorite "_s + item->value()->nodeName(0));
        window.tree()->addFavoriteItem(item);
    } else {
        note("no favorites"_s);
        window.tree()->removeAllFavoriteItems();
    }
}

void StormUser::closeAndStart(const OpenedWindow& window)
{
    note("close and start"_s);
    OB_FT_Close();
    OB_FT_Start(nullptr, upTo(1));
    window.widget()->activateWindow();
}
