// SPDX-License-Identifier: Apache-2.0
// The window under a finger: it scrolls, clicks, asks for menus and reads tool tips, and what it
// scrolls over stays as it is.
#include "model/ORXPropertyTreeModel.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QScroller>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTextEdit>
#include <QToolTip>

using namespace DescriptionBuilder;

namespace {

constexpr int kGroups = 30;
constexpr int kFillers = 30; // more rows than are in sight
constexpr int kEntries = 40;
constexpr int kSmallestTarget = 32;

QByteArray description()
{
    QStringList groups = {"ImageControl"_s};
    QString nodes;
    for (int i = 0; i < kGroups; ++i) {
        groups += "Group%1"_s.arg(i);
        nodes += category(groups.last(), {"Of%1"_s.arg(i)}) + node("Integer"_s, "Of%1"_s.arg(i));
    }
    QStringList features = words("Branch Enable Width Label Mode");
    for (int i = 0; i < kFillers; ++i) {
        features += "Filler%1"_s.arg(i);
        nodes += node("Integer"_s, features.last());
    }
    QString entries;
    for (int i = 0; i < kEntries; ++i)
        entries += "<EnumEntry Name=\"Entry%1\"><Value>%1</Value></EnumEntry>"_s.arg(i);
    const QString longText = child("Description"_s, "A sentence about the width. "_s.repeated(200));
    return wrap(category("Root"_s, groups) + category("ImageControl"_s, features) +
                category("Branch"_s, words("Inner")) + node("Integer"_s, "Inner"_s) +
                node("Boolean"_s, "Enable"_s) + node("Integer"_s, "Width"_s, longText) +
                node("StringReg"_s, "Label"_s) + node("Enumeration"_s, "Mode"_s, entries) + nodes);
}

} // namespace

class TestTouch : public OpenedWindowTest
{
    Q_OBJECT

public:
    TestTouch()
        : OpenedWindowTest(description())
        , m_pScreen(QTest::createTouchDevice())
    {
    }

protected:
    void prepare() override
    {
        OpenedWindowTest::prepare();
        m_window = std::make_unique<OpenedWindow>(*m_host, m_xml);
        QVERIFY(m_window->waitForFirstRead());
        m_window->showGroup("ImageControl");
        QTRY_VERIFY(m_window->view()->editorOf(item("Mode")));
        m_host->clearCalls();
        // On a busy machine a finger that moves would else count as one that is held.
        holdAfter(kNeverMs);
    }
    void finish() override
    {
        holdAfter(-1);
        m_window.reset();
        OpenedWindowTest::finish();
    }

private:
    static constexpr int kNeverMs = 1000000;
    static constexpr int kHeldMs = 100;

    // -1: as the platform has it.
    static void holdAfter(int milliseconds)
    {
        QGuiApplication::styleHints()->setMousePressAndHoldInterval(milliseconds);
    }
    ORXPropertyTreeItem* item(const char* name) const { return m_window->item(name); }
    QWidget* editor(const char* name) const { return m_window->view()->editorOf(item(name)); }
    QModelIndex row(const char* name) const
    {
        return m_window->view()->treeModel()->indexFromItem(item(name), 0);
    }
    QPoint nameOf(const char* name) const
    {
        const ORXFeatureTreeView* view = m_window->view();
        return view->viewport()->mapToGlobal(view->visualRect(row(name)).center());
    }
    QPoint arrowOf(const char* name) const
    {
        const ORXFeatureTreeView* view = m_window->view();
        const QRect place = view->visualRect(row(name));
        return view->viewport()->mapToGlobal(QPoint(place.left() - 10, place.center().y()));
    }
    QPoint groupAt(const QModelIndex& group) const
    {
        const CFeatureGroupTreeView* column = m_window->groups();
        return column->viewport()->mapToGlobal(column->visualRect(group).center());
    }
    QPoint groupOf(const char* name) const { return groupAt(m_window->group(name)); }
    static QPoint centreOf(const QWidget* widget)
    {
        return widget->mapToGlobal(widget->rect().center());
    }
    QTextEdit* text() const { return m_window->tree()->findChild<QTextEdit*>(); }

