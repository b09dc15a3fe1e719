// SPDX-License-Identifier: Apache-2.0
// One sitting of a user without a mouse. Keys go to whatever has them at the moment, never to a
// widget that the test has looked for; what the test knows of the window it only reads.
#include "basetools/ORXInterface.h"
#include "demo/DemoCamera.h"
#include "device/OBDeviceControl.h"
#include "host/CameraTalk.h"
#include "main/CFeatureGroupTreeView.h"
#include "main/ORXFeatureGroup.h"
#include "main/ORXFeatureToolBar.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/PageWindow.h"
#include "support/TestMain.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
constexpr int kMostWidgets = 300; // more of them than any page has in sight

// Where the next key goes.
QWidget* keyTarget()
{
    QWidget* popup = QApplication::activePopupWidget();
    if (popup)
        return popup->focusWidget() ? popup->focusWidget() : popup;
    return QApplication::focusWidget();
}

bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1)
{
    for (int i = 0; i < times; ++i) {
        if (!QTest::qWaitFor([] { return keyTarget() != nullptr; }))
            return false;
        QTest::keyClick(keyTarget(), Qt::Key(key), modifiers);
    }
    return true;
}

void type(const QString& text)
{
    for (const QChar& each : text)
        QTest::keyClick(keyTarget(), each.toLatin1());
}

QString describe(const QWidget* widget)
{
    return !widget
               ? "nothing"_s
               : "%1 \"%2\" in %3"_s.arg(
                     QString::fromLatin1(widget->metaObject()->className()), widget->objectName(),
                     widget->parentWidget() ? widget->parentWidget()->objectName() : QString());
}

// What is wrong with the place of the focus; empty when the user sees where it is. Nothing may be
// half typed there.
QString faultOfFocus()
{
    const QPointer<QWidget> focus = QApplication::focusWidget();
    if (!focus || !focus->isVisible() || !focus->isEnabled())
        return "not usable: "_s + describe(focus);
    QWidget* window = focus->window();
    const QRect all(focus->mapTo(window, QPoint()), focus->size());
    if (focus->visibleRegion().isEmpty())
        return "out of sight: "_s + describe(focus);
    const QImage with = window->grab(all).toImage();
    focus->clearFocus();
    const QImage without = window->grab(all).toImage();
    if (!focus)
        return "gone with its focus"_s;
    focus->setFocus(Qt::OtherFocusReason);
    if (QApplication::focusWidget() != focus)
        return "does not take the focus again: "_s + describe(focus);
    return with == without ? "not drawn: "_s + describe(focus) : QString();
}

// Presses the key until the test is true of the widget with the focus.
template <typename Test>
bool pressUntil(int key, const Test& test)
{
    for (int i = 0; i < kMostWidgets; ++i) {
        if (test(QApplication::focusWidget()))
            return true;
        if (!press(key))
            return false;
        QCoreApplication::processEvents();
    }
    return false;
}

auto named(const char* name)
{
    return [name](const QWidget* widget) { return widget->objectName() == QLatin1String(name); };
}

QMenu* openMenu()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

// Without a window manager nobody gives the window back what a menu or a dialog took.
bool giveBack(const PageWindow& window)
{
    window.widget()->activateWindow();
    return QTest::qWaitForWindowActive(window.widget());
}

const ORXPropertyTreeItem* currentItem(const PageWindow& window)
{
    return ORXPropertyTreeModel::itemFromIndex(window.tree()->treeView()->currentIndex());
}

QStringList favoritesIn(const PageWindow& window)
{
    QStringList names;
    const QVector<ORXPropertyTreeItem*> copies = window.tree()->rootItem()->child(0)->children();
    for (const ORXPropertyTreeItem* copy : copies)
        names.append(copy->value()->nodeName(0));
    return names;
}

int visibleFeatures(const PageWindow& window)
{
    int count = 0;
    const auto items = window.tree()->AllTreeItemsMap();
    for (const ORXPropertyTreeItem* item : items)
        count += item->visible() ? 1 : 0;
    return count;
}

