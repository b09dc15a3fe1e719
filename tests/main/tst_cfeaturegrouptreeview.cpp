// SPDX-License-Identifier: Apache-2.0
#include "main/CFeatureGroupTreeView.h"

#include "CameraDescription.h"
#include "basetools/ORXInterface.h"
#include "model/CTreeItemValue.h"
#include "model/IORXFeatureNotify.h"
#include "styledctl/ZELCustom.h"
#include "support/LoadedDescription.h"
#include "support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using Item = ORXPropertyTreeItem;

namespace {

constexpr qint64 kCamera = 1;
constexpr int kCommonTab = 1;

// A camera's tree and a curated page that borrows two of its features, each in a group of its own.
class Pages
{
public:
    Pages()
        : description(cameraDescription())
        , common(nullptr, Item::CommonPage)
    {
        description.root.setItemType(Item::CustomItem);
        common.setItemType(Item::CustomItem);
        for (const char* name : {"Width", "Gain"}) {
            auto* group = new Item(&common, Item::CommonPage);
            group->value()->setNodeName("Group"_s + QString::fromLatin1(name));
            item(name)->setParent(group, Item::CommonPage);
        }
        view = std::make_unique<CFeatureGroupTreeView>(
            QList<Item*>{&description.root, &common, nullptr, nullptr}, kCamera, nullptr);
        tester = std::make_unique<QAbstractItemModelTester>(
            view->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        view->resize(195, 500);
        view->show();
    }
    ~Pages()
    {
        tester.reset();
        view.reset();
        for (const char* name : {"Width", "Gain"})
            item(name)->setParent(nullptr, Item::CommonPage);
    }
    Item* item(const char* name) const { return description.item(name); }
    QModelIndex page(int row) const { return view->model()->index(row, 0); }
    QModelIndex group(int page, int row) const
    {
        return view->model()->index(row, 0, this->page(page));
    }
    QString current() const
    {
        const Item* item = CFeatureGroupModel::itemFromIndex(view->currentIndex());
        return item ? item->value()->nodeName(0) : QString();
    }
    // The page that is open, and the current group.
    QString state() const
    {
        QString open;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            if (view->isExpanded(page(row)))
                open += QString::number(row);
        }
        return open + QLatin1Char(' ') + current();
    }
    // Pages and groups that are hidden.
    QStringList hidden() const
    {
        QStringList names;
        for (int page = 0; page < view->model()->rowCount(); ++page) {
            if (view->isRowHidden(page, {}))
                names += "page"_s + QString::number(page);
            for (int row = 0; row < view->model()->rowCount(this->page(page)); ++row) {
                if (view->isRowHidden(row, this->page(page)))
                    names += groupName(group(page, row));
            }
        }
        return names;
    }
    static QString groupName(const QModelIndex& group)
    {
        return CFeatureGroupModel::itemFromIndex(group)->value()->nodeName(0);
    }

    LoadedDescription description;
    Item common;
    std::unique_ptr<CFeatureGroupTreeView> view;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

// Rows of the tree's page.
enum TreeGroup { Favorites = 0, Device = 1, Analog = 2, Acquisition = 3 };

} // namespace

class TestCFeatureGroupTreeView : public GuardedTest
{
    Q_OBJECT

private slots:
    void twoLevelsInTheInterfaceLanguage()
    {
        Pages pages;
        const QAbstractItemModel* model = pages.view->model();
        QCOMPARE(model->rowCount(), 2);
        QCOMPARE(model->rowCount(pages.page(0)), 4);
        QCOMPARE(model->rowCount(pages.group(0, Analog)), 0);
        CTreeItemValue* value = pages.item("AnalogControl")->value();
        value->setTranslateName("\u6a21\u62df"_s);
        QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
        ORXInterface::setLanguage("CH"_s);
        pages.view->retranslate();
        const QVariant name = pages.group(0, Analog).data();
        const QVariant toolTip = pages.group(0, Analog).data(Qt::ToolTipRole);
        ORXInterface::setLanguage("ENG"_s);
        QCOMPARE(name.toString(), "\u6a21\u62df"_s);
        QCOMPARE(toolTip, name);
        QCOMPARE(pages.group(0, Analog).data().toString(), "AnalogControl"_s);
        QCOMPARE(changed.count(), 4); // each page, and the groups of each
        QVERIFY(!pages.group(0, Analog).data(Qt::CheckStateRole).isValid());
    }

