// SPDX-License-Identifier: Apache-2.0
#include "CameraDescription.h"
#include "device/ReentrancyScope.h"
#include "main/ORXFeatureToolBar.h"
#include "model/ORXPropertyTreeModel.h"
#include "pages/ORXCommonFeature.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "support/OpenedWindow.h"
#include "support/Periods.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
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

class TestORXMainFeatureWidget : public DescribedWindowTest<cameraDescription>
{
    Q_OBJECT

private slots:
    void theTitleAndTheToolBar()
    {
        m_host->set("DeviceUserID"_s, FakeHost::textFeature("left camera"));
        const ReadWindow window(*m_host, m_xml);
        const auto* title = window.widget()->findChild<ZELCustomDockTitleBar*>();
        QTRY_COMPARE(title->cTitleText(), "left camera"_s);
        QCOMPARE(window.widget()->windowTitle(), "Test camera"_s);
        auto* bar = window.widget()->findChild<ORXFeatureToolBar*>();
        auto* level = bar->findChild<QComboBox*>();
        QSignalSpy told(bar, &ORXFeatureToolBar::SigToolBarBtnClicked);
        for (const char* name : {"ORXFeatureLangue", "ORXFeatureSave", "ORXFeatureRefresh"})
            QCOMPARE(bar->findChild<QPushButton*>(QLatin1String(name))->focusPolicy(), Qt::NoFocus);
        m_host->clearCalls();
        bar->findChild<QPushButton*>("ORXFeatureRefresh"_s)->click();
        QCOMPARE(m_host->count("invalidate"_s), 1);
        window.widget()->OnToolBarBtnClicked(90); // nobody's
        QCOMPARE(m_host->count("invalidate"_s), 1);
        auto* language = bar->findChild<QPushButton*>("ORXFeatureLangue"_s);
        const QImage toChinese = language->grab().toImage();
        language->click();
        QVERIFY(language->grab().toImage() != toChinese);
        language->click();
        QCOMPARE(language->grab().toImage(), toChinese);

        QCOMPARE(level->currentIndex(), 1);
        level->setCurrentIndex(0);
        QTRY_VERIFY(window.item("ExposureMode")->visible());
        const int before = int(told.count());
        // What the host or the language changes is shown, and not told.
        OBDeviceControl::SetUserLevel(1);
        window.widget()->OnUserLeverChanged();
        QCOMPARE(level->currentIndex(), 1);
        OBDeviceControl::SetUserLevel(0);
        window.widget()->SetLanguage(1);
        window.widget()->SetLanguage(0);
        QCoreApplication::processEvents();
        QCOMPARE(level->currentIndex(), 0);
        QCOMPARE(level->count(), 2);
        QCOMPARE(told.count(), before);
        window.widget()->SetTitleVisible(false);
        QVERIFY(!window.widget()->cIsTitleVisible());
    }

    void removedCameraLeavesAnEmptyWindow()
    {
        const ReadWindow window(*m_host, m_xml);
        const QPointer<ORXFeatureGroup> group = window.column();
        window.widget()->removeFeatureTree(1);
        QVERIFY(group.isNull());
        QCOMPARE(window.widget()->CurrentCameraID(), -1);
        QVERIFY(!window.widget()->hasFeatureTree(1));
        // What stands in until a camera comes is made when it is seen.
        QVERIFY(window.widget()->hasFeatureTree(-1));
        QVERIFY(window.widget()->featureGroup(-1)->isVisible());
        // What is left answers, and does nothing.
        window.widget()->OnToolBarBtnClicked(94);
        window.widget()->onTabIndexChange(1);
        window.widget()->StartUpdateThread();
        const qint64 calls = m_host->callCount();
        QVERIFY(twentyPeriodsPass());
        QCOMPARE(m_host->callCount(), calls);
    }

    void eachWindowHasItsOwnCamera()
    {
        QPointer<QWidget> released;
        std::unique_ptr<ReadWindow> window;
        {
            const ReentrancyScope callOfTheHost; // keeps the released window until it ends
            released = OpenedWindow(*m_host, m_xml).widget();
            window = std::make_unique<ReadWindow>(*m_host, m_xml);
            QVERIFY(released);
        }
        QTRY_VERIFY(!released);
        QVERIFY(window->widget()->hasFeatureTree(1));
        QCOMPARE(window->widget()->CurrentCameraID(), 1);
        // Nor do groups that come and go where no camera is shown touch the tabs.
        const auto* tab = window->widget()->findChild<QPushButton*>("FeatureTab0"_s);
        QVERIFY(tab->isEnabled());
        emit window->widget()->featureGroup(-1)->groupView()->SigPageShown(0, false);
        QVERIFY(tab->isEnabled());
    }

