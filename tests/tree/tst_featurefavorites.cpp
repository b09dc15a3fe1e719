// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "tree/FeatureTreeTest.h"
#include "tree/ORXPropertySpinBox.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

class TestFeatureFavorites : public FeatureTreeTest
{
    Q_OBJECT

    Item* group() { return m_tree->rootItem()->child(0); }
    QStringList shownFavorites(ORXFeatureTree* tree)
    {
        QStringList shown;
        for (const Item* copy : tree->rootItem()->child(0)->children())
            shown.append(copy->value()->nodeName(0));
        return shown;
    }
    void setFavorites(const QStringList& list)
    {
        OBDeviceControl::GetFavoritesFeatureMap()->clear();
        for (const QString& name : list)
            OBDeviceControl::GetFavoritesFeatureMap()->append({name, name});
        m_tree->GenerateFavoritesItems();
    }
    QStringList favorites()
    {
        QStringList list;
        for (const FavoriteFeature& each : qAsConst(*OBDeviceControl::GetFavoritesFeatureMap()))
            list.append(each.first);
        return list;
    }
    QMenu* menuOn(Item* target)
    {
        view()->scrollTo(index(target));
        m_tree->OnTreeFeaturesCustomContextMenuRequested(
            view()->visualRect(index(target)).topLeft());
        auto* menu = m_tree->findChild<QMenu*>("FavoritesMenu"_s);
        menu->hide();
        return menu;
    }
    // As when the side column shows the group.
    void showFavoritesOnly()
    {
        for (Item* each : m_tree->rootItem()->children()) {
            each->setGroupVisible(each == group(), 1);
            view()->setRowHidden(index(each).row(), {}, each != group());
        }
        QCoreApplication::processEvents();
    }
    template <typename Event>
    bool drag(Item* moved, const QPoint& at)
    {
        const QScopedPointer<QMimeData> data(view()->treeModel()->mimeData({index(moved)}));
        Event event(at, Qt::CopyAction, data.data(), Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view()->viewport(), &event);
        return event.isAccepted();
    }
    QPoint belowTheRows() const
    {
        return view()->viewport()->rect().bottomLeft() + QPoint(20, -20);
    }
    // Without a target into the empty space below the rows.
    void drop(Item* moved, Item* target)
    {
        const QPoint at = target ? view()->visualRect(index(target)).center() : belowTheRows();
        const bool allowed =
            !target || target->parent(Item::FeatureTreePage) == group() || target == group();
        drag<QDragEnterEvent>(moved, at);
        QCOMPARE(drag<QDragMoveEvent>(moved, at), allowed);
        drag<QDropEvent>(moved, at);
    }

private slots:
    void menuOfFavorites_data()
    {
        // actions: of add, remove, remove all: hidden, enabled, disabled
        const Rows<int, bool, QString> row("type", "favorite", "actions");
        row("favourite", Item::FavoriteItem, true, "hee edee");
        row("group", Item::FavoritesGroup, false, "hhe eded");
        row("feature", Item::FeatureItem, false, "ehh edee");
        row("feature that is a favourite", Item::FeatureItem, true, "dhh edee");
        row("category", Item::CategoryItem, false, "dhh eded");
        row("page item", Item::CustomItem, false, "hhh eded");
    }

    void menuOfFavorites()
    {
        const auto [type, favorite, actions] = fetchRow<int, bool, QString>();
        if (favorite)
            OBDeviceControl::GetFavoritesFeatureMap()->append({"Width"_s, "Another name"_s});
        item("Width")->setItemType(static_cast<Item::ITEM_TYEP>(type));
        QString found;
        const QList<QAction*> shown = menuOn(item("Width"))->actions();
        // Those of the favourites; then a separator, and value, name and text to copy.
        for (const QAction* action : shown) {
            if (found.size() == 3)
                found += QLatin1Char(' ');
            found += QLatin1Char(!action->isVisible() ? 'h' : action->isEnabled() ? 'e' : 'd');
        }
        QCOMPARE(found, actions);
        QCOMPARE(shown.first()->text(), "Add to Favorites"_s);
        QCOMPARE(shown.at(2)->text(), "Remove All"_s);
    }

