// SPDX-License-Identifier: Apache-2.0
// What a feature file keeps comes back as it was: saved in one session, compared and applied in
// another one to a camera that has forgotten everything, until no difference remains.
#include "cameras/ManualClock.h"
#include "cameras/RealCamera.h"
#include "changes/ChangesPanel.h"
#include "changes/FeatureFileDialog.h"
#include "changes/FeatureFileTable.h"
#include "demo/DemoCamera.h"
#include "device/OBDeviceControl.h"
#include "endtoend/MakersDescription.h"
#include "host/FakeGigECamera.h"
#include "pages/PageWindow.h"
#include "support/Rows.h"
#include "support/TestMain.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstring>

namespace {

struct Setting
{
    int type;
    const char* name;
    const char* text;
};
using Settings = QVector<Setting>;

// Another camera whose description calls every feature streamable.
class StreamableCamera : public Camera
{
public:
    explicit StreamableCamera(Camera& camera)
        : m_camera(camera)
    {
        static const QRegularExpression begin(
            "(<(?:Integer|Float|Enumeration|Boolean|StringReg|Converter) [^>]*Name=[^>]*>)"_s);
        m_xml = QString::fromStdString(camera.descriptionXml())
                    .replace(begin, "\\1<Streamable>Yes</Streamable>"_s)
                    .toStdString();
    }
    const std::string& descriptionXml() const override { return m_xml; }
    DeviceRecord deviceRecord() const override { return m_camera.deviceRecord(); }
    int read(int type, const std::string& name, void* record) override
    {
        return m_camera.read(type, name, record);
    }
    int write(int type, const std::string& name, const std::string& text) override
    {
        return m_camera.write(type, name, text);
    }
    int accessMode(const std::string& name, int* mode) override
    {
        return m_camera.accessMode(name, mode);
    }
    int invalidate() override { return m_camera.invalidate(); }
    bool isConnected() const override { return m_camera.isConnected(); }
    int reconnect() override { return m_camera.reconnect(); }

private:
    Camera& m_camera; // Not owned.
    std::string m_xml;
};

} // namespace

class TestFeatureFiles : public GuardedTest
{
    Q_OBJECT

    void prepare() override { OBDeviceControl::SetUserLevel(0); }
    void finish() override
    {
        m_window.reset();
        OBDeviceControl::SetUserLevel(1);
    }
    bool failsOnGuiThreadReads() const override { return true; }

    // As the camera's own record holds it, floats by their bits.
    static QString value(Camera& camera, int type, const char* name)
    {
        if (type == OB_FT_TYPE_FLOAT) {
            _ZDCC_FLOATVALUE_T record = {};
            const int error = camera.read(type, name, &record);
            quint32 bits = 0;
            std::memcpy(&bits, &record.value, sizeof bits);
            return error ? "error"_s : QString::number(bits, 16);
        }
        if (type == OB_FT_TYPE_STRING) {
            _ZDCC_STRINGVALUE_T record = {};
            return camera.read(type, name, &record) ? "error"_s : QString::fromUtf8(record.value);
        }
        _ZDCC_INTVALUE_EX_T record = {};
        return camera.read(OB_FT_TYPE_INTEGER, name, &record) ? "error"_s
                                                              : QString::number(record.value);
    }
    // Every value of the settings, for each setting of a selector that stands before.
    static QStringList values(Camera& camera, const Settings& settings)
    {
        QStringList all;
        for (const Setting& each : settings) {
            if (QByteArray(each.name).contains("Selector") ||
                QByteArray(each.name) == "MakerOuter" || QByteArray(each.name) == "MakerInner")
                camera.write(each.type, each.name, each.text);
            all.append(QLatin1String(each.name) + " = "_s + value(camera, each.type, each.name));
        }
        return all;
    }
    static bool set(Camera& camera, const Settings& settings)
    {
        for (const Setting& each : settings) {
            if (camera.write(each.type, each.name, each.text) != 0) {
                qWarning("%s is refused", each.name);
                return false;
            }
        }
        return true;
    }

    ChangesPanel* panel() const { return m_window->tree()->findChild<ChangesPanel*>(); }
    FeatureFileDialog* dialog() const
    {
        return m_window->widget()->findChild<FeatureFileDialog*>();
    }
    void save(Camera& camera, const QString& path)
    {
        m_window = std::make_unique<PageWindow>(camera);
        panel()->saveTo(path);
        OBFT_TRY_VERIFY(dialog()->summary().contains("were saved"_s));
        m_window.reset();
    }
    // Compares, applies everything, and compares again.
    void apply(Camera& camera, const QString& path, int atLeast)
    {
        m_window = std::make_unique<PageWindow>(camera);
        panel()->compareWith(path);
        OBFT_TRY_VERIFY(dialog()->summary().contains("values differ"_s));
        const FeatureFileTable* table = dialog()->table();
        QVERIFY2(table->chosenCount() >= atLeast, qPrintable(dialog()->summary()));
        QCOMPARE(table->rowCount(), table->chosenCount()); // each can be written
        const QString all = QString::number(table->chosenCount());
        QTest::mouseClick(dialog()->findChild<QPushButton*>("FeatureFileApply"_s), Qt::LeftButton);
        OBFT_TRY_COMPARE(dialog()->summary(),
                         "%1 of %1 values were written and read back."_s.arg(all));
        panel()->compareWith(path);
        OBFT_TRY_VERIFY(dialog()->summary().startsWith("None of"_s));
        m_window.reset();
    }