    void shownTabAndMissingCameraDoNothing()
    {
        const auto enabledTools = [] {
            QStringList names;
            for (const auto* button :
                 ORXMainFeatureWidget::instance(nullptr)->findChildren<QPushButton*>()) {
                if (button->isEnabled() && button->objectName().startsWith("ORXFeature"_s))
                    names.append(button->objectName());
            }
            return names;
        };
        OB_FT_Init(m_xml.constData(), nullptr, nullptr);
        ORXMainFeatureWidget::instance(nullptr)->onTabIndexChange(1);
        QCOMPARE(enabledTools(), QStringList("ORXFeatureLangue"_s));
        OB_FT_Start(nullptr, 0);
        QVERIFY(ORXMainFeatureWidget::instance(nullptr)->featureTree(-1, false)->isVisible());
        OB_FT_Release();

        const ReadWindow window(*m_host, m_xml);
        QCOMPARE(enabledTools().size(), 3);
        m_host->clearCalls();
        window.widget()->onTabIndexChange(0);
        for (const int tab : {4, -1}) {
            window.widget()->onTabIndexChange(tab);
            QVERIFY(!window.widget()->getItemByName(
                "Width"_s, static_cast<ORXMainFeatureWidget::FeatureTabIndex>(tab)));
        }
        QCOMPARE(m_host->count("invalidate"_s), 0);
        // Coming back to the tree reads it anew.
        window.widget()->onTabIndexChange(1);
        m_host->clearCalls();
        window.widget()->onTabIndexChange(0);
        QTRY_VERIFY(m_host->count("get Width"_s) > 0);
        // A page takes over what the tree may do, as after a reset of the camera.
        window.tree()->setIsCanEdit(false);
        window.widget()->onTabIndexChange(1);
        QVERIFY(!window.widget()->findChild<ORXCommonFeature*>()->isCanEdit());
    }

    void aGroupStartsAtItsTop()
    {
        using namespace DescriptionBuilder;
        const int kRows = 60;
        QString elements = category("Root"_s, words("FirstControl SecondControl"));
        for (const char* name : {"First", "Second"}) {
            QStringList features;
            for (int i = 0; i < kRows; ++i) {
                features.append(QString::fromLatin1(name) + QString::number(i));
                elements += node("Integer"_s, features.last());
            }
            elements += category(QString::fromLatin1(name) + "Control"_s, features);
        }
        const QByteArray xml = wrap(elements);
        m_host->serve(xml);
        const ReadWindow window(*m_host, xml);
        const QScrollBar* bar = window.view()->verticalScrollBar();
        for (const char* next : {"SecondControl", "FirstControl"}) {
            window.view()->scrollToBottom();
            QVERIFY(bar->value() > 0);
            // Choosing the shown one once more leaves it where it is.
            window.groups()->OnChangedIndex(window.groups()->currentIndex());
            QVERIFY(bar->value() > 0);
            window.showGroup(next);
            QCoreApplication::processEvents();
            QCOMPARE(bar->value(), 0);
        }
    }

    void tabsShowTheirWords()
    {
        for (const int language : {0, 1}) {
            OpenedWindow window(*m_host, m_xml, language, QSize());
            QCOMPARE(window.widget()->width(), 516);
            OB_FT_SetWidgetSize(516, 400);
            QCOMPARE(window.widget()->size(), QSize(516, 400));
            QCoreApplication::processEvents();
            for (int i = 0; i < 4; ++i) {
                const auto* tab = window.widget()->findChild<QPushButton*>("FeatureTab%1"_s.arg(i));
                QCOMPARE(tab->text(), tab->toolTip());
                QVERIFY2(tab->width() >= tab->sizeHint().width(), qPrintable(tab->text()));
            }
            const QString cut = window.widget()->GetTabCutString("w"_s.repeated(60));
            QVERIFY(cut.size() < 60 && cut.endsWith(QChar(0x2026)));
            QCOMPARE(window.widget()->GetTabCutString("Image"_s), "Image"_s);
        }
    }

    // Searching in the side column, by the keyboard -----------------------------------------------
    void hitsAreShownAndCounted()
    {
        SearchedWindow window(*m_host, m_xml);
        window.showGroup("AnalogControl");
        QSignalSpy searched(window.column(), &ORXFeatureGroup::SigSearched);
        window.type("gain"_s);
        QCOMPARE(window.shown(), words("Gain GainAuto"));
        QCOMPARE(window.hits("AnalogControl"), 2);
        QCOMPARE(window.hits("AcquisitionControl"), 0);
        QCOMPARE(window.groupModel()->hitCount(), 4); // the common page shows both again
        const ORXPropertyTreeItem* gain = window.item("Gain");
        QVERIFY(gain->getHighlightSerachText().contains("Gain</span>"_s));
        // The same text is not searched again.
        window.box()->setText("  gain "_s);
        QTest::keyClick(window.box(), Qt::Key_Return);
        QCOMPARE(searched.count(), 1);
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
        // It stays where the user went.
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

    void aLinkEndsTheSearchThatHidesItsFeature()
    {
        SearchedWindow window(*m_host, m_xml);
        ORXFeatureTree* tree = window.widget()->featureTree(1, false);
        window.type("level"_s);
        emit tree->SigShowFeature("BlackLevel"_s);
        QCOMPARE(nodeName(window.view()->currentIndex()), "BlackLevel"_s);
        QCOMPARE(window.box()->text(), "level"_s);
        emit tree->SigShowFeature("ExposureTime"_s);
        QCOMPARE(nodeName(window.view()->currentIndex()), "ExposureTime"_s);
        QCOMPARE(window.box()->text(), QString());
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

OBFT_TEST_MAIN(TestORXMainFeatureWidget)
#include "tst_orxmainfeaturewidget.moc"