    void pagesOpenAndTurnToTheirGroups()
    {
        Pages pages;
        QSignalSpy tab(pages.view.get(), &CFeatureGroupTreeView::SigTabChanged);
        const auto click = [&](bool arrow) {
            const QRect row = pages.view->visualRect(pages.page(0));
            QTest::mouseClick(pages.view->viewport(), Qt::LeftButton, {},
                              arrow ? QPoint(row.right() - 9, row.center().y()) : row.center());
        };
        pages.view->OnChangedIndex(pages.group(0, Analog));
        QCOMPARE(pages.state(), "0 AnalogControl"_s);
        click(false);
        QCOMPARE(pages.state(), "0 AnalogControl"_s);
        click(true);
        QCOMPARE(pages.state().at(0), QChar(u' '));
        QVERIFY(pages.item("AnalogControl")->groupVisible()); // what is shown stays
        click(true);
        QCOMPARE(pages.state(), "0 AnalogControl"_s);
        pages.view->OnChangedIndex(pages.page(1));
        QCOMPARE(pages.state(), "1 GroupWidth"_s);
        QCOMPARE(tab.last().at(0).toInt(), kCommonTab);
        click(false);
        QCOMPARE(pages.state(), "0 AnalogControl"_s);
        QCOMPARE(tab.last().at(0).toInt(), 0);
        pages.view->expand(pages.page(1));
        QCOMPARE(pages.state(), "1 GroupWidth"_s);
        pages.view->showTab(0);
        QCOMPARE(pages.state(), "0 AnalogControl"_s);
    }

    void onlyTheSelectedGroupShows()
    {
        Pages pages;
        const auto shown = [&pages] {
            QStringList names;
            for (const char* name : {"AnalogControl", "Gain", "BlackLevel", "DeviceReset"}) {
                if (pages.item(name)->groupVisible())
                    names += QString::fromLatin1(name);
            }
            return names;
        };
        pages.view->OnChangedIndex(pages.group(0, Analog));
        QCOMPARE(shown(), words("AnalogControl Gain BlackLevel"));
        pages.view->OnChangedIndex(pages.group(0, Device));
        QCOMPARE(shown(), words("DeviceReset"));
        pages.view->activateWindow();
        pages.view->setFocus();
        QTRY_VERIFY(pages.view->hasFocus());
        QTest::keyClick(pages.view.get(), Qt::Key_Down);
        QCOMPARE(shown(), words("AnalogControl Gain BlackLevel"));
    }

    // The favourites never are.
    void emptyGroupsAndPagesAreHidden()
    {
        Pages pages;
        pages.item("Width")->setVisible(false, kCamera);
        QCOMPARE(pages.hidden(), words("GroupWidth"));
        pages.item("Gain")->setVisible(false, kCamera);
        // In the tree both groups still have features to show.
        QCOMPARE(pages.hidden(), words("page1 GroupWidth GroupGain"));
        pages.item("Gain")->setVisible(true, kCamera);
        QCOMPARE(pages.hidden(), words("GroupWidth"));
        auto* favorite = new Item(pages.description.root.child(Favorites), Item::FeatureTreePage);
        favorite->copy(pages.item("Gain"));
        favorite->setItemType(Item::FavoriteItem);
        favorite->registerView(pages.view.get());
        favorite->setVisible(false, kCamera);
        for (const char* name : {"DeviceUserID", "DeviceReset", "Gain", "GainAuto", "BlackLevel",
                                 "ExposureTime", "ExposureMode", "Width", "AcquisitionFrameCount"})
            pages.item(name)->setVisible(false, kCamera);
        QCOMPARE(pages.hidden(), words("DeviceControl AnalogControl AcquisitionControl page1 "
                                       "GroupWidth GroupGain"));
    }

    void aPageOpensWithAShownGroup()
    {
        Pages pages;
        pages.item("Width")->setVisible(false, kCamera);
        pages.view->OnChangedIndex(pages.page(1));
        QCOMPARE(pages.current(), "GroupGain"_s);
        QVERIFY(pages.item("Gain")->groupVisible());
        // The one that was chosen last is not forgotten.
        pages.item("Width")->setVisible(true, kCamera);
        QCOMPARE(pages.current(), "GroupGain"_s);
        pages.view->OnChangedIndex(pages.page(0));
        pages.view->OnChangedIndex(pages.page(1));
        QCOMPARE(pages.current(), "GroupWidth"_s);
    }

    void theShownGroupGoes()
    {
        Pages pages;
        pages.view->OnChangedIndex(pages.group(0, Analog));
        for (const char* name : {"Gain", "GainAuto", "BlackLevel"})
            pages.item(name)->setVisible(false, kCamera);
        // Not to the favourites, which are none.
        QTRY_COMPARE(pages.current(), "DeviceControl"_s);
        QVERIFY(pages.item("DeviceReset")->groupVisible());
        auto* favorite = new Item(pages.description.root.child(Favorites), Item::FeatureTreePage);
        favorite->setItemType(Item::FavoriteItem);
        for (const char* name : {"DeviceUserID", "DeviceReset"})
            pages.item(name)->setVisible(false, kCamera);
        QTRY_COMPARE(CFeatureGroupModel::itemFromIndex(pages.view->currentIndex()),
                     pages.description.root.child(Favorites));
    }