    void rowsAreCopied()
    {
        readOnce();
        QClipboard* clipboard = QGuiApplication::clipboard();
        QStringList copies;
        const QList<QAction*> actions = menuOn(item("Gain"))->actions().mid(4);
        for (QAction* action : actions) {
            action->trigger();
            copies += clipboard->text();
        }
        QCOMPARE(copies, QStringList({"1.5000"_s, "Gain"_s, "Gain = 1.5000 dB"_s}));
        clipboard->clear();
        view()->setCurrentIndex(index(item("Gain")));
        QTest::keyClick(view(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(clipboard->text(), copies.last());
    }

    void favoritesComeAndGo()
    {
        readOnce();
        view()->collapse(index(group()));
        menuOn(item("Width"))->actions().first()->trigger();
        menuOn(item("Gain"))->actions().first()->trigger();
        QCOMPARE(shownFavorites(m_tree.get()), words("Width Gain"));
        QCOMPARE(favorites(), words("Width Gain"));
        QVERIFY(m_tree->IsFavoritesItem("Gain"_s));
        Item* copy = group()->child(0);
        QCOMPARE(copy->itemType(), Item::FavoriteItem);
        QCOMPARE(item("Width")->mappingItem(), copy);
        QTRY_VERIFY(view()->editorOf(copy));

        m_tree->removeFavoriteItem(item("Width")); // the feature is no copy and stays
        QVERIFY(Item::isAlive(item("Width")));
        menuOn(copy)->actions().at(1)->trigger();
        QVERIFY(!Item::isAlive(copy));
        QVERIFY(!item("Width")->mappingItem());
        QCOMPARE(favorites(), words("Gain"));
        m_tree->OnActionFavoriteRemove(); // its item has gone
        QCOMPARE(favorites(), words("Gain"));

        menuOn(group())->actions().at(2)->trigger();
        QCOMPARE(group()->childCount(), 0);
        QVERIFY(favorites().isEmpty());
        setFavorites({"Width"_s, "NotOfThisCamera"_s, "Width"_s});
        QCOMPARE(shownFavorites(m_tree.get()), words("Width"));
        QCOMPARE(favorites().size(), 3); // those of other cameras are kept
    }

    void favoriteAndFeatureStayInStep()
    {
        readOnce();
        setFavorites({"Width"_s});
        Item* copy = group()->child(0);
        QTRY_VERIFY(view()->editorOf(copy));
        auto* spin = qobject_cast<ORXPropertySpinBox*>(view()->editorOf(copy));
        const auto number = [this] { return item("Width")->value()->value().toLongLong(); };
        for (const bool inSight : {true, false}) { // the feature, or its category is closed
            view()->setExpanded(index(item("Image")), inSight);
            QTRY_COMPARE(view()->editorOf(item("Width")) != nullptr, inSight);
            QCOMPARE(spin->value(), qlonglong(320));
            m_host->clearCalls();
            spin->setFocus();
            QTest::keyClick(spin, Qt::Key_Up);
            QCOMPARE(m_host->writes(), QStringList("set Width 336"_s));
            QCOMPARE(number(), 336LL);
            m_host->set("Width"_s, FakeHost::integerFeature(320, 16, 4096, 16));
            QTRY_COMPARE(spin->value(), qlonglong(320)); // the camera took it back
            QTRY_COMPARE(number(), 320LL);
            if (inSight)
                QTRY_COMPARE(editor<ORXPropertySpinBox>("Width")->value(), qlonglong(320));
        }
    }

    void favoritesFollowSearchAndGroup()
    {
        readOnce();
        item("Width")->setSearchText("gain"_s, 1);
        item("Gain")->setSearchText("gain"_s, 1);
        setFavorites({"Width"_s, "Gain"_s});
        QVERIFY(isHidden(group()->child(0)));
        QVERIFY(!isHidden(group()->child(1)));
        QVERIFY(!isHidden(group())); // it was, when the first one did not match
        // While another group is shown, a new favourite does not show.
        group()->setGroupVisible(false, 1);
        setFavorites({"Gain"_s});
        QVERIFY(isHidden(group()->child(0)));
        group()->setGroupVisible(true, 1);
        item("Height")->setVisible(false, 1);
        setFavorites({"Height"_s});
        QVERIFY(isHidden(group()->child(0)));
    }

    void whereADragMayEnd()
    {
        setFavorites(words("Width Height Gain"));
        QCoreApplication::processEvents();
        const ORXPropertyTreeModel* model = view()->treeModel();
        QVERIFY(!model->mimeData({index(item("Width"))})); // no favourite
        QVERIFY(!model->canDropMimeData(nullptr, Qt::CopyAction, 0, 0, index(item("Width"))));
        QVERIFY(model->canDropMimeData(nullptr, Qt::CopyAction, 0, 0, index(group()->child(0))));
        drop(group()->child(0), item("ReverseX"));
        view()->collapse(index(item("Image")));
        drag<QDragEnterEvent>(group()->child(0), belowTheRows());
        QVERIFY(!drag<QDragMoveEvent>(group()->child(0), belowTheRows()));
        QMimeData foreign; // from another process, say
        foreign.setData(QString::fromLatin1(kMoveFavoriteMime), "4096");
        QDropEvent event(view()->visualRect(index(group()->child(1))).center(), Qt::CopyAction,
                         &foreign, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view()->viewport(), &event);
        QCOMPARE(favorites(), words("Width Height Gain"));
        showFavoritesOnly();
        // A line below the last row that is shown tells where it goes to.
        const auto picture = [this] { return view()->viewport()->grab().toImage(); };
        view()->setRowHidden(2, index(group()), true);
        const QImage idle = picture();
        drag<QDragEnterEvent>(group()->child(0), belowTheRows());
        const QRect last = view()->visualRect(index(group()->child(1)));
        QVERIFY(last.isValid());
        QVERIFY(picture().copy(last) != idle.copy(last));
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(view()->viewport(), &leave);
        QCOMPARE(picture(), idle);
    }

    void aMoveDisturbsNobody_data()
    {
        const Rows<int, int, QStringList> row("from", "before", "list");
        row("up", 2, 0, "Counter Width Alien Height Counter");
        row("down", 0, 2, "Alien Height Width Counter Width");
        row("below the last row: to the end", 1, -1, "Width Alien Counter Height");
        row("onto itself", 0, 0, "Width Alien Height Counter");
    }

    void aMoveDisturbsNobody()
    {
        const auto [from, before, list] = fetchRow<int, int, QStringList>();
        readOnce();
        setFavorites(words("Width Alien Height Counter")); // one of another camera
        showFavoritesOnly();
        Item* moved = group()->child(from);
        Item* edited = group()->child(from == 1 ? 0 : 1);
        QTRY_VERIFY(view()->editorOf(edited));
        auto* spin = qobject_cast<ORXPropertySpinBox*>(view()->editorOf(edited));
        QTest::keyClicks(spin, "77"_s);
        QVERIFY(spin->hasPendingEdit());
        const QString typed = spin->text();
        view()->setCurrentIndex(index(moved));
        Item* target = before < 0 ? nullptr : group()->child(before);
        drop(moved, target);
        QCoreApplication::processEvents();
        QVERIFY(Item::isAlive(moved));
        QCOMPARE(ORXPropertyTreeModel::itemFromIndex(view()->currentIndex()), moved);
        QCOMPARE(view()->editorOf(edited), spin);
        QCOMPARE(spin->text(), typed);
        QVERIFY(m_host->writes().isEmpty());
        // The rows stand as the list says.
        QCOMPARE(view()->visualRect(index(moved)).top() < view()->visualRect(index(edited)).top(),
                 moved->indexInParent(Item::FeatureTreePage) <
                     edited->indexInParent(Item::FeatureTreePage));
        QStringList shown = list;
        shown.removeAll("Alien"_s);
        shown.removeDuplicates();
        for (int i = 0; i < 2; ++i) { // moving it again changes nothing more
            QCOMPARE(favorites(), list);
            QCOMPARE(shownFavorites(m_tree.get()), shown);
            m_tree->moveFavorteItem(moved, target);
        }
    }

    void favoritesOfAnotherTree()
    {
        const std::unique_ptr<ORXFeatureTree> other = makeTree(2);
        for (const char* name : {"Gain", "Height", "Width"})
            menuOn(item(name))->actions().first()->trigger();
        QCOMPARE(shownFavorites(other.get()), words("Gain Height Width"));
        m_tree->moveFavorteItem(group()->child(2), group()->child(0));
        QCOMPARE(shownFavorites(other.get()), words("Width Gain Height"));
        menuOn(group()->child(1))->actions().at(1)->trigger();
        QCOMPARE(shownFavorites(other.get()), words("Width Height"));
        QVERIFY(!other->rootItem()->child(0)->child(0)->wasRead());
        other->propertyItemByName("Width"_s)->setWasRead(true, 2);
        QTRY_VERIFY(other->treeView()->editorOf(other->rootItem()->child(0)->child(0)));
        m_tree->OnActionFavoriteRemoveAll();
        QCOMPARE(shownFavorites(other.get()), QStringList());
    }
};

OBFT_TEST_MAIN(TestFeatureFavorites)
#include "tst_featurefavorites.moc"
