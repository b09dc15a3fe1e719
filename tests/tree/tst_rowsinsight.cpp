// SPDX-License-Identifier: Apache-2.0
// Rows before their first value, what a view says of those that the user has before him, and how he
// gets from one to the other.
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "tree/EditorTest.h"
#include "tree/ORXPropertySpinBox.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>

#include <functional>
#include <thread>

namespace {

// A second view of a page's rows. Counts how often they are laid out.
class CountingView : public ORXFeatureTreeView
{
public:
    explicit CountingView(TestPage& page)
        : ORXFeatureTreeView(page.pageType(), &page, &page)
    {
        ORXPropertyTreeItem* root = page.getRootItem(1, true);
        for (ORXPropertyTreeItem* row : root->child(0)->children())
            row->registerView(this);
        resetData(1, root);
        expandAll();
        resize(400, 400);
    }
    ~CountingView() override { resetData(-1, nullptr); }
    void doItemsLayout() override
    {
        ++layouts;
        ORXFeatureTreeView::doItemsLayout();
    }
    int layouts = 0;
};

} // namespace

class TestRowsInSight;
using Act = std::function<void(TestRowsInSight&)>;
Q_DECLARE_METATYPE(Act)

class TestRowsInSight : public EditorTest
{
    Q_OBJECT

    // Two groups of features of a description that nobody has read yet.
    void makeRows(int rows, const QString& tag = "Integer"_s)
    {
        m_page->makeRoot = [=] {
            Item* root = m_page->addGroupOfTags({});
            Item* second = m_page->add(root, "Second"_s);
            for (int i = 0; i < rows; ++i)
                addFeature(root->child(0), rowName(i), tag);
            addFeature(second, "Other"_s, tag);
            return root;
        };
    }
    void addFeature(Item* parent, const QString& name, const QString& tag)
    {
        Item* feature = m_page->add(parent, name, tag.toLatin1().constData());
        feature->setIsFeatureTreeItem(true);
        feature->setWasRead(false, -1);
    }
    QImage valueCell(Item* of)
    {
        return view()->viewport()->grab(view()->visualRect(index(of, 1))).toImage();
    }

private slots:
    void anUnreadRowShowsADashAndNoEditor_data()
    {
        const Rows<QString> row("tag");
        for (const char* tag : {"Integer", "Float", "Boolean", "Enumeration", "String", "Command"})
            row.of(tag);
    }

    void anUnreadRowShowsADashAndNoEditor()
    {
        QFETCH(QString, tag);
        makeRows(3, tag); // the pointer may stand on the first
        m_page->open();
        QCoreApplication::processEvents();
        QVERIFY(!view()->editorOf(row(1)));
        QCOMPARE(valueCell(row(1)), valueCell(row(2)));
        const QImage dash = valueCell(row(1));
        row(1)->setWasRead(true, -1); // the view is not told, so no editor covers the cell
        QVERIFY(valueCell(row(1)) != dash);
    }

    void theFirstValueOpensTheEditor()
    {
        makeRows(3);
        m_page->open();
        m_page->log.clear();
        Item* mirror = row(2);
        row(0)->setMappingItem(mirror);
        std::thread([this] {
            dynamic_cast<CTreeIntergerItemValue*>(row(0)->value())->setNumbers({7, 0, 10, 1});
            row(0)->setWasRead(true, 1);
            row(0)->endUpdateItem(1);
        }).join();
        QTRY_VERIFY(m_page->editor<ORXPropertySpinBox>(rowName(0)));
        QCOMPARE(m_page->editor<ORXPropertySpinBox>(rowName(0))->value(), qlonglong(7));
        QVERIFY(view()->editorOf(mirror));
        QVERIFY(!view()->editorOf(row(1)));
        // It and its mirror, once each.
        QCOMPARE(m_page->log, QStringList({"value Row0000"_s, "value Row0000"_s}));
        row(1)->endUpdateItem(1);
        row(1)->setWasRead(true, 1);
        QVERIFY(!row(1)->endUpdateItem(1)); // nothing new
        QTRY_VERIFY(view()->editorOf(row(1)));
        Item copied(nullptr, m_page->pageType());
        copied.copy(row(0));
        QVERIFY(copied.wasRead());
        copied.copy(m_page->item("Other"_s));
        QVERIFY(!copied.wasRead());
        row(0)->setMappingItem(&copied); // read between copying and linking
        QVERIFY(copied.wasRead());
    }

