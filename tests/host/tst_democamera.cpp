// SPDX-License-Identifier: Apache-2.0
// The demo camera's features and settings.
#include "host/DemoCameraTest.h"

using namespace std::chrono_literals;

class TestDemoCamera : public DemoCameraTest
{
    Q_OBJECT

private slots:
    void everyFeatureIsSound()
    {
        for (const std::string& name : m_camera->nodes().reachableFeatures())
            QVERIFY2(faultOf(name).isEmpty(),
                     qPrintable(QString::fromStdString(name) + QLatin1Char(' ') + faultOf(name)));
    }

    void showsEveryKindOfNode()
    {
        std::set<std::string> tags;
        for (const DescriptionNode& node : m_camera->nodes().all())
            tags.insert(node.tag);
        for (const char* tag :
             {"Category", "Integer", "IntReg", "MaskedIntReg", "Float", "FloatReg", "Converter",
              "IntConverter", "SwissKnife", "IntSwissKnife", "Enumeration", "Boolean", "Command",
              "String", "StringReg", "StructEntry", "Register", "Port"})
            QVERIFY2(tags.count(tag) == 1, tag);
        QVERIFY(m_camera->nodes().reachableFeatures().size() >= 300);
    }

    void behavioursNameExistingNodes()
    {
        // Runs every hook once; finish() looks for names that were not found.
        for (const std::string& name : m_camera->nodes().reachableFeatures()) {
            if (name != "DeviceReset" && featureTypeOf(m_camera->nodes().find(name)->tag) != 0)
                set(name, m_camera->nodes().find(name)->tag == "Command" ? "" : "1");
            m_clock->advance(100ms);
        }
        m_clock->advance(10s);
        QVERIFY(mode("Width") > 0);
    }

    void acquisitionLocks()
    {
        QCOMPARE(mode("Width"), int(OB_FT_ACCESS_READ_WRITE));
        QCOMPARE(run("AcquisitionStart"), 0);
        QCOMPARE(integer("TLParamsLocked"), std::int64_t(1));
        QCOMPARE(mode("Width"), int(OB_FT_ACCESS_READ_ONLY));
        QCOMPARE(set("Width", "640"), int(CameraError::NotWritable));
        QCOMPARE(run("AcquisitionStart"), int(CameraError::NotWritable));
        QCOMPARE(run("UserSetLoad"), int(CameraError::NotWritable));
        apply("ExposureTime=5000 AcquisitionStop");
        QCOMPARE(mode("Width"), int(OB_FT_ACCESS_READ_WRITE));
    }

    void acquisitionStopsByItself_data()
    {
        // frames: at 10 per second, after two seconds
        const Rows<QByteArray, int, bool> row("mode", "frames", "running");
        row("single frame", "0", 1, false);
        row("multi frame", "1", 7, false);
        row("continuous", "2", 20, true);
    }

    void acquisitionStopsByItself()
    {
        QFETCH(QByteArray, mode);
        apply("ChunkModeActive=1 AcquisitionFrameRate=10 AcquisitionFrameCount=7");
        QCOMPARE(set("AcquisitionMode", mode.toStdString()), 0);
        QCOMPARE(run("AcquisitionStart"), 0);
        m_clock->advance(2s);
        QTEST(int(integer("ChunkFrameID")), "frames");
        QTEST(boolean("TLParamsLocked"), "running");
    }

    void framesAreCounted()
    {
        QCOMPARE(set("CounterSelector", "1"), 0); // counts frame starts
        apply("AcquisitionFrameRate=10 AcquisitionStart");
        m_clock->advance(3s);
        QCOMPARE(integer("CounterValue"), std::int64_t(30));
        QCOMPARE(run("CounterReset"), 0);
        QCOMPARE(integer("CounterValue"), std::int64_t(0));
        QCOMPARE(integer("CounterValueAtReset"), std::int64_t(30));
    }

    void softwareTriggerCounts()
    {
        QCOMPARE(run("TriggerSoftware"), 0);
        QCOMPARE(integer("TriggerCount"), std::int64_t(0)); // the trigger is off
        QCOMPARE(set("TriggerMode", "1"), 0);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(run("TriggerSoftware"), 0);
        QCOMPARE(integer("TriggerCount"), std::int64_t(3));
        QCOMPARE(integer("CounterValue"), std::int64_t(3)); // counter 0 counts triggers
        QCOMPARE(set("TriggerSource", "1"), 0);             // line 0
        QCOMPARE(run("TriggerSoftware"), 0);
        QCOMPARE(integer("TriggerCount"), std::int64_t(3));
    }

