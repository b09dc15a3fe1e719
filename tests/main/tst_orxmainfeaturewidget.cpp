// SPDX-License-Identifier: Apache-2.0
#include "CameraDescription.h"
#include "pages/ORXCommonFeature.h"
#include "styledctl/ZELCustomDockTitleBar.h"
#include "support/OpenedWindow.h"
#include "support/Rows.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>

class TestORXMainFeatureWidget : public OpenedWindowTest
{
    Q_OBJECT

public:
    TestORXMainFeatureWidget()
        : OpenedWindowTest(cameraDescription())
    {
    }

private:
    QString dockTitle(const ORXMainFeatureWidget* widget) const
    {
        return widget->findChild<ZELCustomDockTitleBar*>()->cTitleText();
    }

private slots:
    void unknownIndexesDoNothing()
    {
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        m_host->clearCalls();
        window.widget()->OnToolBarBtnClicked(90);
        QCOMPARE(m_host->count("invalidate"_s), 0);
        window.widget()->OnToolBarBtnClicked(94);
        QCOMPARE(m_host->count("invalidate"_s), 1);
        const QString width = "Width"_s;
        QCOMPARE(window.widget()->getItemByName(width, ORXMainFeatureWidget::WholeTreeTab),
                 window.tree()->propertyItemByName(width));
        for (const int tab : {4, -1})
            QVERIFY(!window.widget()->getItemByName(
                width, static_cast<ORXMainFeatureWidget::FeatureTabIndex>(tab)));
    }

    void shownTabAndMissingTreeDoNothing()
    {
        OB_FT_Init(m_xml.constData(), nullptr, nullptr);
        ORXMainFeatureWidget::instance(nullptr)->onTabIndexChange(1);
        OB_FT_Release();

        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        m_host->clearCalls();
        window.widget()->onTabIndexChange(0);
        window.widget()->onTabIndexChange(4);
        window.widget()->onTabIndexChange(-1);
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

    void tabsWithoutContentAreDisabled()
    {
        OpenedWindow window(*m_host, m_xml);
        const auto tabs =
            window.widget()->findChildren<QPushButton*>(QRegularExpression("^FeatureTab\\d$"_s));
        QCOMPARE(tabs.size(), 4);
        QVERIFY(tabs.at(0)->isEnabled());
        QVERIFY(tabs.at(0)->isChecked());
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
        OpenedWindow window(*m_host, xml);
        QVERIFY(window.waitForFirstRead());
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
        QStringList offered;
        for (QAction* action : menu->actions()) {
            if (action->isVisible() && action->isEnabled())
                offered += action->text();
        }
        QCOMPARE(offered.first(), "Remove All"_s);
        menu->actions().at(2)->trigger();
        QVERIFY(OBDeviceControl::GetFavoritesFeatureMap()->isEmpty());
        QCOMPARE(window.tree()->rootItem()->child(0)->childCount(), 0);
    }

    void titleIsTheUsersName()
    {
        m_host->set("DeviceUserID"_s, FakeHost::textFeature("left camera"));
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        QTRY_COMPARE(dockTitle(window.widget()), "left camera"_s);
        QCOMPARE(window.widget()->windowTitle(), "Test camera"_s);
        window.widget()->SetTitleVisible(false);
        QVERIFY(!window.widget()->cIsTitleVisible());
    }

    void removedCameraLeavesAnEmptyWindow()
    {
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
        const QPointer<ORXFeatureGroup> group = window.column();
        window.widget()->removeFeatureTree(1);
        QVERIFY(group.isNull());
        QCOMPARE(window.widget()->CurrentCameraID(), -1);
        QVERIFY(!window.widget()->hasFeatureTree(1));
        // What is left answers, and does nothing.
        window.widget()->OnToolBarBtnClicked(94);
        window.widget()->onTabIndexChange(1);
        window.widget()->StartUpdateThread();
        const qint64 calls = m_host->callCount();
        QTest::qWait(50);
        QCOMPARE(m_host->callCount(), calls);
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
        QFETCH(bool, released);
        QFETCH(QByteArray, feature);
        QFETCH(QString, written);
        OpenedWindow window(*m_host, m_xml);
        QVERIFY(window.waitForFirstRead());
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

    void tabTextsAreCut()
    {
        OpenedWindow window(*m_host, m_xml);
        const QString longText(60, QLatin1Char('w'));
        const QString cut = window.widget()->GetTabCutString(longText);
        QVERIFY(cut.size() < longText.size());
        QVERIFY(cut.endsWith(QChar(0x2026)));
        QCOMPARE(window.widget()->GetTabCutString("Image"_s), "Image"_s);
        QCOMPARE(window.widget()->sizeHint().width(), 516);
    }
};

OBFT_TEST_MAIN(TestORXMainFeatureWidget)
#include "tst_orxmainfeaturewidget.moc"