#define FOCUS_IS_SEEN()                                                                            \
    do {                                                                                           \
        const QString fault = faultOfFocus();                                                      \
        QVERIFY2(fault.isEmpty(), qPrintable(fault));                                              \
    } while (false)

} // namespace

class TestKeyboardOnly : public GuardedTest
{
    Q_OBJECT

protected:
    void finish() override
    {
        OB_FT_Release();
        OBDeviceControl::SetUserLevel(1);
        OBDeviceControl::GetFavoritesFeatureMap()->clear();
        ORXInterface::setLanguage("ENG"_s);
    }
    bool failsOnGuiThreadReads() const override { return true; }

private:
    // Leaves the focus in the row of the feature, found by its name.
    void find(const PageWindow& window, const char* name)
    {
        QVERIFY(press(Qt::Key_F, Qt::ControlModifier));
        FOCUS_IS_SEEN();
        type(QString::fromLatin1(name));
        QVERIFY(press(Qt::Key_Down));
        const ORXPropertyTreeItem* wanted = window.item(kTree, name);
        QVERIFY(pressUntil(Qt::Key_Down, [&](QWidget*) { return currentItem(window) == wanted; }));
        FOCUS_IS_SEEN();
    }
    void endSearch()
    {
        QVERIFY(press(Qt::Key_F, Qt::ControlModifier));
        QVERIFY(press(Qt::Key_Escape));
        const auto* search = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(search && search->text().isEmpty());
    }
    void editExposure(const PageWindow& window, DemoCamera& camera)
    {
        find(window, "ExposureTime");
        if (QTest::currentTestFailed())
            return;
        const ORXFeatureTreeView* view = window.tree()->treeView();
        OBFT_TRY_VERIFY(view->editorOf(window.item(kTree, "ExposureTime")));
        QVERIFY(press(Qt::Key_Return));
        QCOMPARE(QApplication::focusWidget()->objectName(), "ExposureTime"_s);
        FOCUS_IS_SEEN();
        QVERIFY(press(Qt::Key_A, Qt::ControlModifier));
        type("12000"_s);
        QVERIFY(press(Qt::Key_Return));
        QCOMPARE(CameraTalk(camera).value("ExposureTime"_s), "12000"_s);
        QVERIFY(press(Qt::Key_Escape));
        QVERIFY(view->hasFocus());
        FOCUS_IS_SEEN();
        endSearch();
    }
    // Opens the menu, compares its entries, and chooses the first one or leaves it.
    void useMenu(const PageWindow& window, int key, Qt::KeyboardModifiers modifiers,
                 const QStringList& entries, bool choose)
    {
        QVERIFY(press(key, modifiers));
        QMenu* menu = openMenu();
        QVERIFY2(menu, qPrintable(describe(QApplication::focusWidget())));
        QStringList shown;
        for (const QAction* action : menu->actions()) {
            if (action->isVisible())
                shown += action->text();
        }
        const QStringList copying = {"Copy Value"_s, "Copy Name"_s, "Copy as Text"_s};
        QCOMPARE(shown, entries + QStringList(QString()) + copying);
        if (choose) {
            QVERIFY(press(Qt::Key_Down));
            QVERIFY(menu->activeAction()); // is drawn as the chosen one
            QVERIFY(press(Qt::Key_Return));
        } else {
            QVERIFY(press(Qt::Key_Escape));
        }
        QTRY_VERIFY(!openMenu());
        QVERIFY(giveBack(window));
    }
    void collectFavorites(const PageWindow& window)
    {
        find(window, "Gain");
        useMenu(window, Qt::Key_Menu, Qt::NoModifier, {"Add to Favorites"_s}, true);
        endSearch();
        find(window, "ExposureTime");
        useMenu(window, Qt::Key_F10, Qt::ShiftModifier, {"Add to Favorites"_s}, true);
        endSearch();
        QCOMPARE(favoritesIn(window), words("Gain ExposureTime"));
    }
    // From the search box to the favourites in the side column.
    void goToFavoritesRow(const PageWindow& window)
    {
        QVERIFY(press(Qt::Key_F, Qt::ControlModifier));
        const CFeatureGroupTreeView* column = window.widget()->featureGroup(1)->groupView();
        QVERIFY(pressUntil(Qt::Key_Tab, [&](QWidget* focus) { return focus == column; }));
        FOCUS_IS_SEEN();
        QVERIFY(press(Qt::Key_Home)); // the page's own row
        FOCUS_IS_SEEN();
        QVERIFY(press(Qt::Key_Down));
        QCOMPARE(CFeatureGroupModel::itemFromIndex(column->currentIndex()),
                 window.tree()->rootItem()->child(0));
        FOCUS_IS_SEEN();
    }
    void orderFavorites(const PageWindow& window)
    {
        goToFavoritesRow(window);
        if (QTest::currentTestFailed())
            return;
        useMenu(window, Qt::Key_Menu, Qt::NoModifier, {"Remove All"_s}, false);
        const ORXFeatureTreeView* view = window.tree()->treeView();
        QVERIFY(pressUntil(Qt::Key_Tab, [&](QWidget* focus) { return focus == view; }));
        FOCUS_IS_SEEN();
        QVERIFY(press(Qt::Key_Home));
        QCOMPARE(currentItem(window), window.tree()->rootItem()->child(0)->child(0));
        QVERIFY(press(Qt::Key_Down, Qt::AltModifier));
        QCOMPARE(favoritesIn(window), words("ExposureTime Gain"));
        FOCUS_IS_SEEN();
        QVERIFY(press(Qt::Key_Down, Qt::AltModifier)); // is the last one already
        QVERIFY(press(Qt::Key_Up, Qt::AltModifier));
        QCOMPARE(favoritesIn(window), words("Gain ExposureTime"));
        QVERIFY(press(Qt::Key_Down, Qt::AltModifier));
        useMenu(window, Qt::Key_Menu, Qt::NoModifier, {"Remove from Favorites"_s, "Remove All"_s},
                false);
    }
    void findInChinese(const PageWindow& window)
    {
        const ORXPropertyTreeItem* exposure = window.item(kTree, "ExposureTime");
        QVERIFY(press(Qt::Key_L, Qt::ControlModifier));
        QTRY_COMPARE(ORXInterface::language(), "CH"_s);
        QVERIFY(press(Qt::Key_F, Qt::ControlModifier));
        // Text of a language that has no keys here arrives as an input method sends it.
        QInputMethodEvent event;
        event.setCommitString("曝光时间"_s);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
        QVERIFY(!exposure->getHighlightSerachText().isEmpty());
        QVERIFY(press(Qt::Key_Down));
        QCOMPARE(currentItem(window), exposure->mappingItem());
        FOCUS_IS_SEEN();
        QVERIFY(pressUntil(Qt::Key_Tab, named("FeatureDescription")));
        FOCUS_IS_SEEN();
        const auto* panel = qobject_cast<QTextEdit*>(QApplication::focusWidget());
        QTRY_VERIFY2(panel->toPlainText().contains("传感器"_s), qPrintable(panel->toPlainText()));
        endSearch();
    }
    void chooseLevel(const PageWindow& window)
    {
        const int before = visibleFeatures(window);
        QVERIFY(pressUntil(Qt::Key_Tab, named("ORXFeatureUserLevel")));
        FOCUS_IS_SEEN();
        QVERIFY(press(Qt::Key_Up)); // from "Beginner" to "Guru"
        OBFT_TRY_VERIFY(visibleFeatures(window) > before + 50);
        FOCUS_IS_SEEN();
    }
    void turnPages(const PageWindow& window)
    {
        QVERIFY(pressUntil(Qt::Key_Tab, named("FeatureTab0")));
        FOCUS_IS_SEEN();
        for (int tab = 1; tab < 4; ++tab) {
            QVERIFY(press(Qt::Key_Right));
            QCOMPARE(QApplication::focusWidget()->objectName(), "FeatureTab%1"_s.arg(tab));
            QVERIFY(window.page(tab)->isVisible());
            FOCUS_IS_SEEN();
        }
    }
    // Looks at the modal dialog that the key opens, and leaves it, while it waits for its end.
    void lookAtUserSets(const PageWindow& window)
    {
        QStringList seen;
        QStringList faults;
        QTimer looking;
        connect(&looking, &QTimer::timeout, &looking, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            QWidget* focus = QApplication::focusWidget();
            if (!dialog || !focus || focus->window() != dialog)
                return;
            if (seen.contains(QString::number(quintptr(focus)))) {
                looking.stop();
                press(Qt::Key_Escape);
                return;
            }
            seen += QString::number(quintptr(focus));
            faults += faultOfFocus();
            press(Qt::Key_Tab);
        });
        looking.start(0);
        QVERIFY(press(Qt::Key_S, Qt::ControlModifier));
        OBFT_TRY_VERIFY(!looking.isActive() && !QApplication::activeModalWidget());
        faults.removeAll(QString());
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
        QVERIFY(seen.size() > 2);
        QVERIFY(giveBack(window));
    }

