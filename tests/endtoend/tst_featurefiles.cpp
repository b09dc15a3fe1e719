// SPDX-License-Identifier: Apache-2.0
// What a feature file keeps comes back as it was: saved in one session, compared and applied in
// another one to a camera that has forgotten everything, until no difference remains. Over the real
// protocol also a single edit, and the end of the camera.
#include "cameras/ManualClock.h"
#include "changes/ChangesPanel.h"
#include "changes/FeatureFileDialog.h"
#include "changes/FeatureFileTable.h"
#include "demo/DemoCamera.h"
#include "device/OBDeviceControl.h"
#include "host/CameraTalk.h"
#include "host/FakeGigECamera.h"
#include "pages/MeddledCamera.h"
#include "pages/PageWindow.h"
#include "styledctl/ZELCustomMessageBox.h"
#include "support/DescriptionBuilder.h"
#include "support/TestMain.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

// Values of every kind at their limits, and one with a register for each setting of two selectors.
QByteArray makersDescription()
{
    using namespace DescriptionBuilder;
    const QString place = child("Length"_s, "4"_s) + child("AccessMode"_s, "RW"_s) +
                          child("pPort"_s, "Device"_s) + child("Endianess"_s, "BigEndian"_s);
    const auto entries = [](int count, int step) {
        QString all = child("Streamable"_s, "Yes"_s);
        for (int i = 0; i < count; ++i)
            all += node("EnumEntry"_s, "Entry%1"_s.arg(i),
                        child("Value"_s, QString::number(i * step)));
        return all + child("Value"_s, "0"_s);
    };
    return wrap(
        elements("Category Root pFeature=Makers;"
                 "Category Makers pFeature=Mode,Enable,Count,Most,Least,Level,Large,Small,Third,"
                 "Delay,Note,Empty,Comment,Outer,Inner,Curve;"
                 "Boolean Enable Streamable=Yes OnValue=2 OffValue=5 Value=5;"
                 "Integer Count Streamable=Yes Value=0; Integer Most Streamable=Yes Value=0;"
                 "Integer Least Streamable=Yes Value=0; Float Level Streamable=Yes Value=0;"
                 "Float Large Streamable=Yes Value=0; Float Small Streamable=Yes Value=0;"
                 "Float Third Streamable=Yes Value=0; Integer DelayValue Value=0;"
                 "Converter Delay Streamable=Yes FormulaTo=FROM*8 FormulaFrom=TO/8.0 "
                 "pValue=DelayValue; String Note Streamable=Yes Value=x;"
                 "String Empty Streamable=Yes Value=x; String Comment Streamable=Yes Value=x;"
                 "Integer Inner Streamable=Yes Min=0 Max=3 Value=0 pSelected=Curve;"
                 "Float Curve Streamable=Yes pValue=CurveReg; Port Device") +
        node("Enumeration"_s, "Mode"_s, entries(5, 3)) +
        node("Enumeration"_s, "Outer"_s, entries(3, 1) + child("pSelected"_s, "Inner"_s)) +
        node("FloatReg"_s, "CurveReg"_s,
             child("Address"_s, "0x10000"_s) +
                 "<pIndex Offset=\"16\">Outer</pIndex><pIndex Offset=\"4\">Inner</pIndex>"_s +
                 place));
}

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
            if (name.contains("Selector"_s) || name == "Outer"_s || name == "Inner"_s)
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

    static constexpr int kTree = ORXMainFeatureWidget::WholeTreeTab;
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

    void everyValueAtItsLimit()
    {
        QString settings =
            "Mode=12; Enable=1; Count=-9007199254740993; Most=9223372036854775807; "
            "Least=-9223372036854775808; Level=0.1; Large=3.4028235e38; Small=1.17549435e-38; "
            "Third=0.33333334; Delay=-2.125; Note=a\tb\nc\r\nd\\t ; Empty=; "
            "Comment=# \xE6\x9B\x9D\xE5\x85\x89"_s;
        for (int outer = 0; outer < 3; ++outer) {
            settings += "; Outer=%1"_s.arg(outer);
            for (int inner = 0; inner < 4; ++inner)
                settings += "; Inner=%1; Curve=%2"_s.arg(inner).arg(
                    outer == 1 ? QString::number(inner) : "7.7"_s);
        }
        SimulatedCamera before(makersDescription());
        SimulatedCamera after(makersDescription());
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

    // Seen by another program. Then the camera is gone, and the window goes on.
    void editsOverGigEVision()
    {
        const QString reason = FakeGigECamera::reasonToSkip();
        if (!reason.isEmpty())
            QSKIP(qPrintable(reason));
        FakeGigECamera fake;
        const std::unique_ptr<Camera> camera = fake.open();
        QVERIFY(camera);
        m_window = std::make_unique<PageWindow>(*camera);
        QVERIFY(m_window->enter(kTree, "Width", "320"_s));
        QVERIFY(m_window->choose(kTree, "PixelFormat", "Mono16"_s));
        QCOMPARE(FakeGigECamera::readIndependently("Width"_s), "320"_s);
        QCOMPARE(FakeGigECamera::readIndependently("PixelFormat"_s), "Mono16"_s);
        MessageGuard::expectMessage("Read Feature Failed"_s);
        OB_FT_UpdateFeatures();
        fake.kill();
        // While the pass runs into the dead camera.
        QVERIFY(m_window->enter(kTree, "Width", "128"_s));
        OBFT_TRY_VERIFY(m_window->tree()->findChild<ZELCustomMessageBox*>());
        const auto* box = m_window->tree()->findChild<ZELCustomMessageBox*>();
        QVERIFY(box->cContent().startsWith("Node 'Width':failed to save value '128'\r\n"_s));
        QCOMPARE(OB_FT_UpdateFeatures(), 0);
        QCOMPARE(OB_FT_Close(), 0);
    }
};

OBFT_TEST_MAIN(TestFeatureFiles)
#include "tst_featurefiles.moc"
