// SPDX-License-Identifier: Apache-2.0
// Searching in the side column, by the keyboard, in the opened window.
#include "CameraDescription.h"
#include "device/OBDeviceControl.h"
#include "model/CTreeItemValue.h"
#include "model/ORXPropertyTreeModel.h"
#include "support/OpenedWindow.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>

namespace {

QString nodeName(const QModelIndex& index)
{
    const ORXPropertyTreeItem* item = ORXPropertyTreeModel::itemFromIndex(index);
    return item && item->value() ? item->value()->nodeName(0) : QString();
}

class SearchedWindow : public ReadWindow
{
public:
    using ReadWindow::ReadWindow;
    QLineEdit* box() const { return column()->findChild<QLineEdit*>("FeatureSearch"_s); }
    QString shownGroup() const { return nodeName(groups()->currentIndex()); }
    int hits(const char* name) const { return groupModel()->hitCount(group(name)); }
    // Names of the features in the rows that are not hidden.
    QStringList shown(const QModelIndex& parent = {}) const
    {
        QStringList names;
        for (int row = 0; row < view()->model()->rowCount(parent); ++row) {
            const QModelIndex index = view()->model()->index(row, 0, parent);
            if (view()->isRowHidden(row, parent))
                continue;
            const QStringList below = shown(index);
            names += below.isEmpty() && view()->model()->rowCount(index) == 0
                         ? QStringList(nodeName(index))
                         : below;
        }
        return names;
    }
    // The shown group and its rows: "AnalogControl: Gain GainAuto".
    QString state() const { return shownGroup() + ": "_s + shown().join(QLatin1Char(' ')); }
    void type(const QString& text) const
    {
        box()->setFocus();
        box()->selectAll();
        // Not by keys, which are ASCII only; an input method inserts, too.
        box()->insert(text);
    }
};

} // namespace

class TestSearch : public DescribedWindowTest<cameraDescription>
{
    Q_OBJECT

private slots:
    void hitsAreShownAndCounted()
    {
        SearchedWindow window(*m_host, m_xml);
        window.showGroup("AnalogControl");
        window.type("gain"_s);
        QCOMPARE(window.shown(), words("Gain GainAuto"));
        QCOMPARE(window.hits("AnalogControl"), 2);
        QCOMPARE(window.hits("AcquisitionControl"), 0);
        QCOMPARE(window.groupModel()->hitCount(), 4); // the common page shows both again
        const ORXPropertyTreeItem* gain = window.item("Gain");
        QVERIFY(gain->getHighlightSerachText().contains("Gain</span>"_s));
        QTest::keyClick(window.box(), Qt::Key_Escape);
        QCOMPARE(window.shown().size(), 3);
        QCOMPARE(window.groupModel()->hitCount(), 0);
        QVERIFY(gain->getHighlightSerachText().isEmpty());
    }

    void turnsToTheGroupWithHitsAndBack()
    {
        SearchedWindow window(*m_host, m_xml);
        window.showGroup("DeviceControl");
        const QString before = window.state();
        window.type("exposure"_s);
        QCOMPARE(window.state(), "AcquisitionControl: ExposureTime"_s);
        QTest::keyClick(window.box(), Qt::Key_Escape);
        QCOMPARE(window.state(), before);
        // What a page row comes back to is the group from before, too.
        window.groups()->OnChangedIndex(window.groupModel()->pageIndex(0));
        QCOMPARE(window.shownGroup(), "DeviceControl"_s);
    }

