// SPDX-License-Identifier: Apache-2.0
// What the demo camera does in the course of time: clocks, timers, lines, encoders.
#include "host/DemoCameraTest.h"

using namespace std::chrono_literals;

class TestDemoSignals : public DemoCameraTest
{
    Q_OBJECT

private slots:
    void clockMoves_data()
    {
        const Rows<QByteArray, qint64> row("feature", "afterOneSecond");
        row("time stamp", "Timestamp", 1000000000);
        row("up time", "DeviceUpTime", 1);
        row("encoder", "EncoderValue", 100);
        row("encoder counter", "EncoderCounter", 100);
    }

    void clockMoves()
    {
        QFETCH(QByteArray, feature);
        QCOMPARE(integer(feature), std::int64_t(0));
        m_clock->advance(1s);
        QTEST(qint64(integer(feature)), "afterOneSecond");
        QCOMPARE(run("TimestampReset"), 0);
        QCOMPARE(integer("Timestamp"), std::int64_t(0));
    }

    void temperatureRisesWhileAcquiring()
    {
        const double atRest = real("DeviceTemperature");
        m_clock->advance(5s);
        QVERIFY(std::abs(real("DeviceTemperature") - atRest) < 1.0);
        QVERIFY(real("DeviceTemperature") != atRest);
        QCOMPARE(run("AcquisitionStart"), 0);
        m_clock->advance(5min);
        QVERIFY(real("DeviceTemperature") > atRest + 5.0);
        QCOMPARE(run("AcquisitionStop"), 0);
        m_clock->advance(10min);
        QVERIFY(std::abs(real("DeviceTemperature") - atRest) < 1.0);
    }

    void slowCommandIsBusy()
    {
        QCOMPARE(run("ActivateShading"), 0);
        QCOMPARE(run("ActivateShading"), int(CameraError::Busy));
        QCOMPARE(mode("LSCEnable"), int(OB_FT_ACCESS_NOT_AVAILABLE));
        m_clock->advance(2s);
        QCOMPARE(integer("ShadingStatus"), std::int64_t(2));
        QCOMPARE(mode("LSCEnable"), int(OB_FT_ACCESS_READ_WRITE));
        QCOMPARE(run("ActivateShading"), 0);
    }

    void pendingAcknowledgeTakesItsTime()
    {
        const auto before = m_clock->now();
        QCOMPARE(set("TestPendingAck", "250"), 0);
        QVERIFY(m_clock->now() - before == 250ms);
    }

    void timerRunsOut()
    {
        apply("TimerDuration=2e+06 TimerReset");
        m_clock->advance(500ms);
        QCOMPARE(integer("TimerStatus"), std::int64_t(2));
        QCOMPARE(real("TimerValue"), 500000.0);
        m_clock->advance(2s);
        QCOMPARE(integer("TimerStatus"), std::int64_t(3));
        QCOMPARE(real("TimerValue"), 2000000.0);
    }

    void filesNeedToBeOpen()
    {
        const auto operate = [this](const char* operation) {
            set("FileOperationSelector", operation);
            run("FileOperationExecute");
            return integer("FileOperationStatus");
        };
        QCOMPARE(set("FileAccessLength", "1024"), 0);
        QCOMPARE(operate("2"), std::int64_t(2)); // read: not open
        QCOMPARE(set("FileOpenMode", "2"), 0);
        QCOMPARE(operate("0"), std::int64_t(0)); // open
        QCOMPARE(operate("2"), std::int64_t(0));
        QCOMPARE(integer("FileOperationResult"), std::int64_t(1024));
        QCOMPARE(set("FileAccessOffset", "2000"), 0);
        QCOMPARE(operate("3"), std::int64_t(0)); // write
        QCOMPARE(integer("FileSize"), std::int64_t(3024));
        QCOMPARE(operate("4"), std::int64_t(1)); // delete: open
        QCOMPARE(operate("1"), std::int64_t(0)); // close
        QCOMPARE(operate("4"), std::int64_t(0));
        QCOMPARE(integer("FileSize"), std::int64_t(0));
    }

    void linesFollowTheirSources()
    {
        QCOMPARE(set("LineSelector", "1"), 0);
        QCOMPARE(set("LineSource", "5"), 0); // user output 1
        QVERIFY(!boolean("LineStatus"));
        QCOMPARE(set("UserOutputValueAll", "2"), 0);
        QVERIFY(boolean("LineStatus"));
        QCOMPARE(integer("LineStatusAll"), std::int64_t(2));
        QCOMPARE(set("LineInverter", "1"), 0);
        QVERIFY(!boolean("LineStatus"));
    }

