// SPDX-License-Identifier: Apache-2.0
// One sitting of a user who looks for features: by text, as favourites, in the other language, at
// the other level, and again the next day.
#include "basetools/ORXInterface.h"
#include "demo/DemoCamera.h"
#include "device/OBDeviceControl.h"
#include "main/ORXFeatureGroup.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/PageWindow.h"
#include "support/TestMain.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTextEdit>

namespace {

constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
constexpr float kExposureUs = 12000.0F;

ORXPropertyTreeItem* itemOf(const PageWindow& window, const char* name)
{
    return window.item(kTree, name);
}

// Brings a row of the whole tree into sight; the middle of its name.
QPoint rowOf(const PageWindow& window, ORXPropertyTreeItem* item)
{
    ORXFeatureTreeView* view = window.tree()->treeView();
    const QModelIndex row = view->treeModel()->indexFromItem(item, 0);
    view->scrollTo(row);
    return view->visualRect(row).center();
}

QStringList favoritesIn(const PageWindow& window)
{
    QStringList names;
    const QVector<ORXPropertyTreeItem*> copies = window.tree()->rootItem()->child(0)->children();
    for (ORXPropertyTreeItem* copy : copies)
        names.append(copy->value()->nodeName(0));
    return names;
}

// Features whose rows the user could see by opening groups and branches.
int visibleFeatures(const PageWindow& window)
{
    int count = 0;
    const auto items = window.tree()->AllTreeItemsMap();
    for (const ORXPropertyTreeItem* item : items)
        count += item->visible() ? 1 : 0;
    return count;
}

QLineEdit* searchBox(const PageWindow& window)
{
    return window.widget()->featureGroup(1)->findChild<QLineEdit*>("FeatureSearch"_s);
}

void pressFind(const PageWindow& window)
{
    QTRY_VERIFY(qApp->focusWidget());
    QTest::keyClick(qApp->focusWidget(), Qt::Key_F, Qt::ControlModifier);
    QTRY_VERIFY(searchBox(window)->hasFocus());
}

// Text of a language that has no keys here arrives as an input method sends it.
void typeIntoSearch(const PageWindow& window, const QString& text)
{
    pressFind(window);
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(searchBox(window), &event);
    QCOMPARE(searchBox(window)->text(), text);
}

void addToFavorites(const PageWindow& window, const char* name)
{
    const QPoint at = rowOf(window, itemOf(window, name));
    QContextMenuEvent event(QContextMenuEvent::Mouse, at,
                            window.tree()->treeView()->viewport()->mapToGlobal(at));
    QApplication::sendEvent(window.tree()->treeView()->viewport(), &event);
    auto* menu = window.tree()->findChild<QMenu*>("FavoritesMenu"_s);
    QVERIFY(menu && menu->isVisible());
    QAction* add = menu->actions().first();
    QCOMPARE(add->text(), "Add to Favorites"_s);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(add).center());
    QTRY_VERIFY(!menu->isVisible());
    // Without a window manager nobody gives the window back what the menu took.
    window.widget()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.widget()));
}

void dragFavorite(const PageWindow& window, ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target)
{
    ORXFeatureTreeView* view = window.tree()->treeView();
    const QScopedPointer<QMimeData> data(
        view->treeModel()->mimeData({view->treeModel()->indexFromItem(moved, 0)}));
    const QPoint at = rowOf(window, target);
    QDragEnterEvent enter(at, Qt::CopyAction, data.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &enter);
    QDragMoveEvent move(at, Qt::CopyAction, data.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &move);
    QVERIFY(move.isAccepted());
    QDropEvent drop(at, Qt::CopyAction, data.data(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &drop);
}

} // namespace