    void scrollingCostsNoLayoutAndAPassFew()
    {
        makeRows(1000);
        CountingView counted(*m_page);
        QSignalSpy spy(&counted, &ORXFeatureTreeView::SigRowsInSight);
        m_page->open();
        QTRY_VERIFY(!spy.isEmpty());
        counted.layouts = 0;
        spy.clear();
        for (int pixel = 1; pixel <= 39; ++pixel) {
            counted.verticalScrollBar()->setValue(pixel);
            QCoreApplication::processEvents();
        }
        QCOMPARE(counted.layouts, 0);
        QCOMPARE(spy.count(), 1); // the first row has gone
        // A pass.
        for (int i = 0; i < 1000; ++i) {
            row(i)->value()->setValue(i);
            row(i)->setWasRead(true, 1);
            row(i)->setVisible(i % 2 == 0, 1);
            row(i)->endUpdateItem(1);
            row(i)->setSearchText("row"_s, 1);
        }
        QCoreApplication::processEvents();
        QVERIFY2(counted.layouts <= 3, qPrintable(QString::number(counted.layouts)));
        counted.verticalScrollBar()->setValue(0);
        QTRY_VERIFY(counted.editorOf(row(0)));
    }

    void rowsInSightAreTold_data()
    {
        // last: above what is in sight, nearest first
        const Rows<QString, QString, int, Act> row("first", "last", "rows", "act");
        row("shown", "Row0000", "Other", 201, [](auto&) {});
        row("scrolled", "Row0010", "Row0000", 201,
            [](auto& t) { t.view()->verticalScrollBar()->setValue(1 + 38 * 10); });
        row("another group", "Other", "Other", 1, [](auto& t) {
            for (Item* each : t.group()->children())
                each->setGroupVisible(false, 1);
        });
        row("collapsed", "Other", "Other", 1, [](auto& t) { t.group()->setExpanded(false, 1); });
        row("all collapsed", "", "", 0, [](auto& t) { t.m_page->setExpandedAll(false); });
        row("search", "Row0170", "Other", 11, [](auto& t) {
            for (int i = 0; i < 200; ++i)
                t.row(i)->setSearchText("w017"_s, 1);
        });
        row("level", "Row0001", "Other", 200, [](auto& t) { t.row(0)->setVisible(false, 1); });
        row("row removed", "Row0001", "Other", 200, [](auto& t) {
            Item* gone = t.row(0);
            t.view()->treeModel()->removeItems(t.group(), gone);
            delete gone;
        });
        row("items of the page", "Row0002", "Other", 198, [](auto& t) {
            t.row(0)->setIsFeatureTreeItem(false);
            t.row(1)->setIsFeatureTreeItem(false);
            t.row(199)->setVisible(false, 1);
        });
        row("page hidden", "", "", 0, [](auto& t) { t.m_page->hide(); });
        row("no camera", "", "", 0, [](auto& t) { t.m_page->resetCamaraID(-1); });
    }

    void rowsInSightAreTold()
    {
        const auto [first, last, rows, act] = fetchRow<QString, QString, int, Act>();
        makeRows(200);
        QStringList told;
        int times = 0;
        connect(view(), &ORXFeatureTreeView::SigRowsInSight, this, [&](const QStringList& names) {
            told = names;
            ++times;
        });
        m_page->open();
        QTRY_COMPARE(told.size(), 201);
        times = 0;
        act(*this);
        QTRY_COMPARE(told.value(0), first);
        QTRY_COMPARE(told.size(), rows);
        QCOMPARE(told.isEmpty() ? QString() : told.last(), last);
        QVERIFY2(times <= 1, qPrintable(QString::number(times))); // one change, told once
    }