    void widthAndOffsetShareTheSensor()
    {
        const auto maximum = [this](const char* name) {
            _ZDCC_INTVALUE_EX_T record{};
            m_camera->read(OB_FT_TYPE_INTEGER, name, &record);
            return record.maximum;
        };
        QCOMPARE(set("OffsetX", "0"), 0);
        QCOMPARE(maximum("Width"), integer("SensorWidth"));
        QCOMPARE(set("Width", "1024"), 0);
        QCOMPARE(maximum("OffsetX"), integer("SensorWidth") - 1024);
        QCOMPARE(set("OffsetX", "512"), 0);
        QCOMPARE(maximum("Width"), integer("SensorWidth") - 512);
        QCOMPARE(set("Width", "2048"), int(CameraError::OutOfRange));
    }

    void binningShrinksTheRegion()
    {
        QCOMPARE(set("BinningHorizontal", "3"), 0);
        QCOMPARE(integer("WidthMax"), std::int64_t(672));
        QCOMPARE(integer("Width"), std::int64_t(672));
        QCOMPARE(integer("OffsetX"), std::int64_t(0));
        QCOMPARE(integer("PayloadSize"), std::int64_t(672 * 1200));
        QCOMPARE(set("BinningHorizontal", "1"), 0);
        QCOMPARE(integer("WidthMax"), std::int64_t(2048));
    }

    void automaticMovesAndLocks_data()
    {
        const Rows<QByteArray, QByteArray> row("automatic", "feature");
        row("exposure", "ExposureAuto", "ExposureTime");
        row("gain", "GainAuto", "Gain");
        row("white balance", "BalanceWhiteAuto", "BalanceRatio");
    }

    void automaticMovesAndLocks()
    {
        QFETCH(QByteArray, automatic);
        QFETCH(QByteArray, feature);
        QCOMPARE(set(automatic.toStdString(), "2"), 0);
        QCOMPARE(mode(feature), int(OB_FT_ACCESS_READ_ONLY));
        m_clock->advance(1s);
        const std::string first = anyValue(feature.toStdString());
        m_clock->advance(1s);
        QVERIFY(anyValue(feature.toStdString()) != first);
        QCOMPARE(set(automatic.toStdString(), "0"), 0);
        const std::string last = anyValue(feature.toStdString());
        m_clock->advance(1s);
        QCOMPARE(anyValue(feature.toStdString()), last);
        QCOMPARE(mode(feature), int(OB_FT_ACCESS_READ_WRITE));
    }

    void onceEndsByItself()
    {
        const std::int64_t before = integer("BalanceRatio");
        QCOMPARE(set("BalanceWhiteAuto", "1"), 0);
        m_clock->advance(900ms);
        QCOMPARE(integer("BalanceWhiteAuto"), std::int64_t(1));
        m_clock->advance(200ms);
        QCOMPARE(integer("BalanceWhiteAuto"), std::int64_t(0));
        QVERIFY(integer("BalanceRatio") != before);
        // A choice made meanwhile stands.
        apply("BalanceWhiteAuto=1 BalanceWhiteAuto=2");
        m_clock->advance(5s);
        QCOMPARE(integer("BalanceWhiteAuto"), std::int64_t(2));
    }

    void userSetKeepsEverySetting()
    {
        std::vector<std::string> settings;
        for (const std::string& name : m_camera->nodes().reachableFeatures()) {
            if (m_camera->nodes().find(name)->streamable &&
                mode(name.c_str()) == OB_FT_ACCESS_READ_WRITE)
                settings.push_back(name);
        }
        QVERIFY(settings.size() > 100);
        std::map<std::string, std::string> before;
        for (const std::string& name : settings)
            before[name] = anyValue(name);
        apply("UserSetSelector=2 UserSetSave");
        QCOMPARE(integer("UserSetCurrent"), std::int64_t(2));

        int changed = 0;
        for (const std::string& name : settings) {
            for (const char* value : {"1", "0", "2", "128", "other"}) {
                if (mode(name.c_str()) == OB_FT_ACCESS_READ_WRITE && anyValue(name) == before[name])
                    set(name, value);
            }
            changed +=
                mode(name.c_str()) >= OB_FT_ACCESS_READ_ONLY && anyValue(name) != before[name];
        }
        QVERIFY2(changed > 90, qPrintable(QString::number(changed)));

        QCOMPARE(run("UserSetLoad"), 0);
        for (const std::string& name : settings)
            QVERIFY2(anyValue(name) == before[name], name.c_str());
    }

