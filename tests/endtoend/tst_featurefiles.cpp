// SPDX-License-Identifier: Apache-2.0
// What a feature file keeps comes back as it was: saved in one session, compared and applied in
// another one to a camera that has forgotten everything, until no difference remains.
#include "cameras/ManualClock.h"
#include "changes/ChangesPanel.h"
#include "changes/FeatureFileDialog.h"
#include "changes/FeatureFileTable.h"
#include "demo/DemoCamera.h"
#include "device/OBDeviceControl.h"
#include "endtoend/MakersDescription.h"
#include "host/CameraTalk.h"
#include "host/FakeGigECamera.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "support/TestMain.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

// Another camera whose description calls every feature streamable.
class StreamableCamera : public MeddledCamera
{
public:
    explicit StreamableCamera(Camera& camera)
        : MeddledCamera(camera)
    {
        static const QRegularExpression begin(
            "(<(?:Integer|Float|Enumeration|Boolean|StringReg|Converter) [^>]*Name=[^>]*>)"_s);
        m_xml = QString::fromStdString(camera.descriptionXml())
                    .replace(begin, "\\1<Streamable>Yes</Streamable>"_s)
                    .toStdString();
    }
    const std::string& descriptionXml() const override { return m_xml; }

private:
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

    static void set(Camera& camera, const QString& settings)
    {
        QCOMPARE(CameraTalk(camera).again(settings), settings);
    }
    // Every value of the settings, for each setting of a selector that stands before.
    static QStringList values(Camera& camera, const QString& settings)
    {
        CameraTalk talk(camera);
        QStringList all;
        for (const QString& each : settings.split("; "_s)) {
            const QString name = each.section(QLatin1Char('='), 0, 0);
            if (name.contains("Selector"_s) || name == "MakerOuter"_s || name == "MakerInner"_s)
                talk.again(each);
            all.append(name + " = "_s + talk.value(name));
        }
        return all;
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

    // Saved of one camera and applied to the other.
    void comesBack(Camera& before, Camera& after, const QString& settings, int atLeast)
    {
        const QTemporaryDir folder;
        set(before, settings);
        save(before, folder.filePath("a.features"_s));
        apply(after, folder.filePath("a.features"_s), atLeast);
        QCOMPARE(values(after, settings), values(before, settings));
    }

    std::unique_ptr<PageWindow> m_window;

private slots:
    void simulatedCamera()
    {
        const QString settings =
            "PixelFormat=17825797; Width=640; OffsetX=1280; ExposureTime=1234.5; "
            "AcquisitionFrameRate=12.345679; LinePitchEnable=1; LinePitch=8192; "
            "DeviceUserID=a\tb\\n \xE7\x9B\xB8; TestWholeRange=-9223372036854775807; "
            "TriggerSelector=0; TriggerDelay=10.125; TriggerSelector=1; TriggerDelay=20.25"_s;
        ManualClock clock;
        DemoCamera before(&clock);
        DemoCamera after(&clock);
        comesBack(before, after, settings, 10);
    }

    void makersDescription()
    {
        QString settings =
            "Unit0Mode=12; Unit0Enable=1; Unit0Count=-9007199254740993; "
            "Unit1Count=9223372036854775807; Unit2Count=-9223372036854775808; Unit0Level=0.1; "
            "Unit1Level=3.4028235e38; Unit2Level=1.17549435e-38; Unit0Ratio=0.33333334; "
            "Unit1Ratio=16777215; Unit0Delay=-2.125; Unit0Note=a\tb\nc\r\nd\\t ; Unit1Note=; "
            "Unit2Note=# \xE6\x9B\x9D\xE5\x85\x89; Unit0Flag=5"_s;
        for (int outer = 0; outer < 3; ++outer) {
            settings += "; MakerOuter=%1"_s.arg(outer);
            for (int inner = 0; inner < 4; ++inner)
                settings += "; MakerInner=%1; MakerCurve=%2"_s.arg(inner).arg(
                    outer == 1 ? QString::number(inner) : "7.7"_s);
        }
        const QByteArray description = MakersDescription::make(100);
        SimulatedCamera before(description);
        SimulatedCamera after(description);
        comesBack(before, after, settings, 20);
    }

    void overGigEVision()
    {
        const QString reason = FakeGigECamera::reasonToSkip();
        if (!reason.isEmpty())
            QSKIP(qPrintable(reason));
        const QString settings = "Width=320; Height=200; OffsetX=16; ExposureTimeAbs=1234; "
                                 "TriggerSelector=0; TriggerMode=1"_s;
        const QTemporaryDir folder;
        QStringList expected;
        for (const bool isFirst : {true, false}) {
            FakeGigECamera fake;
            const std::unique_ptr<Camera> camera = fake.open();
            QVERIFY(camera);
            StreamableCamera streamable(*camera);
            if (isFirst) {
                set(*camera, settings);
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