class TestFindingFeatures : public GuardedTest
{
    Q_OBJECT

protected:
    void finish() override
    {
        OB_FT_Release();
        OBDeviceControl::SetUserLevel(1);
        ORXInterface::setLanguage("ENG"_s);
    }
    bool failsOnGuiThreadReads() const override { return true; }

private:
    void findAndEdit(const PageWindow& window, DemoCamera& camera)
    {
        pressFind(window);
        QTest::keyClicks(searchBox(window), "exposure"_s);
        QTest::keyClick(searchBox(window), Qt::Key_Down);
        const ORXFeatureTreeView* view = window.tree()->treeView();
        QTRY_VERIFY(view->hasFocus() || view->isAncestorOf(qApp->focusWidget()));
        QVERIFY(!itemOf(window, "ExposureTime")->getHighlightSerachText().isEmpty());
        // The search has shown its group.
        QWidget* editor = nullptr;
        QTRY_VERIFY((editor = view->editorOf(itemOf(window, "ExposureTime"))) &&
                    editor->isVisible() && editor->isEnabled());
        editor->setFocus();
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, "12000"_s);
        QTest::keyClick(editor, Qt::Key_Return);
        _ZDCC_FLOATVALUE_T value = {};
        QCOMPARE(camera.read(OB_FT_TYPE_FLOAT, "ExposureTime", &value), 0);
        QVERIFY(qAbs(value.value - kExposureUs) <= 1.0F);
        pressFind(window);
        QTest::keyClick(searchBox(window), Qt::Key_Escape);
        QVERIFY(searchBox(window)->text().isEmpty());
    }
    void collectFavorites(const PageWindow& window)
    {
        for (const char* name : {"Gain", "ExposureTime"}) {
            window.show(kTree, itemOf(window, name));
            QVERIFY(window.usableEditor(kTree, itemOf(window, name)));
            addToFavorites(window, name);
        }
        ORXPropertyTreeItem* group = window.tree()->rootItem()->child(0);
        window.show(kTree, group);
        QVERIFY(window.usableEditor(kTree, group->child(1)));
        dragFavorite(window, group->child(1), group->child(0));
    }
    void findInChinese(const PageWindow& window)
    {
        auto* button = window.widget()->findChild<QAbstractButton*>("ORXFeatureLangue"_s);
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_COMPARE(itemOf(window, "ExposureTime")->value()->translateName(), "曝光时间"_s);
        typeIntoSearch(window, "曝光时间"_s);
        QVERIFY(!itemOf(window, "ExposureTime")->getHighlightSerachText().isEmpty());
        QVERIFY(itemOf(window, "Gain")->getHighlightSerachText().isEmpty());
        ORXPropertyTreeItem* favorite = itemOf(window, "ExposureTime")->mappingItem();
        QVERIFY(favorite); // the shown group is that of the favourites, and it has a hit
        QTest::mouseClick(window.tree()->treeView()->viewport(), Qt::LeftButton, {},
                          rowOf(window, favorite));
        const auto* panel = window.tree()->findChild<QTextEdit*>("FeatureDescription"_s);
        QVERIFY2(panel->toPlainText().contains("曝光时间"_s), qPrintable(panel->toPlainText()));
        QVERIFY(panel->toPlainText().contains("传感器"_s));
    }

private slots:
    void oneSitting()
    {
        DemoCamera camera;
        const QStringList wanted = {"ExposureTime"_s, "Gain"_s};
        {
            const PageWindow window(camera);
            findAndEdit(window, camera);
            if (QTest::currentTestFailed())
                return;
            collectFavorites(window);
            QCOMPARE(favoritesIn(window), wanted);
            findInChinese(window);

            const int before = visibleFeatures(window);
            auto* level = window.widget()->findChild<QComboBox*>("ORXFeatureUserLevel"_s);
            level->setFocus();
            QTest::keyClick(level, Qt::Key_Up); // from "Beginner" to "Guru"
            QTRY_VERIFY(visibleFeatures(window) > before + 50);
        }
        const PageWindow window(camera);
        QCOMPARE(favoritesIn(window), wanted);
        window.show(kTree, window.tree()->rootItem()->child(0));
        for (int row = 0; row < wanted.size(); ++row)
            QVERIFY(window.usableEditor(kTree, window.tree()->rootItem()->child(0)->child(row)));
    }
};

OBFT_TEST_MAIN(TestFindingFeatures)
#include "tst_findingfeatures.moc"