    void userSetLoadTakesTime()
    {
        QCOMPARE(text("UserSetLoadStatus"), QByteArray("Idle"));
        QCOMPARE(run("UserSetLoad"), 0);
        QCOMPARE(text("UserSetLoadStatus"), QByteArray("Loading"));
        QCOMPARE(run("UserSetLoad"), int(CameraError::Busy));
        m_clock->advance(1400ms);
        QCOMPARE(text("UserSetLoadStatus"), QByteArray("Loading"));
        m_clock->advance(200ms);
        QCOMPARE(text("UserSetLoadStatus"), QByteArray("Finished"));
        QCOMPARE(run("UserSetLoad"), 0);
    }

    void defaultUserSetCannotBeSaved()
    {
        QCOMPARE(set("UserSetSelector", "0"), 0);
        QCOMPARE(run("UserSetSave"), int(CameraError::NotWritable));
    }

    void resetTakesTheCameraAway()
    {
        apply("Width=640 UserSetSelector=1 UserSetSave UserSetDefault=1 Width=800");
        apply("AcquisitionStart DeviceReset");
        QVERIFY(!m_camera->isConnected());
        _ZDCC_INTVALUE_EX_T record{};
        QCOMPARE(m_camera->read(OB_FT_TYPE_INTEGER, "Width", &record),
                 int(CameraError::NotConnected));
        QCOMPARE(m_camera->reconnect(), int(CameraError::NotConnected));
        m_clock->advance(DemoCamera::kRestartTime);
        QCOMPARE(m_camera->reconnect(), 0);
        QVERIFY(m_camera->isConnected());
        QCOMPARE(integer("Width"), std::int64_t(640)); // from the set for power-up
        QCOMPARE(integer("UserSetCurrent"), std::int64_t(1));
        QCOMPARE(integer("TLParamsLocked"), std::int64_t(0));
        QCOMPARE(integer("Timestamp"), std::int64_t(0));
    }

    void lookUpTablesAreApart()
    {
        const auto value = [this](const char* table, int index) {
            set("LUTSelector", table);
            set("LUTIndex", std::to_string(index));
            return integer("LUTValue");
        };
        QCOMPARE(value("0", 1023), std::int64_t(4092));
        QCOMPARE(value("3", 0), std::int64_t(0));
        QCOMPARE(value("2", 100), std::int64_t(400));
        QCOMPARE(set("LUTValue", "7"), 0);
        QCOMPARE(value("1", 100), std::int64_t(400));
        QCOMPARE(value("2", 101), std::int64_t(404));
        QCOMPARE(value("2", 100), std::int64_t(7));
    }

    void colourMatrixExcludesTransformation()
    {
        apply("ColorTransformationEnable=1 CCMEnable=1");
        QVERIFY(!boolean("ColorTransformationEnable"));
        QCOMPARE(set("ColorTransformationEnable", "1"), 0);
        QVERIFY(!boolean("CCMEnable"));
        QCOMPARE(set("ColorTransformationEnable", "0"), 0);
        QVERIFY(!boolean("CCMEnable"));
    }

    void selectorsSwitchTheirFeatures_data()
    {
        const Rows<QByteArray, QByteArray, QByteArray> row("selector", "feature", "value");
        row.of("RegionSelector", "Height", "64");
        row.of("GainSelector", "Gain", "3");
        row.of("ColorTransformationValueSelector", "ColorTransformationValue", "-1");
        row.of("BalanceRatioSelector", "BalanceRatio", "77");
        row.of("TriggerSelector", "TriggerMode", "1");
        row.of("EventSelector", "EventNotification", "1");
        row.of("LineSelector", "LineInverter", "1");
        row.of("UserSetSelector", "UserSetDescription", "mine");
        row.of("SequencerPathSelector", "SequencerSetNext", "3");
    }

    void selectorsSwitchTheirFeatures()
    {
        QFETCH(QByteArray, selector);
        QFETCH(QByteArray, feature);
        QFETCH(QByteArray, value);
        set("SequencerConfigurationMode", "1");
        const auto select = [&](const char* entry) { return set(selector.toStdString(), entry); };
        QCOMPARE(select("1"), 0);
        const std::string other = anyValue(feature.toStdString());
        QCOMPARE(select("0"), 0);
        QCOMPARE(set(feature.toStdString(), value.toStdString()), 0);
        const std::string written = anyValue(feature.toStdString());
        QVERIFY(written != other);
        QCOMPARE(select("1"), 0);
        QCOMPARE(anyValue(feature.toStdString()), other);
        QCOMPARE(select("0"), 0);
        QCOMPARE(anyValue(feature.toStdString()), written);
    }
};

OBFT_TEST_MAIN(TestDemoCamera)
#include "tst_democamera.moc"