private slots:
    void theFocusGoesRoundAndIsSeen_data()
    {
        const Rows<int> row("tab");
        row("whole tree", kTree);
        row("common", ORXMainFeatureWidget::CommonTab);
        row("trigger", ORXMainFeatureWidget::TriggerTab);
        row("image", ORXMainFeatureWidget::ImageProcessingTab);
    }

    // Tab comes to everything that takes the focus, and back to where it began; so does Backtab.
    void theFocusGoesRoundAndIsSeen()
    {
        QFETCH(int, tab);
        DemoCamera camera;
        const PageWindow window(camera);
        window.widget()->featureGroup(1)->groupView()->showTab(tab);
        for (const int key : {int(Qt::Key_Tab), int(Qt::Key_Backtab)}) {
            window.widget()->featureGroup(1)->focusSearch();
            const QWidget* first = QApplication::focusWidget();
            QVERIFY(first);
            QStringList faults;
            int seen = 0;
            do {
                QVERIFY(press(key));
                QCoreApplication::processEvents();
                const QString fault = faultOfFocus();
                if (!fault.isEmpty())
                    faults += fault;
            } while (QApplication::focusWidget() != first && ++seen < kMostWidgets);
            QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
            QVERIFY2(seen < kMostWidgets, qPrintable(describe(QApplication::focusWidget())));
        }
    }

    void oneSitting()
    {
        DemoCamera camera;
        {
            const PageWindow window(camera);
            FOCUS_IS_SEEN();
            editExposure(window, camera);
            using Step = void (TestKeyboardOnly::*)(const PageWindow&);
            for (const Step step :
                 {&TestKeyboardOnly::collectFavorites, &TestKeyboardOnly::orderFavorites,
                  &TestKeyboardOnly::findInChinese, &TestKeyboardOnly::chooseLevel,
                  &TestKeyboardOnly::turnPages, &TestKeyboardOnly::lookAtUserSets}) {
                if (QTest::currentTestFailed())
                    return;
                (this->*step)(window);
            }
            if (QTest::currentTestFailed())
                return;
            QSignalSpy pressed(window.widget()->findChild<ORXFeatureToolBar*>(),
                               &ORXFeatureToolBar::SigToolBarBtnClicked);
            QVERIFY(press(Qt::Key_F5));
            QTRY_COMPARE(pressed.count(), 1);
            QCOMPARE(pressed.first().first().toInt(), 94);
            QVERIFY(pressUntil(Qt::Key_Tab, [](const QWidget* focus) {
                return focus->accessibleName() == "关闭"_s;
            }));
            FOCUS_IS_SEEN();
            QVERIFY(press(Qt::Key_Space));
            QTRY_VERIFY(!window.widget()->isVisible());
        }
        // As another process would start.
        OBDeviceControl::GetFavoritesFeatureMap()->clear();
        const PageWindow window(camera);
        QCOMPARE(favoritesIn(window), words("ExposureTime Gain"));
        goToFavoritesRow(window);
        for (ORXPropertyTreeItem* copy : window.tree()->rootItem()->child(0)->children())
            OBFT_TRY_VERIFY(window.tree()->treeView()->editorOf(copy));
        useMenu(window, Qt::Key_F10, Qt::ShiftModifier, {"Remove All"_s}, true);
        QCOMPARE(favoritesIn(window), QStringList());
    }
};

OBFT_TEST_MAIN(TestKeyboardOnly)
#include "tst_keyboardonly.moc"
