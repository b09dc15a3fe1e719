// SPDX-License-Identifier: Apache-2.0
#include "api/ApplicationSetup.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "styledctl/ZELCustomComboBox.h"
#include "support/TestMain.h"
#include "tree/ORXFeatureTreeView.h"
#include "tree/ORXPropertySpinBox.h"
#include "tree/QPropertyLineEdit.h"
#include "tree/TestPage.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

#include <atomic>
#include <thread>

using Item = ORXPropertyTreeItem;

namespace {

// Counts how often the rows are laid out.
class CountingView : public ORXFeatureTreeView
{
public:
    using ORXFeatureTreeView::ORXFeatureTreeView;
    void doItemsLayout() override
    {
        ++layouts;
        ORXFeatureTreeView::doItemsLayout();
    }
    int layouts = 0;
};

QString rowName(int row)
{
    return "Row%1"_s.arg(row, 4, 10, QLatin1Char('0'));
}

} // namespace

class TestORXFeatureTreeView : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        ApplicationSetup::runOnce();
        m_page = new TestPage;
    }
    void finish() override { delete m_page; }

private:
    void openRows(int rows, const char* tag = "Integer", const QSize& size = QSize(500, 400))
    {
        m_page->makeRoot = [=] {
            Item* root = m_page->addGroupOfTags({});
            m_group = root->child(0);
            for (int i = 0; i < rows; ++i)
                m_page->add(m_group, rowName(i), tag);
            return root;
        };
        m_page->open(size);
    }
    Item* row(int number) { return m_group->child(number); }
    int openEditors()
    {
        int count = 0;
        const QVector<Item*> rows = m_group->children();
        for (Item* each : rows)
            count += view()->editorOf(each) ? 1 : 0;
        return count;
    }
    bool isEveryRowInSightEdited()
    {
        int rows = 0;
        for (QModelIndex index = view()->indexAt(QPoint(0, 2));
             index.isValid() && view()->visualRect(index).top() < view()->viewport()->height();
             index = view()->indexBelow(index)) {
            Item* item = ORXPropertyTreeModel::itemFromIndex(index);
            if (item->tag() == FeatureTag::Other)
                continue;
            const QWidget* editor = view()->editorOf(item);
            if (!editor || !editor->isVisible())
                return false;
            ++rows;
        }
        return rows > 3;
    }
    ORXFeatureTreeView* view() { return m_page->treeView(); }

    TestPage* m_page = nullptr;
    Item* m_group = nullptr;

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
        m_group->setExpanded(false, 1);
        QTRY_COMPARE(openEditors(), 0);
        QTRY_VERIFY(view()->editorOf(below));
        m_group->setExpanded(true, 1);
        QTRY_VERIFY(isEveryRowInSightEdited());
        for (int i = 0; i < 20; ++i)
            row(i)->setVisible(false, 1);
        QTRY_VERIFY(view()->editorOf(row(20)));
        QTRY_VERIFY(!view()->editorOf(row(0)));
        row(0)->setVisible(true, 1);
        QTRY_VERIFY(view()->editorOf(row(0)));
    }

    void aHiddenViewCatchesUpWhenShown()
    {
        openRows(30);
        m_page->hide();
        for (int i = 0; i < 10; ++i)
            row(i)->setVisible(false, 1);
        QCoreApplication::processEvents();
        m_page->show();
        QTRY_VERIFY(isEveryRowInSightEdited());
    }

    void anEditorInUseIsKept()
    {
        openRows(200, "String");
        auto* edit = m_page->editor<QPropertyLineEdit>(rowName(1));
        edit->setFocus();
        QTest::keyClicks(edit, "typed"_s);
        view()->verticalScrollBar()->setValue(view()->verticalScrollBar()->maximum());
        QCOMPARE(m_page->editor<QPropertyLineEdit>(rowName(1)), edit);
        QCOMPARE(edit->text(), "typed"_s);
        QVERIFY(edit->hasFocus());
        view()->setFocus();
        QCOMPARE(m_page->writes, QStringList(rowName(1) + " typed"_s));
        view()->verticalScrollBar()->setValue(view()->verticalScrollBar()->maximum() - 1);
        QTRY_VERIFY(!view()->editorOf(row(1)));
    }

    void aNewRepresentationKeepsTheFocus()
    {
        openRows(3);
        auto* value = dynamic_cast<CTreeIntergerItemValue*>(row(1)->value());
        value->setNumbers({5, 0, 10, 1});
        row(1)->endUpdateItem(1);
        m_page->anyEditor(rowName(1))->setFocus();
        value->setRepresentation("HexNumber"_s);
        row(1)->endUpdateItem(1);
        auto* edit = m_page->editor<QPropertyLineEdit>(rowName(1));
        QVERIFY(edit);
        QVERIFY(edit->hasFocus());
    }

    void lastShownFeatureDecidesItsCategories()
    {
        Item* inner = nullptr;
        m_page->makeRoot = [&] {
            Item* root = m_page->addGroupOfTags({});
            m_group = root->child(0);
            inner = m_page->add(m_group, "Inner"_s);
            m_page->add(inner, rowName(0), "Integer");
            m_page->add(inner, rowName(1), "Integer");
            return root;
        };
        m_page->open();
        const auto hidden = [this](Item* item) {
            const QModelIndex index = view()->treeModel()->indexFromItem(item, 0);
            return view()->isRowHidden(index.row(), index.parent());
        };
        inner->child(0)->setVisible(false, 1);
        QVERIFY(!hidden(inner));
        inner->child(1)->setVisible(false, 1);
        QVERIFY(hidden(inner));
        QVERIFY(hidden(m_group));
        m_page->log.clear();
        inner->child(0)->setVisible(true, 1);
        QVERIFY(!hidden(inner->child(0)));
        QVERIFY(hidden(inner->child(1)));
        QVERIFY(!hidden(inner));
        QVERIFY(!hidden(m_group));
        QCOMPARE(m_page->log, QStringList("visible Row0000"_s));
    }

    void groupVisibilityHidesRows()
    {
        openRows(3);
        const auto hidden = [this](int number) {
            return view()->isRowHidden(number, view()->treeModel()->indexFromItem(m_group, 0));
        };
        row(0)->setGroupVisible(false, 1);
        QVERIFY(hidden(0));
        row(1)->setVisible(false, -1); // not for this camera: the view is not told
        QVERIFY(!hidden(1));
        view()->updateRowsVisible(m_page->getRootItem(1, false), true);
        QVERIFY(hidden(0));
        QVERIFY(hidden(1));
        QVERIFY(!hidden(2));
    }

    void visibleHeight()
    {
        openRows(5);
        m_page->add(m_group, "Matrix"_s, "CustomTagNameCCM");
        view()->resetData(1, m_page->getRootItem(1, false));
        view()->expandAll();
        QCOMPARE(view()->getVisibleHeight(), 5 * 38 + 128); // the group itself adds nothing
        row(0)->setVisible(false, 1);
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
        QFETCH(qint64, camera);
        QFETCH(bool, forbidden);
        QFETCH(bool, heard);
        openRows(2);
        view()->setForbiddenUpdate(forbidden);
        m_page->log.clear();
        row(0)->notifyViewUpdate(camera, -1, false);
        row(0)->notifyViewUpdate(camera, 1, false); // refreshes the cell without telling the page
        row(0)->setVisible(false, camera);
        const QStringList expected = {"value Row0000"_s, "visible Row0000"_s};
        QCOMPARE(m_page->log, heard ? expected : QStringList());
        QCOMPARE(view()->isRowHidden(0, view()->treeModel()->indexFromItem(m_group, 0)), heard);
    }

    void aDestroyedItemsNotificationIsDropped()
    {
        openRows(3);
        m_page->log.clear();
        Item* gone = row(1);
        std::thread([gone] {
            gone->notifyViewUpdate(1, -1, true);
            gone->setVisible(false, 1);
            gone->notifiViewSpecialUpdate(NotifyViewSpecial::ChunkSelectionChanged, 1);
        }).join();
        view()->treeModel()->removeItems(m_group, gone);
        delete gone;
        QCoreApplication::processEvents();
        QVERIFY(m_page->log.isEmpty());
    }

    void itemsGoWhileAWorkerPublishes()
    {
        openRows(4);
        std::atomic<bool> stop{false};
        std::atomic<int> wanted{0}; // publications; the event queue must not grow without end
        Item* published = row(0);
        std::thread worker([published, &stop, &wanted] {
            auto* value = dynamic_cast<CTreeIntergerItemValue*>(published->value());
            for (qint64 i = 0; !stop;) {
                if (wanted <= 0) {
                    std::this_thread::yield();
                    continue;
                }
                --wanted;
                ++i;
                value->setNumbers({i % 100, 0, 100, 1});
                published->endUpdateItem(1);
                published->setVisible(i % 3 != 0, 1);
            }
        });
        for (int i = 0; i < 100; ++i) {
            auto* mirror = new Item(nullptr, m_page->pageType());
            mirror->copy(published);
            mirror->registerView(view());
            published->setMappingItem(mirror);
            view()->treeModel()->addItems(m_group, {mirror});
            wanted = 20;
            QCoreApplication::processEvents();
            view()->treeModel()->removeItems(m_group, mirror);
            delete mirror;
        }
        stop = true;
        worker.join();
        published->setVisible(true, 1);
        QTRY_VERIFY(m_page->editor<ORXPropertySpinBox>(rowName(0)));
        const qint64 last = published->value()->value().toLongLong();
        QTRY_COMPARE(m_page->editor<ORXPropertySpinBox>(rowName(0))->value(), last);
    }

    void anOvertakenNotificationChangesNothing()
    {
        openRows(2);
        const auto hidden = [this](int number) {
            return view()->isRowHidden(number, view()->treeModel()->indexFromItem(m_group, 0));
        };
        row(0)->setVisible(false, 1);
        std::thread([this] {
            row(0)->setVisible(true, 1);
            row(1)->setVisible(false, 1);
        }).join();
        row(0)->setSearchText("something else"_s, 1);
        row(1)->setVisible(true, 1);
        QCoreApplication::processEvents();
        QVERIFY(hidden(0));
        QVERIFY(!hidden(1));
    }

    void onePassCostsOneLayout()
    {
        TestPage page;
        CountingView counted(page.pageType(), &page, &page);
        Item* root = page.addGroupOfTags({});
        m_group = root->child(0);
        for (int i = 0; i < 1000; ++i)
            page.add(m_group, rowName(i), "Integer")->registerView(&counted);
        counted.resetData(1, root);
        counted.expandAll();
        counted.resize(400, 400);
        page.resize(400, 400);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QCoreApplication::processEvents();
        counted.layouts = 0;
        for (int i = 0; i < 1000; ++i) {
            row(i)->value()->setValue(i);
            row(i)->setVisible(i % 2 == 0, 1);
            row(i)->endUpdateItem(1);
            row(i)->setSearchText("row"_s, 1);
        }
        QCoreApplication::processEvents();
        QVERIFY2(counted.layouts <= 3, qPrintable(QString::number(counted.layouts)));
        counted.resetData(-1, nullptr);
        delete root;
    }

    // The user edits a mirror; the row of the item itself is out of sight.
    void anEditThatTheCameraTakesBackIsPublished()
    {
        openRows(200);
        Item* item = row(150);
        dynamic_cast<CTreeIntergerItemValue*>(item->value())->setNumbers({10, 0, 100, 1});
        item->endUpdateItem(1);
        Item* mirror = row(0);
        mirror->value()->copy(item->value(), false);
        item->setMappingItem(mirror);
        QVERIFY(!item->endUpdateItem(1)); // nothing new
        mirror->value()->setValue(50);
        mirror->notifyViewUpdate(1, 2, false);
        QCOMPARE(item->value()->value().toInt(), 50);
        item->value()->setValue(10); // what the camera made of it
        QVERIFY(item->endUpdateItem(1));
        QCOMPARE(mirror->value()->value().toInt(), 10);
        QCOMPARE(qobject_cast<ORXPropertySpinBox*>(view()->editorOf(mirror))->value(),
                 qlonglong(10));
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
        QFETCH(QString, tag);
        QFETCH(bool, readOnly);
        QFETCH(bool, focused);
        QFETCH(bool, scrolls);
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
        QWheelEvent wheel(QPointF(5, 5), view()->viewport()->mapToGlobal(QPoint(5, 5)), QPoint(),
                          QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view()->viewport(), &wheel);
        QVERIFY(!wheel.isAccepted());
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
        m_group->child(0)->setVisible(false, 1);
        const QImage empty = picture();
        view()->setPlaceholderText(QString());
        QVERIFY(picture() != empty);
    }
};

OBFT_TEST_MAIN(TestORXFeatureTreeView)
#include "tst_orxfeaturetreeview.moc"
