// SPDX-License-Identifier: Apache-2.0
#include "pages/PageWindow.h"

#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/ORXCommonFeature.h"
#include "pages/ORXImgProcessingFeature.h"
#include "pages/ORXTriggerFeature.h"
#include "support/GuiThreadReads.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

namespace {

QString nameOf(const ORXPropertyTreeItem* item)
{
    return item->value()->nodeName(0);
}

// The GUI thread's reads are told to GuiThreadReads.
int getFeature(int type, char* name, void* value, void* user)
{
    GuiThreadReads::note("get", QString::fromLocal8Bit(name));
    return HostCallbacks::getFeature(type, name, value, user);
}

int getMode(char* name, int* mode, void* user)
{
    GuiThreadReads::note("mode", QString::fromLocal8Bit(name));
    return HostCallbacks::getMode(name, mode, user);
}

void install(HostCallbacks* host)
{
    const GuiThreadReads::InstallingCallbacks installing;
    OB_FT_SetCallBackFunc(getFeature, HostCallbacks::setFeature, getMode, HostCallbacks::invalidate,
                          HostCallbacks::action, host);
}

QLineEdit* lineOf(QWidget* editor)
{
    auto* line = qobject_cast<QLineEdit*>(editor);
    return line || !editor ? line : editor->findChild<QLineEdit*>();
}

} // namespace

PageWindow::PageWindow(Camera& camera, int language, Opening opening)
    : m_host(camera)
{
    OB_FT_Init(camera.descriptionXml().c_str(), nullptr, nullptr);
    install(&m_host);
    OB_FT_SetWidgetSize(900, 1000);
    OB_FT_Start(nullptr, language);
    const auto isOpen = [&] { return opening == InFirstRead || tree()->HadUpdatedOnce(); };
    if (!QTest::qWaitFor(isOpen, kWindowPatienceMs))
        qFatal("no first read");
    QApplication::processEvents();
}

PageWindow::~PageWindow()
{
    OB_FT_Release();
}

IORXFeatureWidget* PageWindow::page(int tab) const
{
    switch (tab) {
    case ORXMainFeatureWidget::CommonTab:
        return widget()->findChild<ORXCommonFeature*>();
    case ORXMainFeatureWidget::TriggerTab:
        return widget()->findChild<ORXTriggerFeature*>();
    case ORXMainFeatureWidget::ImageProcessingTab:
        return widget()->findChild<ORXImgProcessingFeature*>();
    default:
        return tree();
    }
}

ORXPropertyTreeItem* PageWindow::item(int tab, const char* name) const
{
    return widget()->getItemByName(QString::fromLatin1(name),
                                   static_cast<ORXMainFeatureWidget::FeatureTabIndex>(tab));
}

CFeatureGroupTreeView* PageWindow::column() const
{
    return widget()->featureGroup(1)->groupView();
}

QVector<QModelIndex> PageWindow::columnRows(int tab) const
{
    const QAbstractItemModel* model = column()->model();
    QModelIndex page = model->index(0, 0);
    const ORXPropertyTreeItem* root = this->page(tab)->getRootItem(1, false);
    while (page.isValid() && CFeatureGroupModel::itemFromIndex(page) != root)
        page = page.siblingAtRow(page.row() + 1);
    QVector<QModelIndex> rows = {page};
    for (int group = 0; group < model->rowCount(page); ++group)
        rows.append(model->index(group, 0, page));
    return rows;
}

QStringList PageWindow::shownGroups(int tab) const
{
    QStringList names;
    for (const QModelIndex& group : columnRows(tab).mid(1)) {
        if (!column()->isRowHidden(group.row(), group.parent()))
            names.append(nameOf(CFeatureGroupModel::itemFromIndex(group)));
    }
    return names;
}

QStringList PageWindow::titles(int tab) const
{
    QStringList titles;
    for (const QModelIndex& row : columnRows(tab))
        titles.append(row.data().toString());
    return titles;
}

QStringList PageWindow::items(int tab, const char* group) const
{
    QStringList names;
    for (const ORXPropertyTreeItem* each : item(tab, group)->children())
        names.append(nameOf(each));
    return names;
}