    // In the coordinates of the window.
    void put(const QWidget* window, const QPoint& at)
    {
        QTest::touchEvent(window->windowHandle(), m_pScreen)
            .press(0, window->mapFromGlobal(at), window->windowHandle());
    }
    void move(const QWidget* window, const QPoint& at)
    {
        QTest::touchEvent(window->windowHandle(), m_pScreen)
            .move(0, window->mapFromGlobal(at), window->windowHandle());
    }
    void lift(const QWidget* window, const QPoint& at)
    {
        QTest::touchEvent(window->windowHandle(), m_pScreen)
            .release(0, window->mapFromGlobal(at), window->windowHandle());
    }
    void tap(const QPoint& at)
    {
        put(m_window->widget(), at);
        lift(m_window->widget(), at);
    }
    // Moves the finger up until the area has scrolled, and lifts it.
    bool scrolls(const QWidget* window, const QPoint& from, const QAbstractScrollArea* area)
    {
        const int before = area->verticalScrollBar()->value();
        constexpr int kStepPx = 5;
        constexpr int kPixels = 60;
        put(window, from);
        for (int y = 0; y <= kPixels; y += kStepPx)
            move(window, from - QPoint(0, y));
        const bool moved =
            QTest::qWaitFor([&] { return area->verticalScrollBar()->value() > before; });
        lift(window, from - QPoint(0, kPixels));
        // What runs on by itself is not waited for.
        QScroller::scroller(area->viewport())->stop();
        return moved;
    }

    decltype(QTest::createTouchDevice()) m_pScreen; // Owned by Qt.
    std::unique_ptr<OpenedWindow> m_window;

private slots:
    void aMovedFingerOnlyScrolls_data()
    {
        const Rows<QString> row("place");
        for (const char* place : {"name", "arrow", "check box", "spin box", "line edit",
                                  "combo box", "side column", "description"})
            row.of(place);
    }

    void aMovedFingerOnlyScrolls()
    {
        QFETCH(QString, place);
        ORXFeatureTreeView* view = m_window->view();
        view->setFocus();
        view->setCurrentIndex(row("Width")); // whose description is long
        m_window->groups()->setExpanded(m_window->groupModel()->pageIndex(0), true);
        const QMap<QString, QPoint> places = {{"name"_s, nameOf("Label")},
                                              {"arrow"_s, arrowOf("Branch")},
                                              {"check box"_s, centreOf(editor("Enable"))},
                                              {"spin box"_s, centreOf(editor("Width"))},
                                              {"line edit"_s, centreOf(editor("Label"))},
                                              {"combo box"_s, centreOf(editor("Mode"))},
                                              {"side column"_s, groupOf("Group8")},
                                              {"description"_s, centreOf(text()->viewport())}};
        const QMap<QString, QAbstractScrollArea*> areas = {{"side column"_s, m_window->groups()},
                                                           {"description"_s, text()}};
        QAbstractScrollArea* area = areas.value(place, view);
        const bool open = view->isExpanded(row("Branch"));
        const QModelIndex group = m_window->groups()->currentIndex();
        const QWidget* focus = QApplication::focusWidget();
        const QModelIndex current = view->currentIndex();
        QTRY_VERIFY(area->verticalScrollBar()->maximum() > 0);
        QVERIFY(scrolls(m_window->widget(), places.value(place), area));
        QCOMPARE(m_host->writes(), QStringList());
        QCOMPARE(view->isExpanded(row("Branch")), open);
        QCOMPARE(m_window->groups()->currentIndex(), group);
        QCOMPARE(view->currentIndex(), current);
        QCOMPARE(QApplication::focusWidget(), focus);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aFingerClicks()
    {
        ORXFeatureTreeView* view = m_window->view();
        const bool open = view->isExpanded(row("Branch"));
        tap(arrowOf("Branch"));
        QTRY_COMPARE(view->isExpanded(row("Branch")), !open);
        tap(centreOf(editor("Enable")));
        QTRY_COMPARE(m_host->writes().size(), 1);
        tap(nameOf("Label"));
        QCOMPARE(view->currentIndex(), row("Label"));
        QTRY_VERIFY(editor("Width")->isEnabled());
        auto* line = editor("Width")->findChild<QLineEdit*>();
        tap(line->mapToGlobal(QPoint(5, line->height() / 2)));
        QVERIFY(editor("Width")->hasFocus());
        QTRY_VERIFY(QToolTip::isVisible()); // says the range
        QCOMPARE(QToolTip::text(), editor("Width")->toolTip());
        tap(groupOf("Group3"));
        QVERIFY(item("Of3")->groupVisible());
    }

    void aClickGivesTheFocus_data()
    {
        const Rows<bool, bool> row("finger", "column");
        row("finger on a row", true, false);
        row("finger on a group", true, true);
        row("mouse on a row", false, false);
        row("mouse on a group", false, true);
    }

    void aClickGivesTheFocus()
    {
        const auto [finger, column] = fetchRow<bool, bool>();
        m_window->column()->focusSearch();
        QAbstractItemView* view = m_window->view();
        if (column)
            view = m_window->groups();
        const QPoint at = column ? groupOf("Group3") : nameOf("Label");
        if (finger)
            tap(at);
        else
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                              view->viewport()->mapFromGlobal(at));
        QCOMPARE(QApplication::focusWidget(), view);
    }

