// SPDX-License-Identifier: Apache-2.0
// The common features page in the window, on the simulated camera.
#include "cameras/CameraError.h"
#include "pages/DemoPageTest.h"

namespace {

constexpr int kPage = ORXMainFeatureWidget::CommonTab;
constexpr char kCommand[] = "Custom_BalanceCommand";
constexpr char kRatio[] = "Custom_BalanceRatio";
constexpr char kSelector[] = "Custom_BalanceRatioSelector";

} // namespace

class TestORXCommonFeature : public DemoPageTest
{
    Q_OBJECT

private:
    // "command", "ratio" (with the selector) or "", by the rows of the page.
    QString shownBalance() const
    {
        m_window->show(kPage, "Brightness");
        const bool ratio = m_window->isRowShown(kPage, kRatio);
        if (ratio != m_window->isRowShown(kPage, kSelector))
            return "only one of ratio and selector"_s;
        const QString command = m_window->isRowShown(kPage, kCommand) ? "command"_s : QString();
        return command + (ratio ? "ratio"_s : QString());
    }

private slots:
    void editOnOnePageShowsOnTheOther_data()
    {
        const Rows<int, int> row("edited", "other");
        row("on the page", kPage, kTree);
        row("in the whole tree", kTree, kPage);
    }

    void editOnOnePageShowsOnTheOther()
    {
        QFETCH(int, edited);
        QFETCH(int, other);
        open();
        QVERIFY(m_window->enter(edited, "Height", "600"_s));
        QTRY_COMPARE(read("Height"), 600);
        QTRY_COMPARE(m_window->shown(other, "Height"), "600"_s);
        QVERIFY(m_window->choose(edited, "ExposureAuto", "Continuous"_s));
        QTRY_COMPARE(m_window->shown(other, "ExposureAuto"), "Continuous"_s);
        // What the write locks is locked on both.
        QTRY_VERIFY(!m_window->isEnabled(edited, "ExposureTime"));
        QTRY_VERIFY(!m_window->isEnabled(other, "ExposureTime"));
        QVERIFY(m_window->click(edited, "AcquisitionFrameRateEnable"));
        QTRY_COMPARE(m_window->shown(other, "AcquisitionFrameRateEnable"), "unchecked"_s);
        QTRY_VERIFY(!m_window->isEnabled(other, "AcquisitionFrameRate"));
    }

    // White balance -------------------------------------------------------------------------------
    void whiteBalanceFollowsTheCamera_data()
    {
        const Rows<QByteArray, QByteArray, QString> row("automatic", "enabled", "shown");
        const QString command = "command"_s;
        const QString ratio = "ratio"_s;
        row("off, nothing enabled", "0", "", command);
        row("off, hue", "0", "HueEnable", ratio);
        row("off, saturation", "0", "SaturationEnable", ratio);
        row("off, gamma", "0", "GammaEnable", ratio);
        row("off, colour transformation", "0", "ColorTransformationEnable", ratio);
        row("once", "1", "", "");
        row("continuous", "2", "", "");
        row("continuous, gamma", "2", "GammaEnable", "");
    }

    // By what the camera says when the window opens, and again by what changes behind its back.
    void whiteBalanceFollowsTheCamera()
    {
        QFETCH(QByteArray, automatic);
        QFETCH(QByteArray, enabled);
        QFETCH(QString, shown);
        const auto set = [&](const QByteArray& entry, const char* on) {
            QCOMPARE(write("BalanceWhiteAuto", entry), 0);
            if (!enabled.isEmpty())
                QCOMPARE(write(enabled, on), 0);
        };
        set(automatic, "1");
        open();
        QTRY_COMPARE(shownBalance(), shown);
        const bool startsWithCommand = shown == QLatin1String("command");
        set(startsWithCommand ? "2" : "0", "0");
        QVERIFY(m_window->refresh());
        QTRY_COMPARE(shownBalance(), startsWithCommand ? QString() : "command"_s);
        set(automatic, "1");
        QVERIFY(m_window->refresh());
        QTRY_COMPARE(shownBalance(), shown);
    }

    void failedReadLeavesWhatIsShown()
    {
        open();
        QTRY_COMPARE(shownBalance(), "command"_s);
        m_camera->fail("BalanceWhiteAuto", CameraError::Timeout);
        QVERIFY(m_window->refresh());
        QVERIFY(m_window->click(kPage, "GammaEnable"));
        QTRY_COMPARE(read("GammaEnable"), 1);
        QVERIFY(m_window->refresh());
        QApplication::processEvents();
        QCOMPARE(shownBalance(), "command"_s);
        m_camera->fail("BalanceWhiteAuto", 0);
        QVERIFY(m_window->refresh());
        QVERIFY(m_window->click(kPage, "HueEnable"));
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        // An automatic that is not there hides all.
        for (const bool hidden : {true, false}) {
            m_camera->hide("BalanceWhiteAuto", hidden);
            QVERIFY(m_window->refresh());
            QTRY_COMPARE(shownBalance(), hidden ? QString() : "ratio"_s);
        }
    }

    void enableThatCannotBeReadCountsAsOff_data()
    {
        const Rows<bool> row("fails");
        row("its read fails", true);
        row("it is not there", false);
    }

    void enableThatCannotBeReadCountsAsOff()
    {
        QFETCH(bool, fails);
        QCOMPARE(write("GammaEnable", "1"), 0);
        open();
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        if (fails)
            m_camera->fail("GammaEnable", CameraError::Timeout);
        else
            m_camera->hide("GammaEnable", true);
        QVERIFY(m_window->refresh());
        // Any change that concerns the rule has it decided anew.
        QVERIFY(m_window->choose(kPage, "BalanceWhiteAuto", "Continuous"_s));
        QTRY_COMPARE(shownBalance(), QString());
        QVERIFY(m_window->choose(kPage, "BalanceWhiteAuto", "Off"_s));
        QTRY_COMPARE(shownBalance(), "command"_s);
    }

