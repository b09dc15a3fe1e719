// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoCamera.h"
#include "host/CameraTalk.h"
#include "support/TestMain.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <algorithm>
#include <set>

using namespace std::chrono_literals;

// The demo camera's features and settings, and what it does in the course of time, which stands
// still until the test moves the clock.
class TestDemoCamera : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override
    {
        m_clock = std::make_unique<ManualClock>();
        m_camera = std::make_unique<DemoCamera>(m_clock.get());
        m_talk = std::make_unique<CameraTalk>(*m_camera, m_clock.get());
    }
    void finish() override
    {
        QCOMPARE(m_camera->missingNames(), std::string());
        m_talk.reset();
        m_camera.reset();
    }

private:
    QString value(const QString& name) { return m_talk->value(name); }
    int mode(const QString& name)
    {
        int mode = -1;
        m_camera->accessMode(name.toStdString(), &mode);
        return mode;
    }
    QStringList features() const
    {
        QStringList names;
        for (const std::string& name : m_camera->nodes().reachableFeatures())
            names += QString::fromStdString(name);
        return names;
    }
    const DescriptionNode* node(const QString& name) const
    {
        return m_camera->nodes().find(name.toStdString());
    }

    // Reads the feature by its own type; what is wrong with it, empty when all is well.
    QString faultOf(const QString& name)
    {
        const DescriptionNode* described = node(name);
        static const std::set<std::string> kLevels{"Beginner", "Expert", "Guru", "Invisible"};
        if (!described || described->displayName.empty() ||
            kLevels.count(described->visibility) == 0 || described->description.size() < 10 ||
            described->description.back() != '.')
            return "is not described"_s;
        for (const std::string& selected : described->selected) {
            if (!m_camera->nodes().find(selected))
                return "selects a feature that is not there"_s;
        }
        const int access = mode(name);
        const int type = m_talk->typeOf(name);
        if (access < OB_FT_ACCESS_READ_ONLY || type == OB_FT_TYPE_COMMAND || type == 0)
            return access < 0 ? "has no access mode"_s : QString();
        union {
            _ZDCC_INTVALUE_EX_T integer;
            _ZDCC_FLOATVALUE_T real;
            _ZDCC_ENUMVALUE_T entries;
            _ZDCC_STRINGVALUE_T text;
        } record{};
        if (m_camera->read(type, name.toStdString(), &record) != 0)
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
        if (access == OB_FT_ACCESS_READ_WRITE && !m_talk->write(type, name, value(name)).isEmpty())
            return "cannot be written back"_s;
        return QString();
    }

    std::unique_ptr<ManualClock> m_clock;
    std::unique_ptr<DemoCamera> m_camera;
    std::unique_ptr<CameraTalk> m_talk;