    void staysWhereTheUserWent()
    {
        SearchedWindow window(*m_host, m_xml);
        window.showGroup("DeviceControl");
        window.type("a"_s);
        const QRect row = window.groups()->visualRect(window.group("AnalogControl"));
        QTest::mouseClick(window.groups()->viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(window.shownGroup(), "AnalogControl"_s);
        window.column()->ClearSearch();
        QCOMPARE(window.state(), "AnalogControl: Gain GainAuto BlackLevel"_s);
    }

    void opensBranchesAndClosesThemAgain()
    {
        SearchedWindow window(*m_host, m_xml);
        window.showGroup("AnalogControl");
        ORXPropertyTreeItem* item = window.item("BlackLevelControl");
        const QPersistentModelIndex branch = window.view()->treeModel()->indexFromItem(item, 0);
        const QPersistentModelIndex group = branch.parent();
        window.view()->collapse(branch);
        window.view()->collapse(group);
        window.type("gain"_s);
        QVERIFY(!window.view()->isExpanded(branch));
        QVERIFY(window.view()->isExpanded(group));
        window.type("black"_s);
        QVERIFY(window.view()->isExpanded(branch));
        window.column()->ClearSearch();
        QVERIFY(!window.view()->isExpanded(branch));
        QVERIFY(window.view()->isExpanded(group)); // the group itself stays open
        // What the user has opened since is none of the next search's.
        window.view()->expand(branch);
        window.type("black"_s);
        window.column()->ClearSearch();
        QVERIFY(window.view()->isExpanded(branch));
    }

    void saysWhenNothingMatchesUntilALevelBringsHits()
    {
        SearchedWindow window(*m_host, m_xml);
        const auto* note = window.column()->findChild<QLabel*>("FeatureSearchNoMatch"_s);
        window.showGroup("DeviceControl");
        window.type("device"_s);
        QVERIFY(!note->isVisible());
        window.type("<b>zebra"_s);
        QVERIFY(note->isVisible() && note->text().contains("<b>zebra"_s));
        QCOMPARE(note->textFormat(), Qt::PlainText);
        QCOMPARE(window.state(), "DeviceControl: "_s);
        window.type("exposure mode"_s);
        QVERIFY(note->isVisible());
        QVERIFY(window.view()->placeholderText().startsWith("No feature matches"_s));
        const auto changeLevel = [&window](int level) {
            OBDeviceControl::SetUserLevel(level);
            window.widget()->OnUserLeverChanged();
            QCOMPARE(
                window.widget()->findChild<QComboBox*>("ORXFeatureUserLevel"_s)->currentIndex(),
                level);
        };
        changeLevel(0);
        QTRY_VERIFY(!note->isVisible());
        QVERIFY(window.view()->placeholderText().startsWith("No feature of this group"_s));
        QCOMPARE(window.state(), "AcquisitionControl: ExposureMode"_s);
        QCOMPARE(window.hits("AcquisitionControl"), 1);
        changeLevel(1);
        QTRY_VERIFY(note->isVisible());
        QCOMPARE(window.hits("AcquisitionControl"), 0);
        QVERIFY(window.view()->placeholderText().startsWith("No feature matches"_s));
        window.column()->ClearSearch();
        QVERIFY(!note->isVisible());
        QCOMPARE(window.state(), "DeviceControl: DeviceUserID DeviceReset"_s);
    }

    void sameTextIsNotSearchedAgain()
    {
        SearchedWindow window(*m_host, m_xml);
        QSignalSpy searched(window.column(), &ORXFeatureGroup::SigSearched);
        window.type("g"_s);
        window.box()->setText("  g "_s);
        QTest::keyClick(window.box(), Qt::Key_Return);
        QCOMPARE(searched.count(), 1);
    }

    void keyboardReachesBoxAndHits()
    {
        SearchedWindow window(*m_host, m_xml);
        window.showGroup("DeviceControl");
        window.view()->setFocus();
        QTRY_VERIFY(window.view()->hasFocus());
        QTest::keyClick(window.view(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(window.box()->hasFocus());
        QTest::keyClicks(window.box(), "level"_s);
        QTest::keyClick(window.box(), Qt::Key_Down);
        QVERIFY(window.view()->hasFocus());
        QCOMPARE(nodeName(window.view()->currentIndex()), "BlackLevel"_s);

        // Enter goes on from hit to hit, through all groups and round again.
        window.column()->ClearSearch();
        window.showGroup("AnalogControl");
        window.view()->setCurrentIndex({});
        window.type("e"_s);
        QStringList visited;
        for (int i = 0; i < 9; ++i) {
            QTest::keyClick(window.box(), Qt::Key_Return);
            for (const ORXFeatureTreeView* view :
                 window.widget()->findChildren<ORXFeatureTreeView*>()) {
                if (view->isVisible())
                    visited += nodeName(view->currentIndex());
            }
        }
        QVERIFY(window.box()->hasFocus());
        const QStringList round = {"BlackLevel"_s,   "ExposureTime"_s, "AcquisitionFrameCount"_s,
                                   "ExposureTime"_s, // on the common page
                                   "DeviceUserID"_s, "DeviceReset"_s};
        QCOMPARE(visited, round + round.mid(0, 3));
    }

    void chineseNames()
    {
        SearchedWindow window(*m_host, m_xml, 1);
        window.showGroup("DeviceControl");
        window.type("\u66dd\u5149"_s); // exposure
        QCOMPARE(window.shown(), QStringList("ExposureTime"_s));
        const ORXPropertyTreeItem* item = window.item("ExposureTime");
        QVERIFY(item->getHighlightSerachText().contains("\u66dd\u5149</span>"_s));
        // Node names are found in any language, English display names in English only.
        window.type("exposuretime"_s);
        QCOMPARE(window.shown(), QStringList("ExposureTime"_s));
        window.type("exposure time"_s);
        QVERIFY(window.shown().isEmpty());
        window.widget()->SetLanguage(0);
        QVERIFY(window.box()->text().isEmpty());
        QCOMPARE(window.shownGroup(), "DeviceControl"_s);
    }

    void searchTypedDuringTheFirstRead()
    {
        m_host->setLatencyMs(5);
        OpenedWindow window(*m_host, m_xml);
        auto* box = window.column()->findChild<QLineEdit*>("FeatureSearch"_s);
        QVERIFY(!window.tree()->HadUpdatedOnce());
        // The display name, with its blank, is the description's.
        QTest::keyClicks(box, "exposure time"_s);
        QCOMPARE(window.groups()->allHits(), 2); // the common page shows it again
        QVERIFY(window.waitForFirstRead());
        QCOMPARE(window.groups()->allHits(), 2);
        QCOMPARE(nodeName(window.groups()->currentIndex()), "AcquisitionControl"_s);
    }

    // Without a search that goes elsewhere, the empty favourites are left when the camera was read.
    void aSearchWithoutHitsStaysAtTheFavorites()
    {
        m_host->setLatencyMs(5);
        const OpenedWindow window(*m_host, m_xml);
        auto* box = window.column()->findChild<QLineEdit*>("FeatureSearch"_s);
        QTest::keyClicks(box, "nothing"_s);
        const QModelIndex favorites =
            window.groupModel()->groupIndex(0, window.tree()->rootItem()->child(0));
        window.groups()->OnChangedIndex(favorites);
        QVERIFY(!window.tree()->HadUpdatedOnce());
        QVERIFY(window.waitForFirstRead());
        QCOMPARE(window.groups()->currentIndex(), favorites);
    }
};

OBFT_TEST_MAIN(TestSearch)
#include "tst_search.moc"