    std::unique_ptr<PageWindow> m_window;

private slots:
    void simulatedCamera()
    {
        const Settings settings = {
            {OB_FT_TYPE_ENUMERATION, "PixelFormat", "17825797"},
            {OB_FT_TYPE_INTEGER, "Width", "640"},
            {OB_FT_TYPE_INTEGER, "OffsetX", "1280"},
            {OB_FT_TYPE_FLOAT, "ExposureTime", "1234.5"},
            {OB_FT_TYPE_FLOAT, "AcquisitionFrameRate", "12.345679"},
            {OB_FT_TYPE_BOOLEAN, "LinePitchEnable", "1"},
            {OB_FT_TYPE_INTEGER, "LinePitch", "8192"},
            {OB_FT_TYPE_STRING, "DeviceUserID", "a\tb\\n \xE7\x9B\xB8"},
            {OB_FT_TYPE_INTEGER, "TestWholeRange", "-9223372036854775807"},
            {OB_FT_TYPE_ENUMERATION, "TriggerSelector", "0"},
            {OB_FT_TYPE_FLOAT, "TriggerDelay", "10.125"},
            {OB_FT_TYPE_ENUMERATION, "TriggerSelector", "1"},
            {OB_FT_TYPE_FLOAT, "TriggerDelay", "20.25"},
        };
        const QTemporaryDir folder;
        ManualClock clock;
        DemoCamera before(&clock);
        QVERIFY(set(before, settings));
        save(before, folder.filePath("a.features"_s));
        DemoCamera after(&clock);
        apply(after, folder.filePath("a.features"_s), 10);
        QCOMPARE(values(after, settings), values(before, settings));
    }

    void makersDescription()
    {
        Settings settings = {
            {OB_FT_TYPE_ENUMERATION, "Unit0Mode", "12"},
            {OB_FT_TYPE_BOOLEAN, "Unit0Enable", "1"},
            {OB_FT_TYPE_INTEGER, "Unit0Count", "-9007199254740993"},
            {OB_FT_TYPE_INTEGER, "Unit1Count", "9223372036854775807"},
            {OB_FT_TYPE_INTEGER, "Unit2Count", "-9223372036854775808"},
            {OB_FT_TYPE_FLOAT, "Unit0Level", "0.1"},
            {OB_FT_TYPE_FLOAT, "Unit1Level", "3.4028235e38"},
            {OB_FT_TYPE_FLOAT, "Unit2Level", "1.17549435e-38"},
            {OB_FT_TYPE_FLOAT, "Unit0Ratio", "0.33333334"},
            {OB_FT_TYPE_FLOAT, "Unit1Ratio", "16777215"},
            {OB_FT_TYPE_FLOAT, "Unit0Delay", "-2.125"},
            {OB_FT_TYPE_STRING, "Unit0Note", "a\tb\nc\r\nd\\t "},
            {OB_FT_TYPE_STRING, "Unit1Note", ""},
            {OB_FT_TYPE_STRING, "Unit2Note", "# \xE6\x9B\x9D\xE5\x85\x89"},
            {OB_FT_TYPE_INTEGER, "Unit0Flag", "5"},
        };
        for (const char* outer : {"0", "1", "2"}) {
            settings.append({OB_FT_TYPE_ENUMERATION, "MakerOuter", outer});
            for (const char* inner : {"0", "1", "2", "3"}) {
                settings.append({OB_FT_TYPE_INTEGER, "MakerInner", inner});
                settings.append({OB_FT_TYPE_FLOAT, "MakerCurve", outer[0] == '1' ? inner : "7.7"});
            }
        }
        const QTemporaryDir folder;
        const QByteArray description = MakersDescription::make(100);
        SimulatedCamera before(description);
        QVERIFY(set(before, settings));
        save(before, folder.filePath("a.features"_s));
        SimulatedCamera after(description);
        apply(after, folder.filePath("a.features"_s), 20);
        QCOMPARE(values(after, settings), values(before, settings));
    }

    void overGigEVision()
    {
        const QString reason = FakeGigECamera::reasonToSkip();
        if (!reason.isEmpty())
            QSKIP(qPrintable(reason));
        const Settings settings = {
            {OB_FT_TYPE_INTEGER, "Width", "320"},
            {OB_FT_TYPE_INTEGER, "Height", "200"},
            {OB_FT_TYPE_INTEGER, "OffsetX", "16"},
            {OB_FT_TYPE_FLOAT, "ExposureTimeAbs", "1234"},
            {OB_FT_TYPE_ENUMERATION, "TriggerSelector", "0"},
            {OB_FT_TYPE_ENUMERATION, "TriggerMode", "1"},
        };
        const QTemporaryDir folder;
        QStringList expected;
        for (const bool isFirst : {true, false}) {
            FakeGigECamera fake;
            QVERIFY(fake.start());
            std::string error;
            const std::unique_ptr<Camera> camera = RealCamera::open("127.0.0.1", &error);
            QVERIFY2(camera, error.c_str());
            StreamableCamera streamable(*camera);
            if (isFirst) {
                QVERIFY(set(*camera, settings));
                expected = values(*camera, settings);
                save(streamable, folder.filePath("a.features"_s));
            } else {
                apply(streamable, folder.filePath("a.features"_s), 4);
                QCOMPARE(values(*camera, settings), expected);
            }
        }
    }
};

OBFT_TEST_MAIN(TestFeatureFiles)
#include "tst_featurefiles.moc"
