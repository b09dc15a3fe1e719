// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeCustomWaterMarkItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "styledctl/ZELCustomComboBox.h"
#include "tree/EditorTest.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

#include <thread>

class TestORXFeatureTreeView : public EditorTest
{
    Q_OBJECT

private:
    int openEditors()
    {
        int count = 0;
        for (Item* each : group()->children())
            count += view()->editorOf(each) ? 1 : 0;
        return count;
    }
    bool isEveryRowInSightEdited()
    {
        int rows = 0;
        for (QModelIndex at = view()->indexAt(QPoint(0, 2));
             at.isValid() && view()->visualRect(at).top() < view()->viewport()->height();
             at = view()->indexBelow(at)) {
            Item* shown = ORXPropertyTreeModel::itemFromIndex(at);
            if (shown->tag() == FeatureTag::Other)
                continue;
            const QWidget* editor = view()->editorOf(shown);
            if (!editor || !editor->isVisible())
                return false;
            ++rows;
        }
        return rows > 3;
    }

private slots:
    void everyRowInSightHasItsEditor()
    {
        openRows(5000);
        QTRY_VERIFY(isEveryRowInSightEdited());
        QScrollBar* bar = view()->verticalScrollBar();
        QVERIFY(bar->maximum() > 100000);
        for (int i = 1; i <= 50; ++i) {
            bar->setValue(bar->maximum() / 50 * i);
            QVERIFY(isEveryRowInSightEdited()); // at once, not only after the event loop
            QVERIFY(openEditors() < 50);
        }
        m_page->resize(500, 800);
        QTRY_VERIFY(isEveryRowInSightEdited());
    }

    void collapsingAndHidingCloseEditors()
    {
        openRows(30);
        Item* below = m_page->add(nullptr, "Below"_s, "Integer");
        view()->treeModel()->addItems(m_page->getRootItem(1, false), {below});
        QTRY_VERIFY(isEveryRowInSightEdited());
        group()->setExpanded(false, 1);
        QTRY_COMPARE(openEditors(), 0);
        QTRY_VERIFY(view()->editorOf(below));
        group()->setExpanded(true, 1);
        QTRY_VERIFY(isEveryRowInSightEdited());
        for (int i = 0; i < 20; ++i)
            row(i)->setVisible(false, 1);
        QTRY_VERIFY(view()->editorOf(row(20)));
        QTRY_VERIFY(!view()->editorOf(row(0)));
        // Out of sight nothing is done; it catches up when it is shown.
        m_page->hide();
        for (int i = 0; i < 10; ++i)
            row(i)->setVisible(true, 1);
        QCoreApplication::processEvents();
        m_page->show();
        QTRY_VERIFY(view()->editorOf(row(0)));
        QTRY_VERIFY(isEveryRowInSightEdited());
    }

    void anEditorInUseIsKept_data()
    {
        const Rows<QString, int> row("tag", "column");
        row("text", "String", 1);
        row("box of the name", "CustomTagNameWatermark", 0);
    }

    void anEditorInUseIsKept()
    {
        const auto [tag, column] = fetchRow<QString, int>();
        openRows(200, tag.toLatin1().constData());
        if (auto* boxes = valueOf<CTreeCustomWaterMarkItemValue>(row(1)))
            boxes->setColumn(0, "A"_s, "A"_s);
        view()->openPersistentEdit(row(1), true);
        QTRY_VERIFY(view()->editorOf(row(1), column));
        QWidget* edited = view()->editorOf(row(1), column);
        edited->setFocus();
        QTest::keyClicks(edited, "typed"_s);
        QScrollBar* bar = view()->verticalScrollBar();
        bar->setValue(bar->maximum());
        QVERIFY(edited->hasFocus());
        QCOMPARE(view()->editorOf(row(1), column), edited);
        view()->setFocus();
        QCOMPARE(m_page->writes,
                 column == 0 ? QStringList() : QStringList(rowName(1) + " typed"_s));
        bar->setValue(bar->maximum() - 1);
        QTRY_VERIFY(!view()->editorOf(row(1), column));
    }

    void lastShownFeatureDecidesItsCategories()
    {
        m_page->makeRoot = [this] {
            Item* root = m_page->addGroupOfTags({});
            Item* branch = m_page->add(root->child(0), "Inner"_s);
            m_page->add(branch, rowName(0), "Integer");
            m_page->add(branch, rowName(1), "Integer");
            return root;
        };
        m_page->open();
        Item* inner = row(0);
        const auto hidden = [&] {
            QStringList names;
            for (Item* each : {group(), inner, inner->child(0), inner->child(1)}) {
                if (isHidden(each))
                    names += each->value()->nodeName(0);
            }
            return names;
        };
        inner->child(0)->setVisible(false, 1);
        QCOMPARE(hidden(), words("Row0000"));
        inner->child(1)->setVisible(false, 1);
        QCOMPARE(hidden(), words("Group Inner Row0000 Row0001"));
        m_page->log.clear();
        inner->child(0)->setVisible(true, 1);
        QCOMPARE(hidden(), words("Row0001"));
        QCOMPARE(m_page->log, QStringList("visible Row0000"_s));
    }