private slots:
    void everyFeatureIsSound()
    {
        for (const QString& name : features())
            QVERIFY2(faultOf(name).isEmpty(), qPrintable(name + QLatin1Char(' ') + faultOf(name)));
    }

    void showsEveryKindOfNode()
    {
        std::set<std::string> tags;
        for (const DescriptionNode& node : m_camera->nodes().all())
            tags.insert(node.tag);
        for (const QString& tag :
             words("Category Integer IntReg MaskedIntReg Float FloatReg Converter IntConverter "
                   "SwissKnife IntSwissKnife Enumeration Boolean Command String StringReg "
                   "StructEntry Register Port"))
            QVERIFY2(tags.count(tag.toStdString()) == 1, qPrintable(tag));
        QVERIFY(features().size() >= 300);
    }

    void behavioursNameExistingNodes()
    {
        // Runs every hook once; finish() looks for names that were not found.
        for (const QString& name : features()) {
            if (name != "DeviceReset"_s && m_talk->typeOf(name) != 0)
                m_talk->write(m_talk->typeOf(name), name, "1"_s);
            m_clock->advance(100ms);
        }
        m_clock->advance(10s);
        QVERIFY(mode("Width"_s) > 0);
    }

    void behaves_data()
    {
        const Rows<QString> row("talk");
        row("acquisition locks",
            "Width? rw; AcquisitionStart(); TLParamsLocked: 1; Width? ro; Width=640: NotWritable; "
            "AcquisitionStart(): NotWritable; UserSetLoad(): NotWritable; ExposureTime=5000; "
            "AcquisitionStop(); Width? rw");
        const QString frames =
            "ChunkModeActive=1; AcquisitionFrameRate=10; AcquisitionFrameCount=7; "
            "AcquisitionMode=%1; AcquisitionStart(); 2000ms; ChunkFrameID: %2; "
            "TLParamsLocked: %3"_s;
        row("single frame", frames.arg(0).arg(1).arg(0));
        row("multi frame", frames.arg(1).arg(7).arg(0));
        row("continuous frames", frames.arg(2).arg(20).arg(1));
        row("frames are counted",
            "CounterSelector=1; AcquisitionFrameRate=10; AcquisitionStart(); 3000ms; "
            "CounterValue: 30; CounterReset(); CounterValue: 0; CounterValueAtReset: 30");
        row("software trigger counts while it is on and the source",
            "TriggerSoftware(); TriggerCount: 0; TriggerMode=1; TriggerSoftware(); "
            "TriggerSoftware(); TriggerSoftware(); TriggerCount: 3; CounterValue: 3; "
            "TriggerSource=1; TriggerSoftware(); TriggerCount: 3");
        row("width and offset share the sensor",
            "OffsetX=0; SensorWidth: 2048; Width.max: 2048; Width=1024; OffsetX.max: 1024; "
            "OffsetX=512; Width.max: 1536; Width=2048: OutOfRange");
        row("binning shrinks the region",
            "BinningHorizontal=3; WidthMax: 672; Width: 672; OffsetX: 0; PayloadSize: 806400; "
            "BinningHorizontal=1; WidthMax: 2048");
        row("once ends by itself",
            "BalanceWhiteAuto=1; 900ms; BalanceWhiteAuto: 1; 200ms; BalanceWhiteAuto: 0");
        row("a choice made meanwhile stands",
            "BalanceWhiteAuto=1; BalanceWhiteAuto=2; 5000ms; BalanceWhiteAuto: 2");
        row("loading a user set takes time",
            "UserSetLoadStatus: Idle; UserSetLoad(); UserSetLoadStatus: Loading; "
            "UserSetLoad(): Busy; 1400ms; UserSetLoadStatus: Loading; 200ms; "
            "UserSetLoadStatus: Finished; UserSetLoad()");
        row("the default user set cannot be saved",
            "UserSetSelector=0; UserSetSave(): NotWritable");
        // It comes back with the set for power-up.
        row("a reset takes the camera away",
            "Width=640; UserSetSelector=1; UserSetSave(); UserSetDefault=1; Width=800; "
            "AcquisitionStart(); DeviceReset(); isConnected: 0; Width: NotConnected; "
            "reconnect(): NotConnected; 3000ms; reconnect(); isConnected: 1; Width: 640; "
            "UserSetCurrent: 1; TLParamsLocked: 0; Timestamp: 0");
        row("look-up tables are apart",
            "LUTSelector=0; LUTIndex=1023; LUTValue: 4092; LUTSelector=3; LUTIndex=0; LUTValue: 0; "
            "LUTSelector=2; LUTIndex=100; LUTValue: 400; LUTValue=7; LUTSelector=1; LUTIndex=100; "
            "LUTValue: 400; LUTSelector=2; LUTIndex=101; LUTValue: 404; LUTIndex=100; LUTValue: 7");
        row("colour matrix excludes transformation",
            "ColorTransformationEnable=1; CCMEnable=1; ColorTransformationEnable: 0; "
            "ColorTransformationEnable=1; CCMEnable: 0; ColorTransformationEnable=0; CCMEnable: 0");
        row("clocks move",
            "Timestamp: 0; DeviceUpTime: 0; EncoderValue: 0; EncoderCounter: 0; 1000ms; "
            "Timestamp: 1000000000; DeviceUpTime: 1; EncoderValue: 100; EncoderCounter: 100; "
            "TimestampReset(); Timestamp: 0");
        row("a slow command is busy",
            "ActivateShading(); ActivateShading(): Busy; LSCEnable? na; 2000ms; ShadingStatus: 2; "
            "LSCEnable? rw; ActivateShading()");
        row("a pending acknowledge takes its time", "TestPendingAck=250; took 250ms");
        row("a timer runs out",
            "TimerDuration=2e+06; TimerReset(); 500ms; TimerStatus: 2; TimerValue: 500000; 2000ms; "
            "TimerStatus: 3; TimerValue: 2000000");
        row("lines follow their sources", // the second user output
            "LineSelector=1; LineSource=5; LineStatus: 0; UserOutputValueAll=2; LineStatus: 1; "
            "LineStatusAll: 2; LineInverter=1; LineStatus: 0");
        // Of the 200 steps back 50 are remembered and made up for.
        row("the reverse counter holds triggers back",
            "DeviceScanType=1; TriggerMode=1; TriggerSource=6; EncoderMaxReverseCounter=50; "
            "10000ms; TriggerCount: 800; 1000ms; TriggerCount: 850; 9000ms; TriggerCount: 1550; "
            "EncoderReverseCounterReset(); 1000ms; TriggerCount: 1650");
        row("a strobe lasts its time once it is enabled",
            "LineSelector=1; StrobeLineDelay=300000; StrobeLineDuration=500000; "
            "LineTriggerSoftware(); 400ms; LineStatus: 0; StrobeEnable=1; LineTriggerSoftware(); "
            "200ms; LineStatus: 0; 200ms; LineStatus: 1; 500ms; LineStatus: 0");
        // Read while closed; open, read, write, delete while open; close, delete.
        row("files need to be open",
            "FileAccessLength=1024; FileOperationSelector=2; FileOperationExecute(); "
            "FileOperationStatus: 2; FileOpenMode=2; FileOperationSelector=0; "
            "FileOperationExecute(); FileOperationStatus: 0; FileOperationSelector=2; "
            "FileOperationExecute(); FileOperationStatus: 0; FileOperationResult: 1024; "
            "FileAccessOffset=2000; FileOperationSelector=3; FileOperationExecute(); "
            "FileOperationStatus: 0; FileSize: 3024; FileOperationSelector=4; "
            "FileOperationExecute(); FileOperationStatus: 1; FileOperationSelector=1; "
            "FileOperationExecute(); FileOperationStatus: 0; FileOperationSelector=4; "
            "FileOperationExecute(); FileOperationStatus: 0; FileSize: 0");
        // The axis turns forward for 8 seconds at 100 steps a second, then back for 2.
        const auto encoder = [&row](const char* name, const char* setting, int after8s,
                                    int after10s) {
            row(name, "%1; 8000ms; EncoderCounter: %2; 2000ms; EncoderCounter: %3; "
                      "EncoderCounterReset(); EncoderCounter: 0"_s.arg(QLatin1String(setting))
                          .arg(after8s)
                          .arg(after10s));
        };
        encoder("forward and back", "EncoderCounterMode=0", 800, 600);
        encoder("both ways count", "EncoderCounterMode=1", 800, 1000);
        encoder("starts over at the maximum", "EncoderCounterMax=499", 300, 100);
        encoder("one line carries no direction", "EncoderSourceB=0", 0, 0);
        encoder("lines without axis", "EncoderSourceA=2", 0, 0);
        // What each source makes of ten seconds; only line scan triggers by encoder.
        const auto triggers = [&row](const char* name, const char* settings, int count) {
            row(name, "DeviceScanType=1; CounterEventSource=1; TriggerMode=1; %1; 10000ms; "
                      "TriggerCount: %2; CounterValue: %2"_s.arg(QLatin1String(settings))
                          .arg(count));
        };
        triggers("line 0", "TriggerSource=1", 5);
        triggers("encoder, new positions", "TriggerSource=6", 800);
        triggers("encoder, any motion", "TriggerSource=6; EncoderOutputMode=5", 1000);
        triggers("encoder, back", "TriggerSource=6; EncoderOutputMode=4", 200);
        triggers("encoder off", "TriggerSource=6; EncoderOutputMode=0", 0);
        triggers("tracks exchanged", "TriggerSource=6; EncoderSourceA=1; EncoderSourceB=0", 200);
        triggers("encoder divided", "TriggerSource=6; EncoderDivider=7", 114);
        triggers("encoder converted",
                 "TriggerSource=6; InputSource=3; PreDivider=3; Multiplier=2; PostDivider=4", 133);
        triggers("converter fed by a line", "TriggerSource=6; InputSource=1; Multiplier=2", 800);
        triggers("trigger off", "TriggerSource=6; TriggerMode=0", 0);
    }

    void behaves()
    {
        QFETCH(QString, talk);
        QCOMPARE(m_talk->again(talk), talk);
    }

    void automaticMoves_data()
    {
        const Rows<QString, QString, bool> row("automatic", "feature", "ends");
        row("exposure", "ExposureAuto=2", "ExposureTime", false);
        row("gain", "GainAuto=2", "Gain", false);
        row("white balance", "BalanceWhiteAuto=2", "BalanceRatio", false);
        row("white balance, once", "BalanceWhiteAuto=1", "BalanceRatio", true);
    }

    // Meanwhile it locks the feature.
    void automaticMoves()
    {
        const auto [automatic, feature, ends] = fetchRow<QString, QString, bool>();
        const auto inASecond = [&] {
            m_clock->advance(1001ms);
            return value(feature);
        };
        const QString before = value(feature);
        QCOMPARE(m_talk->again(automatic), automatic);
        QCOMPARE(mode(feature), int(OB_FT_ACCESS_READ_ONLY));
        const QString first = inASecond();
        QVERIFY(first != before);
        QCOMPARE(inASecond() == first, ends);
        m_talk->again(automatic.section(QLatin1Char('='), 0, 0) + "=0"_s);
        const QString last = value(feature);
        QCOMPARE(inASecond(), last);
        QCOMPARE(mode(feature), int(OB_FT_ACCESS_READ_WRITE));
    }

    void temperatureRisesWhileAcquiring()
    {
        const auto after = [this](std::chrono::seconds time) {
            m_clock->advance(time);
            return value("DeviceTemperature"_s).toDouble();
        };
        const double atRest = after(0s);
        const double later = after(5s);
        QVERIFY(later != atRest && std::abs(later - atRest) < 1.0);
        QCOMPARE(m_talk->again("AcquisitionStart()"_s), "AcquisitionStart()"_s);
        QVERIFY(after(5min) > atRest + 5.0);
        QCOMPARE(m_talk->again("AcquisitionStop()"_s), "AcquisitionStop()"_s);
        QVERIFY(std::abs(after(10min) - atRest) < 1.0);
    }

    void userSetKeepsEverySetting()
    {
        QMap<QString, QString> before;
        for (const QString& name : features()) {
            if (node(name)->streamable && mode(name) == OB_FT_ACCESS_READ_WRITE)
                before.insert(name, value(name));
        }
        QVERIFY(before.size() > 100);
        const QString saving = "UserSetSelector=2; UserSetSave(); UserSetCurrent: 2"_s;
        QCOMPARE(m_talk->again(saving), saving);
        int changed = 0;
        for (auto setting = before.cbegin(); setting != before.cend(); ++setting) {
            const QString& name = setting.key();
            for (const char* other : {"1", "0", "2", "128", "other"}) {
                if (mode(name) == OB_FT_ACCESS_READ_WRITE && value(name) == setting.value())
                    m_talk->write(m_talk->typeOf(name), name, QString::fromLatin1(other));
            }
            changed += mode(name) >= OB_FT_ACCESS_READ_ONLY && value(name) != setting.value();
        }
        QVERIFY2(changed > 90, qPrintable(QString::number(changed)));
        QCOMPARE(m_talk->again("UserSetLoad()"_s), "UserSetLoad()"_s);
        for (auto setting = before.cbegin(); setting != before.cend(); ++setting)
            QVERIFY2(value(setting.key()) == setting.value(), qPrintable(setting.key()));
    }

    void selectorsSwitchTheirFeatures_data()
    {
        const Rows<QString, QString, QString> row("selector", "feature", "value");
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
        const auto [selector, feature, value] = fetchRow<QString, QString, QString>();
        m_talk->again("SequencerConfigurationMode=1; %1=1"_s.arg(selector));
        const QString other = this->value(feature);
        QVERIFY(other != value);
        const QString talk = "%1=0; %2=%3; %2: %3; %1=1; %2: %4; %1=0; %2: %3"_s.arg(
            selector, feature, value, other);
        QCOMPARE(m_talk->again(talk), talk);
    }
};

OBFT_TEST_MAIN(TestDemoCamera)
#include "tst_democamera.moc"
