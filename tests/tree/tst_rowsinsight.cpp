// SPDX-License-Identifier: Apache-2.0
// Rows before their first value, and what a view says of the rows that the user has before him.
#include "model/CTreeIntergerItemValue.h"
#include "tree/EditorTest.h"
#include "tree/ORXPropertySpinBox.h"

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
Q_DECLARE_METATYPE(std::function<void(TestRowsInSight&)>)

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
        const QStringList told = {"value Row0000"_s,
                                  "value Row0000"_s}; // and its mirror, once each
        QCOMPARE(m_page->log, told);
    }

    void aValueThatIsTheSameOpensTheEditor()
    {
        makeRows(1);
        m_page->open();
        row(0)->endUpdateItem(1);
        row(0)->setWasRead(true, 1);
        QVERIFY(!row(0)->endUpdateItem(1)); // nothing new
        QTRY_VERIFY(view()->editorOf(row(0)));
    }

    void aMirrorTakesOverThatItWasRead()
    {
        makeRows(2);
        m_page->open();
        Item copied(nullptr, m_page->pageType());
        copied.copy(row(0));
        QVERIFY(!copied.wasRead());
        row(0)->setWasRead(true, 1);
        copied.copy(row(0));
        QVERIFY(copied.wasRead());
        row(0)->setMappingItem(row(1)); // read between copying and linking
        QVERIFY(row(1)->wasRead());
    }

    void onePassCostsFewLayouts()
    {
        makeRows(1000);
        CountingView counted(*m_page);
        m_page->open();
        QCoreApplication::processEvents();
        counted.layouts = 0;
        for (int i = 0; i < 1000; ++i) {
            row(i)->value()->setValue(i);
            row(i)->setWasRead(true, 1);
            row(i)->setVisible(i % 2 == 0, 1);
            row(i)->endUpdateItem(1);
            row(i)->setSearchText("row"_s, 1);
        }
        QCoreApplication::processEvents();
        QVERIFY2(counted.layouts <= 3, qPrintable(QString::number(counted.layouts)));
        QVERIFY(counted.editorOf(row(0)));
    }

    void hiddenItemsHaveNoRowFromTheStart()
    {
        makeRows(3);
        m_page->getRootItem(1, true);
        row(1)->setVisible(false, -1);
        CountingView other(*m_page);
        const QModelIndex shown = other.treeModel()->indexFromItem(group(), 0);
        QVERIFY(!other.isRowHidden(0, shown));
        QVERIFY(other.isRowHidden(1, shown));
    }

    void rowsInSightAreTold_data()
    {
        using Act = std::function<void(TestRowsInSight&)>;
        // last: above what is in sight, nearest first
        const Rows<Act, QString, QString, int> row("act", "first", "last", "rows");
        row(
            "shown", [](auto&) {}, "Row0000", "Other", 201);
        row(
            "scrolled", [](auto& t) { t.view()->verticalScrollBar()->setValue(1 + 38 * 10); },
            "Row0010", "Row0000", 201);
        row(
            "another group",
            [](auto& t) {
                for (Item* each : t.group()->children())
                    each->setGroupVisible(false, 1);
            },
            "Other", "Other", 1);
        row(
            "collapsed", [](auto& t) { t.group()->setExpanded(false, 1); }, "Other", "Other", 1);
        row(
            "all collapsed", [](auto& t) { t.m_page->setExpandedAll(false); }, "", "", 0);
        row(
            "search",
            [](auto& t) {
                for (int i = 0; i < 200; ++i)
                    t.row(i)->setSearchText("w017"_s, 1);
            },
            "Row0170", "Other", 11);
        row(
            "level", [](auto& t) { t.row(0)->setVisible(false, 1); }, "Row0001", "Other", 200);
        row(
            "row removed",
            [](auto& t) {
                Item* gone = t.row(0);
                t.view()->treeModel()->removeItems(t.group(), gone);
                delete gone;
            },
            "Row0001", "Other", 200);
        row(
            "items of the page",
            [](auto& t) {
                t.row(0)->setIsFeatureTreeItem(false);
                t.row(1)->setIsFeatureTreeItem(false);
                t.row(199)->setVisible(false, 1);
            },
            "Row0002", "Other", 198);
        row(
            "page hidden", [](auto& t) { t.m_page->hide(); }, "", "", 0);
        row(
            "no camera", [](auto& t) { t.m_page->resetCamaraID(-1); }, "", "", 0);
    }

    void rowsInSightAreTold()
    {
        QFETCH(std::function<void(TestRowsInSight&)>, act);
        QFETCH(QString, first);
        QFETCH(QString, last);
        QFETCH(int, rows);
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

    void scrollingCostsNoLayout()
    {
        makeRows(5000);
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
    }
};

OBFT_TEST_MAIN(TestRowsInSight)
#include "tst_rowsinsight.moc"
