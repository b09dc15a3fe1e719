// SPDX-License-Identifier: Apache-2.0
#include "CameraDescription.h"
#include "device/ReentrancyScope.h"
#include "main/ORXFeatureToolBar.h"
#include "pages/ORXCommonFeature.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "support/OpenedWindow.h"
#include "support/Periods.h"

#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

class TestORXMainFeatureWidget : public DescribedWindowTest<cameraDescription>
{
    Q_OBJECT

private:
    QString dockTitle(const ORXMainFeatureWidget* widget) const
    {
        return widget->findChild<ZELCustomDockTitleBar*>()->cTitleText();
    }

private slots:
    void theToolBar()
    {
        const ReadWindow window(*m_host, m_xml);
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

    void tabsShowTheirWords_data()
    {
        const Rows<int> row("language");
        row("English", 0);
        row("Chinese", 1);
    }

    void tabsShowTheirWords()
    {
        QFETCH(int, language);
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

    void theColumnsFavoritesHaveAMenu()
    {
        OpenedWindow window(*m_host, m_xml);
        const auto* menu = window.tree()->findChild<QMenu*>("FavoritesMenu"_s);
        const auto request = [&window](const QModelIndex& group) {
            emit window.groups()->customContextMenuRequested(
                window.groups()->visualRect(group).center());
        };
        OBDeviceControl::GetFavoritesFeatureMap()->append({"Gain"_s, "Gain"_s});
        window.tree()->GenerateFavoritesItems();
        request(window.group("DeviceControl"));
        QVERIFY(!menu->isVisible());
        const QModelIndex favorites =
            window.groupModel()->index(0, 0, window.groupModel()->pageIndex(0));
        request(favorites);
        QVERIFY(menu->isVisible());
        const QList<QAction*> actions = menu->actions();
        const auto offered =
            std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
                return action->isVisible() && action->isEnabled();
            });
        QCOMPARE((*offered)->text(), "Remove All"_s);
        (*offered)->trigger();
        QVERIFY(OBDeviceControl::GetFavoritesFeatureMap()->isEmpty());
        QCOMPARE(window.tree()->rootItem()->child(0)->childCount(), 0);
    }

    void titleIsTheUsersName()
    {
        m_host->set("DeviceUserID"_s, FakeHost::textFeature("left camera"));
        const ReadWindow window(*m_host, m_xml);
        QTRY_COMPARE(dockTitle(window.widget()), "left camera"_s);
        QCOMPARE(window.widget()->windowTitle(), "Test camera"_s);
        window.widget()->SetTitleVisible(false);
        QVERIFY(!window.widget()->cIsTitleVisible());
    }

    // However the window goes.
    void whatIsTypedIsWritten_data()
    {
        const Rows<bool, QByteArray, QString> row("released", "feature", "written");
        row("closed, float", false, "ExposureTime", "set ExposureTime 12");
        row("released, float", true, "ExposureTime", "set ExposureTime 12");
        row("closed, integer", false, "Width", "set Width 12");
        row("released, integer", true, "Width", "set Width 12");
    }

    void whatIsTypedIsWritten()
    {
        const auto [released, feature, written] = fetchRow<bool, QByteArray, QString>();
        const ReadWindow window(*m_host, m_xml);
        window.showGroup("AcquisitionControl");
        QWidget* editor = nullptr;
        QTRY_VERIFY(editor = window.view()->editorOf(window.item(feature)));
        QTRY_VERIFY(editor->isEnabled());
        window.widget()->activateWindow();
        editor->setFocus();
        QTRY_VERIFY(QApplication::focusWidget());
        QTest::keySequence(QApplication::focusWidget(), QKeySequence::SelectAll);
        QTest::keyClicks(QApplication::focusWidget(), "12"_s);
        QVERIFY(m_host->writes().isEmpty());
        if (released)
            OB_FT_Release();
        else
            OB_FT_Close();
        QCOMPARE(m_host->writes(), QStringList(written));
    }
};

OBFT_TEST_MAIN(TestORXMainFeatureWidget)
#include "tst_orxmainfeaturewidget.moc"