    // The keyboard: from row to row, from editor to editor, and between them ----------------------
    // It is a line of one pixel: the side column names the group.
    void theGroupsOwnRowIsNeverReached()
    {
        openRows(20);
        group()->value()->setDisplayName("Group"_s);
        for (const int key : {int(Qt::Key_Up), int(Qt::Key_Home), int(Qt::Key_PageUp),
                              int(Qt::Key_Left), int(Qt::Key_Minus), int(Qt::Key_G)}) {
            view()->clearFocus();
            view()->selectionModel()->clear();
            view()->setFocus();
            QVERIFY(view()->hasFocus());
            QCOMPARE(current(), row(0));
            for (int i = 0; i < 3; ++i)
                QTest::keyClick(view(), Qt::Key(key));
            QCOMPARE(current(), row(0));
            QTest::keyClick(view(), Qt::Key_Down);
            QCOMPARE(current(), row(1));
            QTest::keyClick(view(), Qt::Key_Up);
            QCOMPARE(current(), row(0));
        }
        // Nor do clicks reach it.
        view()->setCurrentIndex(index(row(3)));
        const QPoint at = view()->visualRect(index(group())).topRight() + QPoint(-5, 0);
        QCOMPARE(view()->indexAt(at).siblingAtColumn(0), index(group()));
        QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, at);
        QCOMPARE(current(), row(3));
        QVERIFY(view()->isExpanded(index(group())));
    }

    void aBranchOpensAndCloses()
    {
        m_page->makeRoot = [this] {
            Item* root = m_page->addGroupOfTags({});
            m_page->add(m_page->add(root->child(0), "Branch"_s), "Inner"_s, "Integer");
            return root;
        };
        m_page->open();
        const QModelIndex branch = index(row(0));
        view()->expandAll();
        view()->setFocus();
        view()->setCurrentIndex(branch);
        QTest::keyClick(view(), Qt::Key_Left);
        QVERIFY(!view()->isExpanded(branch));
        QTest::keyClick(view(), Qt::Key_Right);
        QVERIFY(view()->isExpanded(branch));
    }

    void tabReachesEditorsInTheOrderOfRows()
    {
        openRows(5);
        row(1)->setReadOnly(true);
        refill(row(1));
        Item* boxes = m_page->add(nullptr, "Boxes"_s, "CustomTagNameWatermark");
        auto* value = dynamic_cast<CTreeCustomWaterMarkItemValue*>(boxes->value());
        value->setColumn(0, "Left"_s, "Left"_s);
        value->setColumn(1, "Right"_s, "Right"_s);
        view()->treeModel()->addItems(group(), {boxes});
        QTRY_VERIFY(view()->editorOf(boxes));
        // Opened again, last row first: the order is still that of the rows.
        for (int i = 4; i >= 0; --i) {
            view()->openPersistentEdit(row(i), true);
            QTRY_VERIFY(view()->editorOf(row(i)));
        }
        const QList<QWidget*> order = {view()->editorOf(row(0)),   view()->editorOf(row(2)),
                                       view()->editorOf(row(3)),   view()->editorOf(row(4)),
                                       view()->editorOf(boxes, 0), view()->editorOf(boxes, 1)};
        view()->setFocus();
        for (QWidget* editor : order) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), editor);
        }
        for (int i = int(order.size()) - 2; i >= 0; --i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
            QCOMPARE(QApplication::focusWidget(), order.at(i));
        }
        QVERIFY(m_page->writes.isEmpty());
    }

    void tabScrollsOn()
    {
        openRows(100);
        view()->setFocus();
        for (int i = 0; i < 100; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), view()->editorOf(row(i)));
            QVERIFY(view()->viewport()->rect().contains(QApplication::focusWidget()->geometry()));
        }
    }

    void keysBetweenRowAndEditor()
    {
        openRows(100, "String");
        view()->setFocus();
        view()->setCurrentIndex(index(row(2), 1)); // as by a click beside its editor
        QVERIFY(view()->hasFocus());
        for (const int key : {int(Qt::Key_Return), int(Qt::Key_Enter), int(Qt::Key_F2)}) {
            QTest::keyClick(view(), Qt::Key(key));
            QCOMPARE(QApplication::focusWidget(), view()->editorOf(row(2)));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down); // stays in the editor
            QCOMPARE(QApplication::focusWidget(), view()->editorOf(row(2)));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QVERIFY(view()->hasFocus());
        }
        QTest::keyClick(view(), Qt::Key_Down);
        QVERIFY(view()->hasFocus()); // walking the rows does not stop at an editor
        QTest::keyClick(view(), Qt::Key_Return);
        QTest::keyClicks(QApplication::focusWidget(), "typed"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), view()->editorOf(row(3)));
        QCOMPARE(m_page->writes, QStringList(rowName(3) + " typed"_s));
    }

    void focusMakesTheRowCurrent()
    {
        openRows(100);
        // The last one in sight, which the edge of the view cuts.
        Item* cut = ORXPropertyTreeModel::itemFromIndex(
            view()->indexAt(view()->viewport()->rect().bottomLeft()));
        QWidget* editor = view()->editorOf(cut);
        const int before = view()->verticalScrollBar()->value();
        for (QWidget* from : {static_cast<QWidget*>(view()), view()->editorOf(row(0))}) {
            from->setFocus();
            QVERIFY(current() != cut);
            QTest::mouseClick(editor, Qt::LeftButton, {}, QPoint(20, 10));
            QVERIFY(editor->hasFocus());
            QCOMPARE(current(), cut);
            QCOMPARE(view()->verticalScrollBar()->value(), before);
            view()->setCurrentIndex(index(row(0)));
        }
    }
};

OBFT_TEST_MAIN(TestRowsInSight)
#include "tst_rowsinsight.moc"
