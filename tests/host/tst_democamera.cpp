// SPDX-License-Identifier: Apache-2.0
#include "cameras/CameraError.h"
#include "cameras/ManualClock.h"
#include "demo/DemoCamera.h"
#include "support/TestMain.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <set>

using namespace std::chrono_literals;

namespace {

int typeOf(const std::string& tag)
{
    static const std::map<std::string, int> types{
        {"Integer", OB_FT_TYPE_INTEGER},
        {"IntReg", OB_FT_TYPE_INTEGER},
        {"Boolean", OB_FT_TYPE_BOOLEAN},
        {"Command", OB_FT_TYPE_COMMAND},
        {"Float", OB_FT_TYPE_FLOAT},
        {"Converter", OB_FT_TYPE_FLOAT},
        {"String", OB_FT_TYPE_STRING},
        {"StringReg", OB_FT_TYPE_STRING},
        {"Enumeration", OB_FT_TYPE_ENUMERATION},
    };
    const auto found = types.find(tag);
    return found == types.end() ? 0 : found->second;
}

} // namespace

class TestDemoCamera : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_clock = std::make_unique<ManualClock>();
        m_camera = std::make_unique<DemoCamera>(m_clock.get());
    }
    void finish() override
    {
        if (m_camera)
            QCOMPARE(m_camera->missingNames(), std::string());
        m_camera.reset();
    }

private:
    std::int64_t integer(const char* name)
    {
        _ZDCC_INTVALUE_EX_T record{};
        const int error = m_camera->read(OB_FT_TYPE_INTEGER, name, &record);
        if (error != 0)
            qWarning("%s: %s", name, CameraError::text(error));
        return record.value;
    }
    double real(const char* name)
    {
        _ZDCC_FLOATVALUE_T record{};
        const int error = m_camera->read(OB_FT_TYPE_FLOAT, name, &record);
        if (error != 0)
            qWarning("%s: %s", name, CameraError::text(error));
        return double(record.value);
    }
    QByteArray text(const char* name)
    {
        _ZDCC_STRINGVALUE_T record{};
        const int error = m_camera->read(OB_FT_TYPE_STRING, name, &record);
        if (error != 0)
            qWarning("%s: %s", name, CameraError::text(error));
        return record.value;
    }
    bool boolean(const char* name) { return integer(name) != 0; }
    int mode(const char* name)
    {
        int mode = -1;
        const int error = m_camera->accessMode(name, &mode);
        if (error != 0)
            qWarning("%s: %s", name, CameraError::text(error));
        return mode;
    }

    // A value of any readable feature as the text by which it can be written.
    std::string anyValue(const std::string& name)
    {
        switch (typeOf(m_camera->nodes().find(name)->tag)) {
        case OB_FT_TYPE_FLOAT:
            return QByteArray::number(real(name.c_str()), 'g', 8).toStdString();
        case OB_FT_TYPE_STRING:
            return text(name.c_str()).toStdString();
        default:
            return std::to_string(integer(name.c_str()));
        }
    }

    // Reads the feature by its own type; what is wrong with it, empty when all is well.
    QString faultOf(const std::string& name)
    {
        const DescriptionNode* node = m_camera->nodes().find(name);
        static const std::set<std::string> kLevels{"Beginner", "Expert", "Guru", "Invisible"};
        if (!node || node->displayName.empty() || kLevels.count(node->visibility) == 0 ||
            node->description.size() < 10 || node->description.back() != '.')
            return "is not described"_s;
        for (const std::string& selected : node->selected) {
            if (!m_camera->nodes().find(selected))
                return "selects a feature that is not there"_s;
        }
        const int access = mode(name.c_str());
        const int type = typeOf(node->tag);
        if (access < OB_FT_ACCESS_READ_ONLY || type == OB_FT_TYPE_COMMAND || type == 0)
            return QString();
        union {
            _ZDCC_INTVALUE_EX_T integer;
            _ZDCC_FLOATVALUE_T real;
            _ZDCC_ENUMVALUE_T entries;
            _ZDCC_STRINGVALUE_T text;
        } record{};
        if (m_camera->read(type, name, &record) != 0)
            return "cannot be read"_s;
        const auto& integer = record.integer;
        if (type == OB_FT_TYPE_INTEGER &&
            (integer.value < integer.minimum || integer.value > integer.maximum ||
             integer.increment < 1))
            return "is out of range"_s;
        const auto& real = record.real;
        if (type == OB_FT_TYPE_FLOAT && !(real.minimum <= real.value && real.value <= real.maximum))
            return "is out of range"_s;
        const std::uint32_t* first = record.entries.supported;
        if (type == OB_FT_TYPE_ENUMERATION &&
            std::count(first, first + record.entries.supportedCount, record.entries.value) != 1)
            return "is at no entry"_s;
        if (access == OB_FT_ACCESS_READ_WRITE && set(name, anyValue(name)) != 0)
            return "cannot be written back"_s;
        return QString();
    }
    int set(const std::string& name, const std::string& value)
    {
        const DescriptionNode* node = m_camera->nodes().find(name);
        return m_camera->write(node ? typeOf(node->tag) : OB_FT_TYPE_INTEGER, name, value);
    }
    int run(const char* command) { return set(command, ""); }
    // Writes each "Name=value" and executes each "Name" in turn; none is refused.
    void apply(const char* settings)
    {
        for (const QString& each : words(settings)) {
            const QString value = each.section(QLatin1Char('='), 1);
            QVERIFY2(set(each.section(QLatin1Char('='), 0, 0).toStdString(), value.toStdString()) ==
                         0,
                     qPrintable(each));
        }
    }

    std::unique_ptr<ManualClock> m_clock;
    std::unique_ptr<DemoCamera> m_camera;

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
            if (name != "DeviceReset" && typeOf(m_camera->nodes().find(name)->tag) != 0)
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

OBFT_TEST_MAIN(TestDemoCamera)
#include "tst_democamera.moc"
