// SPDX-License-Identifier: Apache-2.0
// One sitting of a user who looks for features: by text, as favourites, in the other language, at
// the other level, and again the next day.
#include "DemoWindow.h"
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
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

constexpr float kExposureUs = 12000.0F;

QStringList favoritesIn(const DemoWindow& window)
{
    QStringList names;
    const QVector<ORXPropertyTreeItem*> copies = window.tree()->rootItem()->child(0)->children();
    for (ORXPropertyTreeItem* copy : copies)
        names.append(copy->value()->nodeName(0));
    return names;
}

// Features whose rows the user could see by opening groups and branches.
int visibleFeatures(const DemoWindow& window)
{
    int count = 0;
    const auto items = window.tree()->AllTreeItemsMap();
    for (const ORXPropertyTreeItem* item : items)
        count += item->visible() ? 1 : 0;
    return count;
}

QLineEdit* searchBox(const DemoWindow& window)
{
    return window.widget()->featureGroup(1)->findChild<QLineEdit*>("FeatureSearch"_s);
}

void pressFind(const DemoWindow& window)
{
    QTRY_VERIFY(qApp->focusWidget());
    QTest::keyClick(qApp->focusWidget(), Qt::Key_F, Qt::ControlModifier);
    QTRY_VERIFY(searchBox(window)->hasFocus());
}

// Text of a language that has no keys here arrives as an input method sends it.
void typeIntoSearch(const DemoWindow& window, const QString& text)
{
    pressFind(window);
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(searchBox(window), &event);
    QCOMPARE(searchBox(window)->text(), text);
}

void addToFavorites(const DemoWindow& window, const char* name)
{
    const QPoint at = window.rowOf(window.item(name));
    QContextMenuEvent event(QContextMenuEvent::Mouse, at,
                            window.view()->viewport()->mapToGlobal(at));
    QApplication::sendEvent(window.view()->viewport(), &event);
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

void dragFavorite(const DemoWindow& window, ORXPropertyTreeItem* moved, ORXPropertyTreeItem* target)
{
    ORXFeatureTreeView* view = window.view();
    const QScopedPointer<QMimeData> data(
        view->treeModel()->mimeData({view->treeModel()->indexFromItem(moved, 0)}));
    const QPoint at = window.rowOf(target);
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
private slots:
    void oneSitting();

protected:
    void finish() override
    {
        OB_FT_Release();
        OBDeviceControl::SetUserLevel(1);
        ORXInterface::setLanguage("ENG"_s);
    }

private:
    void findAndEdit(const DemoWindow& window, DemoCamera& camera);
    void collectFavorites(const DemoWindow& window);
    void findInChinese(const DemoWindow& window);
};

void TestFindingFeatures::oneSitting()
{
    DemoCamera camera;
    const QStringList wanted = {"ExposureTime"_s, "Gain"_s};
    {
        const DemoWindow window(camera);
        QVERIFY(window.waitForFirstRead());
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
    const DemoWindow window(camera);
    QVERIFY(window.waitForFirstRead());
    QCOMPARE(favoritesIn(window), wanted);
    window.clickGroupOf(window.tree()->rootItem()->child(0));
    for (int row = 0; row < wanted.size(); ++row)
        QVERIFY(window.editorOf(window.tree()->rootItem()->child(0)->child(row)));
}

void TestFindingFeatures::findAndEdit(const DemoWindow& window, DemoCamera& camera)
{
    pressFind(window);
    QTest::keyClicks(searchBox(window), "exposure"_s);
    QTest::keyClick(searchBox(window), Qt::Key_Down);
    QTRY_VERIFY(window.view()->hasFocus() || window.view()->isAncestorOf(qApp->focusWidget()));
    QVERIFY(!window.item("ExposureTime")->getHighlightSerachText().isEmpty());
    QWidget* editor = window.editorOf(window.item("ExposureTime"));
    QVERIFY(editor);
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

void TestFindingFeatures::collectFavorites(const DemoWindow& window)
{
    for (const char* name : {"Gain", "ExposureTime"}) {
        window.clickGroupOf(window.item(name));
        QVERIFY(window.editorOf(window.item(name)));
        addToFavorites(window, name);
    }
    ORXPropertyTreeItem* group = window.tree()->rootItem()->child(0);
    window.clickGroupOf(group);
    QVERIFY(window.editorOf(group->child(1)));
    dragFavorite(window, group->child(1), group->child(0));
}

void TestFindingFeatures::findInChinese(const DemoWindow& window)
{
    auto* button = window.widget()->findChild<QAbstractButton*>("ORXFeatureLangue"_s);
    QTest::mouseClick(button, Qt::LeftButton);
    QTRY_COMPARE(window.item("ExposureTime")->value()->translateName(), "曝光时间"_s);
    typeIntoSearch(window, "曝光时间"_s);
    QVERIFY(!window.item("ExposureTime")->getHighlightSerachText().isEmpty());
    QVERIFY(window.item("Gain")->getHighlightSerachText().isEmpty());
    ORXPropertyTreeItem* favorite = window.item("ExposureTime")->mappingItem();
    QVERIFY(favorite); // the shown group is that of the favourites, and it has a hit
    QTest::mouseClick(window.view()->viewport(), Qt::LeftButton, {}, window.rowOf(favorite));
    const auto* panel = window.tree()->findChild<QTextEdit*>("FeatureDescription"_s);
    QVERIFY2(panel->toPlainText().contains("曝光时间"_s), qPrintable(panel->toPlainText()));
    QVERIFY(panel->toPlainText().contains("传感器"_s));
}

OBFT_TEST_MAIN(TestFindingFeatures)
#include "tst_findingfeatures.moc"
