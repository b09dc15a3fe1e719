// SPDX-License-Identifier: Apache-2.0
// The trigger and IO page in the window, on the simulated camera.
#include "model/CTreeIntergerItemValue.h"
#include "pages/CuratedPageTest.h"
#include "support/Periods.h"

namespace {

constexpr int kPage = ORXMainFeatureWidget::TriggerTab;
constexpr char kTime[] = "Custom_AutoTrigTime";
constexpr char kEnable[] = "Custom_EnableAutoTrig";
constexpr char kTrigger[] = "TriggerSoftware";

} // namespace

class TestORXTriggerFeature : public CuratedPageTest
{
    Q_OBJECT

public:
    TestORXTriggerFeature()
        : CuratedPageTest(
              {kPage,
               {"Trigger"_s, "IO Input"_s, "IO Output"_s, "Encoder Control"_s,
                "Frequency Converter Control"_s},
               {"触发"_s, "IO 输入"_s, "IO 输出"_s, "编码器控制"_s, "频率转换控制"_s},
               {{"Custom_Trigger",
                 words("TriggerSelector TriggerMode TriggerSource TriggerActivation TriggerDelay "
                       "Custom_AutoTrigTime Custom_EnableAutoTrig TriggerSoftware")},
                {"Custom_IOControl",
                 words("LineSelector LineMode LineDebouncerTime LineSource HardwareTriggerSource "
                       "HardwareTriggerActivation LineTriggerSoftware StrobeEnable "
                       "StrobeLineDuration StrobeLineDelay StrobeLinePreDelay")},
                {"Custom_EncoderControl",
                 words("EncoderSelector EncoderSourceA EncoderSourceB EncoderOutputMode "
                       "EncoderCounterMode EncoderCounter EncoderCounterMax EncoderCounterReset "
                       "EncoderMaxReverseCounter EncoderReverseCounterReset")},
                {"Custom_FrequencyConverterControl",
                 words("InputSource PreDivider Multiplier PostDivider")}},
               {}})
    {
    }

private:
    int triggers() const { return m_camera->writesOf(kTrigger); }
    bool isOn() const { return m_window->shown(kPage, kEnable) == QLatin1String("checked"); }

private slots:
    // Automatic software trigger ------------------------------------------------------------------
    void ownItemsBegin()
    {
        open();
        QCOMPARE(m_window->shown(kPage, kTime), "1000"_s);
        QVERIFY(!isOn());
        const auto* time =
            dynamic_cast<CTreeIntergerItemValue*>(m_window->item(kPage, kTime)->value());
        QVERIFY(time);
        QCOMPARE(time->displayName(), "Auto Trigger Time(ms)"_s);
        QCOMPARE(time->numbers().m_nMinValue, qint64(1));
        QCOMPARE(time->numbers().m_nMaxValue, qint64(1000000000));
        QCOMPARE(time->numbers().m_nIncrement, qint64(1));
        // The edges of the range can be entered, what is beyond cannot.
        QVERIFY(m_window->enter(kPage, kTime, "1000000000"_s));
        QCOMPARE(m_window->shown(kPage, kTime), "1000000000"_s);
        QVERIFY(m_window->enter(kPage, kTime, "0"_s));
        QCOMPARE(m_window->shown(kPage, kTime), "1"_s);
    }

    void periodIsNeverSent()
    {
        open();
        m_camera->forget();
        QVERIFY(m_window->enter(kPage, kTime, "250"_s));
        QCOMPARE(m_window->shown(kPage, kTime), "250"_s);
        QVERIFY(m_window->refresh());
        QCOMPARE(m_camera->writes(), QStringList());
        QCOMPARE(m_window->shown(kPage, kTime), "250"_s);
    }

