// SPDX-License-Identifier: Apache-2.0
// The keyboard in a page's view: from row to row, from editor to editor, and between them.
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "tree/EditorTest.h"

#include <QApplication>
#include <QScrollBar>

class TestRowKeys : public EditorTest
{
    Q_OBJECT

private slots:
    void theGroupsOwnRowIsNeverReached_data()
    {
        const Rows<int> row("key");
        row("Up", Qt::Key_Up);
        row("Home", Qt::Key_Home);
        row("Page Up", Qt::Key_PageUp);
        row("Left", Qt::Key_Left);
        row("Minus", Qt::Key_Minus);
        row("first letter of its name", Qt::Key_G);
    }

    // It is a line of one pixel: the side column names the group.
    void theGroupsOwnRowIsNeverReached()
    {
        QFETCH(int, key);
        openRows(20);
        group()->value()->setDisplayName("Group"_s);
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
        QVERIFY(view()->isExpanded(index(group())));
    }

    void clicksOnTheGroupsOwnRowDoNothing()
    {
        openRows(20);
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

    void focusMakesTheRowCurrent_data()
    {
        const Rows<bool> row("fromView");
        row("from the view", true);
        row("from another editor", false);
    }

    void focusMakesTheRowCurrent()
    {
        QFETCH(bool, fromView);
        openRows(100);
        (fromView ? static_cast<QWidget*>(view()) : view()->editorOf(row(0)))->setFocus();
        // The last one in sight, which the edge of the view cuts.
        Item* cut = ORXPropertyTreeModel::itemFromIndex(
            view()->indexAt(view()->viewport()->rect().bottomLeft()));
        QWidget* editor = view()->editorOf(cut);
        const int before = view()->verticalScrollBar()->value();
        QTest::mouseClick(editor, Qt::LeftButton, {}, QPoint(20, 10));
        QVERIFY(editor->hasFocus());
        QCOMPARE(current(), cut);
        QCOMPARE(view()->verticalScrollBar()->value(), before);
    }
};

OBFT_TEST_MAIN(TestRowKeys)
#include "tst_rowkeys.moc"
