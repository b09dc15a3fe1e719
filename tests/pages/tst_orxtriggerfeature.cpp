// SPDX-License-Identifier: Apache-2.0
// The trigger and IO page in the window, on the simulated camera.
#include "pages/DemoPageTest.h"
#include "support/Periods.h"

namespace {

constexpr int kPage = ORXMainFeatureWidget::TriggerTab;
constexpr char kTime[] = "Custom_AutoTrigTime";
constexpr char kEnable[] = "Custom_EnableAutoTrig";
constexpr char kTrigger[] = "TriggerSoftware";

} // namespace

// How the camera goes.
using End = std::function<void(PageWindow&)>;
Q_DECLARE_METATYPE(End)

class TestORXTriggerFeature : public DemoPageTest
{
    Q_OBJECT

private:
    int triggers() const { return m_camera->writesOf(kTrigger); }
    bool isOn() const { return m_window->shown(kPage, kEnable) == QLatin1String("checked"); }

    // Opens the window with the automatic trigger on.
    void openTriggering()
    {
        open();
        QVERIFY(m_window->enter(kPage, kTime, "1"_s));
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_VERIFY(triggers() > 0);
    }

private slots:
    void periodIsThePagesOwn()
    {
        open();
        m_camera->forget();
        QVERIFY(!isOn());
        QCOMPARE(m_window->row(kPage, kTime).data().toString(), "Auto Trigger Time(ms)"_s);
        QCOMPARE(m_window->shown(kPage, kTime), "1000"_s);
        // What is beyond the range is brought back.
        for (const auto& [entered, taken] :
             {std::pair("999999999", "999999999"), {"1000000001", "1000000000"}, {"0", "1"}}) {
            QVERIFY(m_window->enter(kPage, kTime, QLatin1String(entered)));
            QVERIFY(m_window->refresh());
            QCOMPARE(m_window->shown(kPage, kTime), QLatin1String(taken));
        }
        QCOMPARE(m_camera->writes(), QStringList());
    }

    void autoTriggerTriggers()
    {
        write("TriggerMode", "1");
        openTriggering();
        QTRY_VERIFY(triggers() > 20);
        // The camera takes them, and the window shows its count.
        QTRY_VERIFY(m_window->shown(kTree, "TriggerCount").toInt() > 20);
        QVERIFY(m_window->click(kPage, kEnable));
        // One may be under way.
        const int last = triggers() + 1;
        QVERIFY(m_window->refresh());
        QVERIFY(triggers() <= last);
        QCOMPARE(m_camera->mostAtOnce(kTrigger), 1);
    }

    void itemsAreLockedWhileItRuns()
    {
        open();
        // Period and command on the page, the command in the whole tree.
        const auto enabled = [this] {
            return QVector<bool>{m_window->isEnabled(kPage, kTime),
                                 m_window->isEnabled(kPage, kTrigger),
                                 m_window->isEnabled(kTree, kTrigger)};
        };
        const QVector<bool> all(3, true);
        const QVector<bool> none(3, false);
        QCOMPARE(enabled(), all);
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_COMPARE(enabled(), none);
        // Reading the camera's locks does not unlock them.
        QVERIFY(m_window->refresh());
        QCOMPARE(enabled(), none);
        QVERIFY(m_window->isEnabled(kPage, kEnable));
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_COMPARE(enabled(), all);
    }

    void newPeriodIsTakenWhenSwitchedOnAgain()
    {
        open();
        QVERIFY(m_window->enter(kPage, kTime, "1000000000"_s));
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_VERIFY(isOn());
        QVERIFY(m_window->refresh());
        QCOMPARE(triggers(), 0); // the first falls due in eleven days
        QVERIFY(m_window->click(kPage, kEnable));
        QVERIFY(m_window->enter(kPage, kTime, "1"_s));
        QVERIFY(m_window->refresh());
        QCOMPARE(triggers(), 0);
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_VERIFY(triggers() > 3);
    }

    void valueAboveZeroSwitchesOn()
    {
        open();
        const auto set = [this](const QVariant& value) {
            return m_window->page(kPage)->setFeatureValue("Boolean"_s, QLatin1String(kEnable),
                                                          value);
        };
        const std::pair<QVariant, bool> cases[] = {{true, true},   {2, true},  {"1"_s, true},
                                                   {false, false}, {0, false}, {-1, false},
                                                   {"on"_s, false}};
        for (const auto& [value, on] : cases) {
            QVERIFY(set(!on));
            QCOMPARE(isOn(), !on);
            QVERIFY(set(value));
            QVERIFY2(isOn() == on, value.typeName());
            QCOMPARE(m_window->isEnabled(kPage, kTime), !on);
        }
    }