    void otherCamerasDoNotCount()
    {
        Pages pages;
        int changed = 0;
        connect(pages.view.get(), &CFeatureGroupTreeView::SigChildVisibleChanged, this,
                [&changed] { ++changed; });
        pages.item("Width")->setVisible(false, kCamera + 1);
        QCOMPARE(changed, 0);
        pages.item("Width")->setVisible(true, kCamera);
        QCOMPARE(changed, 1);
    }

    void searchTellsEachShownItemOnce()
    {
        struct Recorder : IORXFeatureNotify
        {
            void itemVisibleChanged(qint64 cameraId, Item* item, bool visible) override
            {
                QCOMPARE(cameraId, kCamera);
                log += item->value()->nodeName(0) + (visible ? u'+' : u'-');
            }
            QStringList log;
        };
        Pages pages;
        pages.view->OnChangedIndex(pages.group(0, Analog));
        Recorder recorder;
        for (const char* name : {"Gain", "GainAuto", "BlackLevel", "Width"})
            pages.item(name)->registerView(&recorder);
        // Gain hangs in both pages. Rows that come or go are told before those that stay, and those
        // of a group that is not shown not at all.
        pages.view->SetSearchText("auto"_s);
        QCOMPARE(recorder.log, words("Gain- BlackLevel- GainAuto+"));
        recorder.log.clear();
        pages.view->SetSearchText("gain"_s);
        QCOMPARE(recorder.log, words("Gain+ GainAuto+"));
    }

    // Until the group is shown. What the shown group shows was seen.
    void aChangeLeavesADot_data()
    {
        const Rows<int, QString, QStringList> row("shown", "changed", "dotted");
        row("in another group", Analog, "ExposureTime", "AcquisitionControl");
        row("in the shown group", Acquisition, "ExposureTime", "");
        row("in the shown group and on another page", Analog, "Gain", "");
        row("on two pages", Device, "Gain", "AnalogControl GroupGain");
        row("below a branch", Device, "BlackLevel", "AnalogControl");
        row("of a feature that does not show", Analog, "ExposureMode", "");
    }

    void aChangeLeavesADot()
    {
        auto [shown, changed, dotted] = fetchRow<int, QString, QStringList>();
        Pages pages;
        const auto* model = static_cast<const CFeatureGroupModel*>(pages.view->model());
        const auto dots = [&] {
            QStringList names;
            for (int page = 0; page < model->rowCount(); ++page) {
                for (int row = 0; row < model->rowCount(pages.page(page)); ++row) {
                    const QModelIndex group = pages.group(page, row);
                    if (model->hasDot(group))
                        names.append(pages.groupName(group));
                }
            }
            return names;
        };
        pages.item("ExposureMode")->setVisible(false, kCamera);
        pages.view->OnChangedIndex(pages.group(0, shown));
        QSignalSpy told(model, &QAbstractItemModel::dataChanged);
        pages.view->noteChanges({pages.item(qPrintable(changed))});
        QCOMPARE(dots(), dotted);
        // Of each group and its page, and only for the first change.
        QCOMPARE(told.size(), 2 * dotted.size());
        pages.view->noteChanges({pages.item(qPrintable(changed))});
        QCOMPARE(told.size(), 2 * dotted.size());
        QCOMPARE(model->hasDot(pages.page(1)), dotted.contains("GroupGain"_s));

        pages.view->OnChangedIndex(pages.group(0, Analog));
        dotted.removeOne("AnalogControl"_s);
        QCOMPARE(dots(), dotted);
        pages.view->forgetChanges();
        QCOMPARE(dots(), QStringList());
    }

    void dotsAreSeen()
    {
        Pages pages;
        pages.view->OnChangedIndex(pages.group(0, Device));
        const auto shows = [&](const QModelIndex& row) {
            const QRect place = pages.view->visualRect(row);
            const QImage image = pages.view->viewport()->grab(place).toImage();
            const QColor accent = ZELCustom::getDataBaseColor("StyledCtlColor_Accent"_s);
            for (int x = image.width() / 2; x < image.width(); ++x) {
                if (image.pixelColor(x, image.height() / 2) == accent)
                    return true;
            }
            return false;
        };
        QVERIFY(!shows(pages.group(0, Analog)) && !shows(pages.page(1)));
        pages.view->noteChanges({pages.item("Gain")});
        QVERIFY(shows(pages.group(0, Analog)) && shows(pages.page(1)));
        QVERIFY(!shows(pages.page(0))); // its groups do
        QVERIFY(!shows(pages.group(0, Acquisition)));
        // A group that nobody can look at any more does not keep its page's dot.
        pages.item("Gain")->setVisible(false, kCamera);
        QTRY_VERIFY(!shows(pages.page(1)));
    }
};

OBFT_TEST_MAIN(TestCFeatureGroupTreeView)
#include "tst_cfeaturegrouptreeview.moc"