    void autoTriggerTriggers()
    {
        open();
        QVERIFY(m_window->choose(kPage, "TriggerMode", "On"_s));
        QVERIFY(m_window->enter(kPage, kTime, "1"_s));
        QVERIFY(m_window->click(kPage, kEnable));
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
        QVERIFY(m_window->isEnabled(kPage, kTime));
        QVERIFY(m_window->isEnabled(kPage, kTrigger));
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_VERIFY(!m_window->isEnabled(kPage, kTime));
        QTRY_VERIFY(!m_window->isEnabled(kPage, kTrigger));
        QVERIFY(!m_window->isEnabled(kTree, kTrigger));
        // Reading the camera's locks does not unlock them.
        QVERIFY(m_window->refresh());
        QVERIFY(!m_window->isEnabled(kPage, kTime));
        QVERIFY(!m_window->isEnabled(kPage, kTrigger));
        QVERIFY(m_window->isEnabled(kPage, kEnable));
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_VERIFY(m_window->isEnabled(kPage, kTime));
        QTRY_VERIFY(m_window->isEnabled(kPage, kTrigger));
        QVERIFY(m_window->isEnabled(kTree, kTrigger));
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

    void valueAboveZeroSwitchesOn_data()
    {
        const Rows<QVariant, bool> row("value", "on");
        row("true", true, true);
        row("2", 2, true);
        row("text 1", "1"_s, true);
        row("false", false, false);
        row("0", 0, false);
        row("-1", -1, false);
        row("no number", "on"_s, false);
    }

    void valueAboveZeroSwitchesOn()
    {
        QFETCH(QVariant, value);
        QFETCH(bool, on);
        open();
        const QString tag = "Boolean"_s;
        const QString name = QString::fromLatin1(kEnable);
        // Starts from the other state.
        QVERIFY(m_window->page(kPage)->setFeatureValue(tag, name, !on));
        QCOMPARE(isOn(), !on);
        QVERIFY(m_window->page(kPage)->setFeatureValue(tag, name, value));
        QCOMPARE(isOn(), on);
        QCOMPARE(m_window->isEnabled(kPage, kTime), !on);
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

    void endsWithTheCamera_data()
    {
        const Rows<int, bool> row("end", "pageStays");
        row("window closed", 0, true);
        row("callbacks exchanged", 1, true);
        row("camera closed", 2, false);
        row("camera removed", 3, false);
        row("another camera shown", 4, false);
        row("device reset", 5, true);
        row("released", 6, false);
    }

    void endsWithTheCamera()
    {
        QFETCH(int, end);
        QFETCH(bool, pageStays);
        open();
        QVERIFY(m_window->enter(kPage, kTime, "1"_s));
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_VERIFY(triggers() > 0);
        const auto exchange = [] {
            OB_FT_SetCallBackFunc(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
        };
        const std::function<void()> ends[] = {
            [] { OB_FT_Close(); },
            exchange,
            [this] { m_window->tree()->OnCameraClose(); },
            [this] { m_window->widget()->removeFeatureTree(1); },
            [this] { m_window->page(kPage)->resetCamaraID(2); },
            [this] { QVERIFY(m_window->tree()->OnCommandNodeBtnClicked("DeviceReset"_s)); },
            [] { OB_FT_Release(); },
        };
        if (end == 5) // a command under way finds the camera gone
            MessageGuard::expectMessage("Read Feature Failed; NodeName : TriggerSoftware"_s);
        ends[end]();
        // All but the last two wait for a command under way.
        const int last = triggers() + (end == 4 || end == 5 ? 1 : 0);
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
        open();
        QVERIFY(m_window->enter(kPage, kTime, "1"_s));
        QVERIFY(m_window->click(kPage, kEnable));
        QTRY_VERIFY(triggers() > 0);
        m_camera->hide(kTrigger, true);
        QVERIFY(m_window->refresh());
        QTRY_VERIFY(!m_window->isRowShown(kPage, kEnable));
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

    void ownItemsFollowTheSoftwareTrigger()
    {
        open();
        QVERIFY(m_window->show(kPage, kTrigger));
        for (const bool hidden : {true, false}) {
            m_camera->hide(kTrigger, hidden);
            QVERIFY(m_window->refresh());
            QTRY_COMPARE(m_window->isRowShown(kPage, kTrigger), !hidden);
            QTRY_COMPARE(m_window->isRowShown(kPage, kTime), !hidden);
            QTRY_COMPARE(m_window->isRowShown(kPage, kEnable), !hidden);
        }
    }

    // Lines and encoders --------------------------------------------------------------------------
    void linesAndEncodersReachTheCamera_data()
    {
        const Rows<QByteArray, QString, QString> row("feature", "text", "written");
        row.of("TriggerDelay", "12.5", "TriggerDelay=12.5");
        row.of("LineDebouncerTime", "7", "LineDebouncerTime=7");
        row.of("EncoderCounterMax", "999", "EncoderCounterMax=999");
        row.of("EncoderMaxReverseCounter", "17", "EncoderMaxReverseCounter=17");
        row.of("PreDivider", "3", "PreDivider=3");
        row.of("Multiplier", "4", "Multiplier=4");
        row.of("PostDivider", "5", "PostDivider=5");
        row.of("EncoderSelector", "Encoder 1", "EncoderSelector=1");
        row.of("EncoderSourceA", "Line 1", "EncoderSourceA=1");
        row.of("EncoderCounterMode", "Ignore Direction", "EncoderCounterMode=1");
        row.of("InputSource", "Line 0", "InputSource=1");
        row.of("HardwareTriggerActivation", "Falling Edge", "HardwareTriggerActivation=1");
        row.of("EncoderCounterReset", "", "EncoderCounterReset");
        row.of("EncoderReverseCounterReset", "", "EncoderReverseCounterReset");
        row.of("LineTriggerSoftware", "", "LineTriggerSoftware");
        row.of("TriggerSoftware", "", "TriggerSoftware");
    }

    void linesAndEncodersReachTheCamera()
    {
        QFETCH(QByteArray, feature);
        QFETCH(QString, text);
        QFETCH(QString, written);
        write("LineSelector", "0"); // an input
        open();
        m_camera->forget();
        const QString tag = m_window->item(kPage, feature)->tagName();
        if (tag == QLatin1String("Command"))
            QVERIFY(m_window->click(kPage, feature));
        else if (tag == QLatin1String("Enumeration"))
            QVERIFY(m_window->choose(kPage, feature, text));
        else
            QVERIFY(m_window->enter(kPage, feature, text));
        QTRY_COMPARE(m_camera->writes(), QStringList(written));
    }
};

OBFT_TEST_MAIN(TestORXTriggerFeature)
#include "tst_orxtriggerfeature.moc"