bool PageWindow::show(int tab, ORXPropertyTreeItem* shown) const
{
    const auto type = static_cast<ORXPropertyTreeItem::ParentType>(tab);
    ORXPropertyTreeItem* root = page(tab)->getRootItem(1, false);
    ORXPropertyTreeItem* group = shown;
    if (!group || !root)
        return false;
    while (group->parent(type) != root)
        group = group->parent(type);
    const auto press = [this](const QModelIndex& row) {
        column()->scrollTo(row);
        QTest::mouseClick(column()->viewport(), Qt::LeftButton, {},
                          column()->visualRect(row).center());
    };
    const QVector<QModelIndex> rows = columnRows(tab);
    if (!column()->isExpanded(rows.first()))
        press(rows.first());
    press(rows.at(1 + group->indexInParent(type)));
    ORXFeatureTreeView* view = page(tab)->treeView();
    view->scrollTo(row(tab, shown));
    return view->isVisible();
}

QModelIndex PageWindow::row(int tab, ORXPropertyTreeItem* item) const
{
    return item ? page(tab)->treeView()->treeModel()->indexFromItem(item, 0) : QModelIndex();
}

bool PageWindow::select(int tab, const char* name) const
{
    if (!show(tab, name))
        return false;
    page(tab)->treeView()->setCurrentIndex(row(tab, name));
    return true;
}

bool PageWindow::isRowShown(int tab, ORXPropertyTreeItem* item) const
{
    const QModelIndex index = row(tab, item);
    return index.isValid() && !page(tab)->treeView()->isRowHidden(index.row(), index.parent());
}

// The editor, in whatever state; rows that have come into sight get theirs a little later.
QWidget* PageWindow::openedEditor(int tab, ORXPropertyTreeItem* item) const
{
    if (!show(tab, item) || !isRowShown(tab, item))
        return nullptr;
    const ORXFeatureTreeView* view = page(tab)->treeView();
    (void)QTest::qWaitFor([&] { return view->editorOf(item) != nullptr; }, kWindowPatienceMs);
    return view->editorOf(item);
}

QWidget* PageWindow::usableEditor(int tab, ORXPropertyTreeItem* item) const
{
    QWidget* editor = nullptr;
    const auto isUsable = [&] {
        editor = openedEditor(tab, item);
        return editor && editor->isEnabled();
    };
    return QTest::qWaitFor(isUsable, kWindowPatienceMs) ? editor : nullptr;
}

bool PageWindow::enter(int tab, const char* name, const QString& text) const
{
    QWidget* editor = usableEditor(tab, item(tab, name));
    if (!editor)
        return false;
    editor->setFocus();
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    return true;
}

bool PageWindow::choose(int tab, const char* name, const QString& entry) const
{
    auto* box = editor<QComboBox>(tab, name);
    if (!box || box->findText(entry) < 0)
        return false;
    box->setFocus();
    // Each key writes; the way there must not pass other entries.
    const int steps = box->findText(entry) - box->currentIndex();
    for (int i = 0; i < qAbs(steps); ++i)
        QTest::keyClick(box, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    return box->currentText() == entry;
}

bool PageWindow::click(int tab, const char* name) const
{
    auto* button = editor<QAbstractButton>(tab, name);
    if (!button)
        return false;
    press(button);
    return true;
}

void PageWindow::press(QAbstractButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(10, button->height() / 2));
}

QString PageWindow::shown(int tab, const char* name) const
{
    QWidget* editor = openedEditor(tab, item(tab, name));
    if (const auto* box = qobject_cast<QComboBox*>(editor))
        return box->currentText();
    if (const auto* line = lineOf(editor))
        return line->text();
    const auto* button = qobject_cast<QAbstractButton*>(editor);
    if (!button || !button->isCheckable())
        return QString();
    return button->isChecked() ? QStringLiteral("checked") : QStringLiteral("unchecked");
}

bool PageWindow::isEnabled(int tab, const char* name) const
{
    const QWidget* editor = openedEditor(tab, item(tab, name));
    return editor && editor->isEnabled();
}

bool PageWindow::refresh() const
{
    const QList<QGetFeaturesThread*> threads = tree()->findChildren<QGetFeaturesThread*>();
    const auto allIdle = [&] {
        return std::none_of(threads.begin(), threads.end(),
                            [](const auto* thread) { return thread->readsMoreThanPolled(); });
    };
    // A pass under way would make the request superfluous.
    if (!QTest::qWaitFor(allIdle, kWindowPatienceMs))
        return false;
    OB_FT_UpdateFeatures();
    return QTest::qWaitFor(allIdle, kWindowPatienceMs);
}