    void visibleHeight()
    {
        openRows(5);
        m_page->add(group(), "Matrix"_s, "CustomTagNameCCM");
        view()->resetData(1, m_page->getRootItem(1, false));
        view()->expandAll();
        QCOMPARE(view()->getVisibleHeight(), 5 * 38 + 128); // the group itself adds nothing
        row(0)->setGroupVisible(false, 1);
        QCOMPARE(view()->getVisibleHeight(), 4 * 38 + 128);
        view()->collapseAll();
        QCOMPARE(view()->getVisibleHeight(), 0);
    }

    void uselessNotificationsAreDropped_data()
    {
        const Rows<qint64, bool, bool> row("camera", "forbidden", "heard");
        row("shown camera", 1, false, true);
        row("other camera", 2, false, false);
        row("no camera", -1, false, false);
        row("updates forbidden", 1, true, false);
    }

    void uselessNotificationsAreDropped()
    {
        const auto [camera, forbidden, heard] = fetchRow<qint64, bool, bool>();
        openRows(2);
        view()->setForbiddenUpdate(forbidden);
        m_page->log.clear();
        row(0)->notifyViewUpdate(camera, -1, false);
        row(0)->notifyViewUpdate(camera, 1, false); // refreshes the cell without telling the page
        row(0)->setVisible(false, camera);
        group()->setExpanded(false, camera);
        const QStringList expected = {"value Row0000"_s, "visible Row0000"_s, "collapsed Group"_s};
        QCOMPARE(m_page->log, heard ? expected : QStringList());
        QCOMPARE(isHidden(row(0)), heard);
    }

    // Overtaken by others, or of an item that is gone.
    void notificationsThatComeLateChangeNothing()
    {
        openRows(3);
        row(0)->setVisible(false, 1);
        std::thread([this] {
            row(0)->setVisible(true, 1);
            row(1)->setVisible(false, 1);
        }).join();
        row(0)->setSearchText("something else"_s, 1);
        row(1)->setVisible(true, 1);
        QCoreApplication::processEvents();
        QVERIFY(isHidden(row(0)) && !isHidden(row(1)));
        m_page->log.clear();
        Item* gone = row(1);
        std::thread([gone] {
            gone->notifyViewUpdate(1, -1, true);
            gone->setVisible(false, 1);
            gone->notifiViewSpecialUpdate(NotifyViewSpecial::ChunkSelectionChanged, 1);
        }).join();
        view()->treeModel()->removeItems(group(), gone);
        delete gone;
        QCoreApplication::processEvents();
        QVERIFY(m_page->log.isEmpty());
    }

    void wheelOverEditors_data()
    {
        const Rows<QString, bool, bool, bool> row("tag", "readOnly", "focused", "scrolls");
        for (const char* tag : {"Integer", "Enumeration", "Float", "Boolean", "Command"}) {
            row.of(tag, false, false, true);
            QTest::addRow("%s, read only", tag)
                << QString::fromLatin1(tag) << true << false << true;
        }
        row("Integer with the focus", "Integer", false, true, false);
    }

    void wheelOverEditors()
    {
        const auto [tag, readOnly, focused, scrolls] = fetchRow<QString, bool, bool, bool>();
        openRows(100, tag.toLatin1().constData());
        if (auto* integer = dynamic_cast<CTreeIntergerItemValue*>(row(3)->value()))
            integer->setNumbers({50, 0, 100, 1});
        row(3)->setReadOnly(readOnly);
        row(3)->endUpdateItem(1);
        QWidget* editor = m_page->anyEditor(rowName(3));
        if (auto* combo = qobject_cast<ZELCustomComboBox*>(editor)) {
            const QSignalBlocker silent(combo);
            combo->addItems({"A"_s, "B"_s});
        }
        if (focused)
            editor->setFocus();
        QWheelEvent wheel(QPointF(5, 5), editor->mapToGlobal(QPoint(5, 5)), QPoint(),
                          QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel); // only such ones reach the parents
        qApp->notify(editor, &wheel);
        QCOMPARE(view()->verticalScrollBar()->value() > 0, scrolls);
        QCOMPARE(m_page->writes.isEmpty(), scrolls);
    }

    void withoutScrollingTheWheelGoesToTheParent()
    {
        openRows(100);
        view()->setDisableScroll();
        QVERIFY(!sendWheel(view()->viewport()));
        QCOMPARE(view()->verticalScrollBar()->value(), 0);
        QVERIFY(!view()->verticalScrollBar()->isVisible());
    }

    void placeholder()
    {
        openRows(1);
        const auto picture = [this] { return view()->viewport()->grab().toImage(); };
        const QImage row = picture();
        view()->setPlaceholderText("Nothing here"_s);
        QCOMPARE(picture(), row);
        group()->child(0)->setVisible(false, 1);
        const QImage empty = picture();
        view()->setPlaceholderText(QString());
        QVERIFY(picture() != empty);
    }
};

OBFT_TEST_MAIN(TestORXFeatureTreeView)
#include "tst_orxfeaturetreeview.moc"