    void missingPartnerHidesAll_data()
    {
        const Rows<QString> row("lacking");
        for (const char* name : {"BalanceRatio", "BalanceRatioSelector", "BalanceWhiteAuto"})
            row.of(name);
    }

    void missingPartnerHidesAll()
    {
        QFETCH(QString, lacking);
        open({lacking});
        QVERIFY(m_window->click(kPage, "GammaEnable"));
        QTRY_COMPARE(read("GammaEnable"), 1);
        QVERIFY(m_window->refresh());
        QApplication::processEvents();
        QCOMPARE(shownBalance(), QString());
    }

    void ratioAndSelectorAreCopies()
    {
        QCOMPARE(write("GammaEnable", "1"), 0);
        QCOMPARE(write("BalanceRatioSelector", "2"), 0);
        QCOMPARE(write("BalanceRatio", "1234"), 0);
        open();
        m_camera->forget();
        // Selector and ratio, on the page and in the whole tree.
        const auto shown = [this] {
            QStringList texts;
            for (const char* name : {kSelector, kRatio})
                texts += m_window->shown(kPage, name);
            for (const char* name : {"BalanceRatioSelector", "BalanceRatio"})
                texts += m_window->shown(kTree, name);
            return texts;
        };
        QTRY_COMPARE(shown(), words("Blue 1234 Blue 1234"));
        // The range, too: what is beyond it is brought back before it is sent.
        QVERIFY(m_window->enter(kPage, kRatio, "99999"_s));
        QTRY_COMPARE(shown(), words("Blue 16376 Blue 16376"));
        QVERIFY(m_window->choose(kPage, kSelector, "Green"_s));
        QTRY_COMPARE(shown(), words("Green 1024 Green 1024"));
        QVERIFY(m_window->choose(kTree, "BalanceRatioSelector", "Red"_s));
        QTRY_COMPARE(shown(), words("Red 1536 Red 1536"));
        QVERIFY(m_window->enter(kTree, "BalanceRatio", "777"_s));
        QTRY_COMPARE(shown(), words("Red 777 Red 777"));
        QCOMPARE(m_camera->writes(), words("BalanceRatio=16376 BalanceRatioSelector=1 "
                                           "BalanceRatioSelector=0 BalanceRatio=777"));
    }

    void refusedRatioIsShownAndTakenBack()
    {
        QCOMPARE(write("GammaEnable", "1"), 0);
        open();
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1536"_s);
        MessageGuard::expectMessage("Read Feature Failed"_s);
        QVERIFY(m_window->show(kPage, kRatio));
        m_camera->fail("BalanceRatio", CameraError::NotWritable);
        QVERIFY(m_window->enter(kPage, kRatio, "2000"_s));
        QTRY_VERIFY(message().startsWith("Node 'BalanceRatio':failed to save value '2000'"_s));
        QTRY_COMPARE(m_window->shown(kPage, kRatio), "1536"_s);
    }

    void commandBalancesOnce()
    {
        open();
        QTRY_COMPARE(shownBalance(), "command"_s);
        m_camera->forget();
        QVERIFY(m_window->click(kPage, kCommand));
        QCOMPARE(m_camera->writes(), QStringList("BalanceWhiteAuto=1"_s));
        // The button goes while it has the focus.
        QTRY_VERIFY(!m_window->isRowShown(kPage, kCommand));
        QTRY_COMPARE(shownBalance(), QString());
        // The camera ends it by itself and has other ratios then.
        m_clock->advance(std::chrono::seconds(2));
        QTRY_COMPARE_WITH_TIMEOUT(shownBalance(), "command"_s, PageWindow::kPatienceMs);
        QTRY_COMPARE(m_window->shown(kPage, "BalanceWhiteAuto"), "Off"_s);
        QTRY_VERIFY(m_window->shown(kTree, "BalanceRatio") != QLatin1String("1536"));
    }

    void ownTextsSurviveTheCopies()
    {
        QCOMPARE(write("GammaEnable", "1"), 0);
        open({}, 1);
        QTRY_COMPARE(shownBalance(), "ratio"_s);
        const auto text = [&](const char* name) {
            return m_window->row(kPage, name).data().toString();
        };
        QCOMPARE(text(kRatio), "白平衡系数"_s);
        QCOMPARE(m_window->shown(kPage, kSelector), "红"_s);
        m_window->widget()->SetLanguage(0);
        QCOMPARE(text(kRatio), "Balance Ratio"_s);
        QCOMPARE(text(kSelector), "Balance Ratio Selector"_s);
        QTRY_COMPARE(m_window->shown(kPage, kSelector), "Red"_s);
    }

    void cameraRemovedWhileReading()
    {
        open();
        for (int i = 0; i < 5; ++i) {
            QVERIFY(m_window->show(kPage, "Width"));
            OB_FT_UpdateFeatures();
            m_window->widget()->removeFeatureTree(1);
            QCOMPARE(m_window->page(kPage)->getRootItem(1, false), nullptr);
            m_window->widget()->CreateFeature();
            m_window->widget()->StartUpdateThread();
            QTRY_VERIFY(m_window->tree()->HadUpdatedOnce());
        }
        QTRY_COMPARE(shownBalance(), "command"_s);
    }
};

OBFT_TEST_MAIN(TestORXCommonFeature)
#include "tst_orxcommonfeature.moc"