    void slowCommandNeitherQueuesNorFreezes()
    {
        open();
        QVERIFY(m_window->enter(kPage, kTime, "1"_s));
        m_camera->closeGate(kTrigger);
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_COMPARE(triggers(), 1);
        // Everything else goes on while the camera works on the first one.
        QVERIFY(m_window->choose(kPage, "TriggerActivation", "Falling Edge"_s));
        QVERIFY(m_window->enter(kTree, "Height", "600"_s));
        QTRY_VERIFY(m_camera->writes().contains("Height=600"_s));
        m_window->tree()->OnTimerAutoTrigger();
        QVERIFY(m_window->refresh());
        QCOMPARE(triggers(), 1);
        QVERIFY(m_window->click(kPage, kEnable));
        QVERIFY(!isOn());
        m_camera->openGate();
        // Nothing was kept for later.
        QVERIFY(m_window->refresh());
        QCOMPARE(triggers(), 1);
        QCOMPARE(m_camera->mostAtOnce(kTrigger), 1);
    }

    // All but the device reset leave nothing under way but what they wait for.
    void endsWithTheCamera_data()
    {
        const Rows<End, int, bool> row("end", "underWay", "pageStays");
        row("window closed", End([](auto&) { OB_FT_Close(); }), 0, true);
        row("callbacks exchanged", End([](auto&) {
                OB_FT_SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
            }),
            0, true);
        row("camera closed", End([](auto& window) { window.tree()->OnCameraClose(); }), 0, false);
        row("camera removed", End([](auto& window) { window.widget()->removeFeatureTree(1); }), 0,
            false);
        row("another camera shown", End([](auto& window) { window.page(kPage)->resetCamaraID(2); }),
            1, false);
        row("device reset", End([](auto& window) {
                // A command under way finds the camera gone.
                MessageGuard::expectMessage("Read Feature Failed; NodeName : TriggerSoftware"_s);
                QVERIFY(window.tree()->OnCommandNodeBtnClicked("DeviceReset"_s));
            }),
            1, true);
        row("released", End([](auto&) { OB_FT_Release(); }), 0, false);
    }

    void endsWithTheCamera()
    {
        const auto [end, underWay, pageStays] = fetchRow<End, int, bool>();
        openTriggering();
        end(*m_window);
        const int last = triggers() + underWay;
        QVERIFY(twentyPeriodsPass());
        QVERIFY(triggers() <= last);
        if (!pageStays)
            return;
        const auto item = [&](const char* name) { return m_window->item(kPage, name); };
        QVERIFY(!item(kTime)->readOnly());
        QVERIFY(!item(kTrigger)->readOnly());
        QVERIFY(item(kTrigger)->value()->enabled());
        QVERIFY(!item(kEnable)->value()->value().toBool());
    }

    // Its switch vanishes with the command: nobody could end it any more.
    void endsWhenTheCommandIsNotAvailable()
    {
        openTriggering();
        m_camera->hide(kTrigger, true);
        QVERIFY(m_window->refresh());
        for (const char* gone : {kTime, kEnable, kTrigger})
            QTRY_VERIFY(!m_window->isRowShown(kPage, gone));
        const int last = triggers() + 1; // one may be under way
        QVERIFY(twentyPeriodsPass());
        QVERIFY(triggers() <= last);
        QCOMPARE(MessageGuard::messages().filter("Automatic software trigger"_s).size(), 1);
        m_camera->hide(kTrigger, false);
        QVERIFY(m_window->refresh());
        QTRY_VERIFY(m_window->isRowShown(kPage, kEnable));
        QVERIFY(!isOn());
        QTRY_VERIFY(m_window->isEnabled(kPage, kTime));
        QTRY_VERIFY(m_window->isEnabled(kPage, kTrigger));
    }

    void withoutSoftwareTriggerThereIsNoAutoTrigger()
    {
        open({QString::fromLatin1(kTrigger)});
        QVERIFY(m_window->show(kPage, "TriggerMode"));
        QVERIFY(m_window->isRowShown(kPage, "TriggerMode"));
        QVERIFY(!m_window->isRowShown(kPage, kTime));
        QVERIFY(!m_window->isRowShown(kPage, kEnable));
        QVERIFY(!m_window->page(kPage)->setFeatureValue("Boolean"_s, QString::fromLatin1(kEnable),
                                                        true));
        QVERIFY(m_window->refresh());
        QCOMPARE(triggers(), 0);
    }

    void editsReachTheCamera()
    {
        write("LineSelector", "0"); // an input
        open();
        m_camera->forget();
        QVERIFY(m_window->enter(kPage, "TriggerDelay", "12.5"_s));
        QVERIFY(m_window->click(kPage, kTrigger));
        QVERIFY(m_window->enter(kPage, "LineDebouncerTime", "7"_s));
        QVERIFY(m_window->choose(kPage, "EncoderSelector", "Encoder 1"_s));
        QVERIFY(m_window->click(kPage, "EncoderCounterReset"));
        QVERIFY(m_window->enter(kPage, "PreDivider", "3"_s));
        QTRY_COMPARE(m_camera->writes(),
                     words("TriggerDelay=12.5 TriggerSoftware LineDebouncerTime=7 "
                           "EncoderSelector=1 EncoderCounterReset PreDivider=3"));
    }
};

OBFT_TEST_MAIN(TestORXTriggerFeature)
#include "tst_orxtriggerfeature.moc"