    // The axis turns forward for 8 seconds at 100 steps a second, then back for 2.
    void encoderFollowsItsSettings_data()
    {
        const Rows<QByteArray, QByteArray, qint64, qint64> row("feature", "value", "after8s",
                                                               "after10s");
        row("forward and back", "EncoderCounterMode", "0", 800, 600);
        row("both ways count", "EncoderCounterMode", "1", 800, 1000);
        row("starts over at the maximum", "EncoderCounterMax", "499", 300, 100);
        row("one line carries no direction", "EncoderSourceB", "0", 0, 0);
        row("lines without axis", "EncoderSourceA", "2", 0, 0);
    }

    void encoderFollowsItsSettings()
    {
        QFETCH(QByteArray, feature);
        QFETCH(QByteArray, value);
        QCOMPARE(set(feature.toStdString(), value.toStdString()), 0);
        m_clock->advance(8s);
        QTEST(qint64(integer("EncoderCounter")), "after8s");
        m_clock->advance(2s);
        QTEST(qint64(integer("EncoderCounter")), "after10s");
        QCOMPARE(run("EncoderCounterReset"), 0);
        QCOMPARE(integer("EncoderCounter"), std::int64_t(0));
    }

    // What each source makes of ten seconds of frame start triggers.
    void signalsTriggerAndCount_data()
    {
        const Rows<QByteArray, qint64> row("settings", "triggers");
        row("line 0", "TriggerSource=1", 5);
        row("encoder, new positions", "TriggerSource=6", 800);
        row("encoder, any motion", "TriggerSource=6 EncoderOutputMode=5", 1000);
        row("encoder, back", "TriggerSource=6 EncoderOutputMode=4", 200);
        row("encoder off", "TriggerSource=6 EncoderOutputMode=0", 0);
        row("encoder, tracks exchanged", "TriggerSource=6 EncoderSourceA=1 EncoderSourceB=0", 200);
        row("encoder divided", "TriggerSource=6 EncoderDivider=7", 114);
        row("encoder converted",
            "TriggerSource=6 InputSource=3 PreDivider=3 Multiplier=2 PostDivider=4", 133);
        row("converter fed by a line", "TriggerSource=6 InputSource=1 Multiplier=2", 800);
        row("trigger off", "TriggerSource=6 TriggerMode=0", 0);
    }

    void signalsTriggerAndCount()
    {
        QFETCH(QByteArray, settings);
        QFETCH(qint64, triggers);
        // Only line scan triggers by encoder.
        apply("DeviceScanType=1 CounterEventSource=1 TriggerMode=1");
        apply(settings);
        m_clock->advance(10s);
        QCOMPARE(qint64(integer("TriggerCount")), triggers);
        QCOMPARE(qint64(integer("CounterValue")), triggers);
    }

    void reverseCounterHoldsTriggersBack()
    {
        apply("DeviceScanType=1 TriggerMode=1 TriggerSource=6 EncoderMaxReverseCounter=50");
        m_clock->advance(10s);
        QCOMPARE(integer("TriggerCount"), std::int64_t(800));
        // Of the 200 steps back 50 are remembered and made up for.
        m_clock->advance(1s);
        QCOMPARE(integer("TriggerCount"), std::int64_t(850));
        m_clock->advance(9s);
        QCOMPARE(integer("TriggerCount"), std::int64_t(1550));
        QCOMPARE(run("EncoderReverseCounterReset"), 0);
        m_clock->advance(1s);
        QCOMPARE(integer("TriggerCount"), std::int64_t(1650));
    }

    void strobeLastsItsTime()
    {
        apply("LineSelector=1 StrobeLineDelay=300000 StrobeLineDuration=500000");
        apply("LineTriggerSoftware");
        m_clock->advance(400ms);
        QVERIFY(!boolean("LineStatus")); // the strobe is not enabled
        apply("StrobeEnable=1 LineTriggerSoftware");
        m_clock->advance(200ms);
        QVERIFY(!boolean("LineStatus"));
        m_clock->advance(200ms);
        QVERIFY(boolean("LineStatus"));
        m_clock->advance(500ms);
        QVERIFY(!boolean("LineStatus"));
    }
};

OBFT_TEST_MAIN(TestDemoSignals)
#include "tst_demosignals.moc"