    void whatIsTypedSurvivesScrolling()
    {
        auto* line = qobject_cast<QLineEdit*>(editor("Label"));
        QTRY_VERIFY(line && line->isEnabled());
        line->setFocus();
        QTest::keyClicks(line, "half"_s);
        const QString typed = line->text();
        QVERIFY(scrolls(m_window->widget(), nameOf("Enable"), m_window->view()));
        QCOMPARE(QApplication::focusWidget(), line);
        QCOMPARE(line->text(), typed);
        QCOMPARE(m_host->writes(), QStringList());
    }

    void aHeldFingerOpensTheMenu_data()
    {
        const Rows<bool, QString> row("column", "entry");
        row("row", false, "Add to Favorites");
        row("side column", true, "Remove All");
    }

    void aHeldFingerOpensTheMenu()
    {
        const auto [column, entry] = fetchRow<bool, QString>();
        const CFeatureGroupModel* model = m_window->groupModel();
        const QModelIndex favorites = model->index(0, 0, model->pageIndex(0));
        const QPoint at = column ? groupAt(favorites) : nameOf("Label");
        holdAfter(kHeldMs);
        put(m_window->widget(), at);
        auto* menu = m_window->tree()->findChild<QMenu*>("FavoritesMenu"_s);
        QTRY_VERIFY(menu->isVisible());
        lift(m_window->widget(), at);
        QVERIFY(menu->isVisible());
        const QList<QAction*> actions = menu->actions();
        const auto first = std::find_if(actions.begin(), actions.end(),
                                        [](const QAction* action) { return action->isVisible(); });
        QCOMPARE((*first)->text(), entry);
        menu->close();
    }

    void aListOfEntries()
    {
        auto* box = qobject_cast<QComboBox*>(editor("Mode"));
        QTRY_VERIFY(box && box->isEnabled());
        const int before = box->currentIndex();
        box->showPopup();
        const QWidget* popup = box->view()->window();
        QVERIFY(QTest::qWaitForWindowExposed(box->view()->window()));
        box->view()->scrollToTop();
        QVERIFY(scrolls(popup, centreOf(box->view()->viewport()), box->view()));
        QVERIFY(popup->isVisible());
        QCOMPARE(box->currentIndex(), before);
        const QPoint at = centreOf(box->view()->viewport());
        const QModelIndex wanted = box->view()->indexAt(box->view()->viewport()->mapFromGlobal(at));
        QVERIFY(box->view()->visualRect(wanted).height() >= kSmallestTarget);
        put(popup, at);
        lift(popup, at);
        QTRY_VERIFY(!popup->isVisible());
        QCOMPARE(box->currentIndex(), wanted.row());
        QTRY_COMPARE(m_host->writes().size(), 1);
    }

    void aHeldFingerReadsATool()
    {
        auto* button = m_window->widget()->findChild<QAbstractButton*>("ORXFeatureLangue"_s);
        QSignalSpy clicked(button, &QAbstractButton::clicked);
        holdAfter(kHeldMs);
        put(m_window->widget(), centreOf(button));
        QTRY_VERIFY(QToolTip::isVisible());
        QCOMPARE(QToolTip::text(), button->toolTip());
        lift(m_window->widget(), centreOf(button));
        holdAfter(kNeverMs);
        QCOMPARE(clicked.count(), 0);
        tap(centreOf(button));
        QCOMPARE(clicked.count(), 1);
    }

    void thereIsRoomForAFinger()
    {
        QStringList small;
        const QList<QWidget*> widgets = m_window->widget()->findChildren<QWidget*>();
        for (const QWidget* widget : widgets) {
            const bool target = qobject_cast<const QAbstractButton*>(widget) ||
                                (widget->focusPolicy() & Qt::TabFocus);
            const bool part = qobject_cast<const QLineEdit*>(widget) &&
                              qobject_cast<const QAbstractSpinBox*>(widget->parentWidget());
            // Symbols inside the search box act within its height.
            const bool symbol = qobject_cast<const QLineEdit*>(widget->parentWidget());
            if (widget->isVisible() && target && !part && !symbol &&
                widget->height() < kSmallestTarget)
                small += "%1 %2 %3"_s
                             .arg(QString::fromLatin1(widget->metaObject()->className()),
                                  widget->objectName())
                             .arg(widget->height());
        }
        QVERIFY2(small.isEmpty(), qPrintable(small.join(QLatin1Char('\n'))));
        const CFeatureGroupTreeView* column = m_window->groups();
        const QModelIndex page = m_window->groupModel()->pageIndex(0);
        QVERIFY(column->visualRect(page).height() >= kSmallestTarget);
        QVERIFY(column->visualRect(page.model()->index(1, 0, page)).height() >= kSmallestTarget);
        QVERIFY(m_window->view()->visualRect(row("Branch")).height() >= kSmallestTarget);
    }
};

OBFT_TEST_MAIN(TestTouch)
#include "tst_touch.moc"
