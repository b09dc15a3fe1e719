// SPDX-License-Identifier: Apache-2.0
#include "FakeGigECamera.h"

#include "cameras/CameraError.h"
#include "cameras/ManualClock.h"
#include "cameras/RealCamera.h"
#include "demo/DemoCamera.h"
#include "description/DescriptionNodes.h"
#include "support/TestMain.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <algorithm>
#include <memory>

namespace {

// One kind of camera and the features by which it is tried.
struct Specimen
{
    const char* integer;
    const char* real;
    const char* enumeration;
    const char* otherEntry;
    const char* boolean;
    const char* text;
    const char* command;
    const char* readOnly;
};

constexpr Specimen kDemo{"Width",    "ExposureTime",     "PixelFormat",     "17301505",
                         "ReverseX", "DeviceVendorName", "TriggerSoftware", "SensorWidth"};
constexpr Specimen kReal{"Width",       "ExposureTimeAbs",  "PixelFormat",     "17825799",
                         "TestBoolean", "DeviceVendorName", "TriggerSoftware", "SensorWidth"};

_ZDCC_INTVALUE_EX_T integerOf(Camera& camera, const char* name)
{
    _ZDCC_INTVALUE_EX_T record{};
    const int error = camera.read(OB_FT_TYPE_INTEGER, name, &record);
    if (error != CameraError::Ok)
        qWarning("%s: %s", name, CameraError::text(error));
    return record;
}

} // namespace

// Ends a test whose camera is not there.
#define REQUIRE_CAMERA()                                                                           \
    Camera* const tried = camera();                                                                \
    if (!tried)                                                                                    \
    QSKIP(qPrintable(m_skipReal))

// The contract of Camera, kept by every kind of camera: each test runs on the simulated camera and
// on a real one, which is a separate program speaking the real protocol.
class TestCamera : public GuardedTest
{
    Q_OBJECT

private:
    void cameras()
    {
        const Rows<bool> row("real");
        row("simulated", false);
        row("real", true);
    }
    Camera* camera()
    {
        QFETCH(bool, real);
        return real ? static_cast<Camera*>(m_real.get()) : m_demo.get();
    }
    const Specimen& specimen() const
    {
        QFETCH(bool, real);
        return real ? kReal : kDemo;
    }

    ManualClock m_clock;
    std::unique_ptr<Camera> m_demo;
    std::unique_ptr<FakeGigECamera> m_fake;
    std::unique_ptr<RealCamera> m_real;
    QString m_skipReal;

private slots:
    void initTestCase()
    {
        m_demo = std::make_unique<DemoCamera>(&m_clock);
        m_skipReal = FakeGigECamera::reasonToSkip();
        if (!m_skipReal.isEmpty())
            return;
        m_fake = std::make_unique<FakeGigECamera>();
        QVERIFY(m_fake->start());
        std::string error;
        m_real = RealCamera::open(FakeGigECamera::address().toStdString(), &error);
        QVERIFY2(m_real, error.c_str());
    }

    void cleanupTestCase()
    {
        m_real.reset();
        m_fake.reset();
        m_demo.reset();
    }

    void describesItself_data() { cameras(); }
    void describesItself()
    {
        REQUIRE_CAMERA();
        const DescriptionNodes nodes(tried->descriptionXml());
        QVERIFY(nodes.isValid());
        QVERIFY(nodes.reachableFeatures().size() > 20);
        QVERIFY(nodes.find(specimen().integer));
        QVERIFY(!tried->deviceRecord().name.empty());
        QCOMPARE(tried->deviceRecord().type, std::uint32_t(DeviceRecord::GigEVision));
    }

    void readsIntegerWithinItsRange_data() { cameras(); }
    void readsIntegerWithinItsRange()
    {
        REQUIRE_CAMERA();
        const auto record = integerOf(*tried, specimen().integer);
        QVERIFY(record.minimum < record.maximum);
        QVERIFY(record.value >= record.minimum && record.value <= record.maximum);
        QVERIFY(record.increment >= 1);
    }

    void keepsWrittenInteger_data() { cameras(); }
    void keepsWrittenInteger()
    {
        REQUIRE_CAMERA();
        const auto before = integerOf(*tried, specimen().integer);
        const auto value = before.minimum + 16 * before.increment;
        QCOMPARE(tried->write(OB_FT_TYPE_INTEGER, specimen().integer, std::to_string(value)), 0);
        QCOMPARE(integerOf(*tried, specimen().integer).value, value);
    }

    void refusesWrites_data()
    {
        // feature, empty: the integer of the specimen; "*": its float
        const Rows<bool, int, QString, QString, int> row("real", "type", "feature", "text",
                                                         "error");
        const auto both = [&row](const char* name, int type, const char* feature, const char* text,
                                 int error) {
            row(("simulated, " + QByteArray(name)).constData(), false, type, feature, text, error);
            row(("real, " + QByteArray(name)).constData(), true, type, feature, text, error);
        };
        both("above the maximum", OB_FT_TYPE_INTEGER, "", "1000000", CameraError::OutOfRange);
        both("below the minimum", OB_FT_TYPE_INTEGER, "", "-1", CameraError::OutOfRange);
        both("beyond 64 bits", OB_FT_TYPE_INTEGER, "", "9223372036854775808",
             CameraError::InvalidText);
        both("no number", OB_FT_TYPE_INTEGER, "", "12a", CameraError::InvalidText);
        both("no text", OB_FT_TYPE_INTEGER, "", "", CameraError::InvalidText);
        both("wrong type", OB_FT_TYPE_FLOAT, "", "64", CameraError::WrongType);
        both("unknown type", 77, "", "64", CameraError::WrongType);
        both("not finite", OB_FT_TYPE_FLOAT, "*", "inf", CameraError::InvalidText);
        both("unknown entry", OB_FT_TYPE_ENUMERATION, "PixelFormat", "3", CameraError::OutOfRange);
        both("read-only", OB_FT_TYPE_INTEGER, "SensorWidth", "64", CameraError::NotWritable);
        both("unknown feature", OB_FT_TYPE_INTEGER, "Nonsense", "1", CameraError::NodeNotFound);
        both("no command", OB_FT_TYPE_COMMAND, "", "", CameraError::WrongType);
    }

    void refusesWrites()
    {
        REQUIRE_CAMERA();
        QFETCH(int, type);
        QFETCH(QString, feature);
        QFETCH(QString, text);
        if (feature.isEmpty())
            feature = QString::fromLatin1(specimen().integer);
        else if (feature == QLatin1String("*"))
            feature = QString::fromLatin1(specimen().real);
        const auto before = integerOf(*tried, specimen().integer).value;
        QTEST(tried->write(type, feature.toStdString(), text.toStdString()), "error");
        QCOMPARE(integerOf(*tried, specimen().integer).value, before);
    }

    void keepsWrittenFloat_data() { cameras(); }
    void keepsWrittenFloat()
    {
        REQUIRE_CAMERA();
        QCOMPARE(tried->write(OB_FT_TYPE_FLOAT, specimen().real, "1.235e+04"), 0);
        _ZDCC_FLOATVALUE_T record{};
        QCOMPARE(tried->read(OB_FT_TYPE_FLOAT, specimen().real, &record), 0);
        QCOMPARE(record.value, 12350.0F);
        QVERIFY(record.minimum <= record.value && record.value <= record.maximum);
    }

    void switchesEnumeration_data() { cameras(); }
    void switchesEnumeration()
    {
        REQUIRE_CAMERA();
        _ZDCC_ENUMVALUE_T record{};
        QCOMPARE(tried->read(OB_FT_TYPE_ENUMERATION, specimen().enumeration, &record), 0);
        QVERIFY(record.supportedCount > 1 && record.supportedCount <= 64);
        const std::uint32_t* first = record.supported;
        QVERIFY(std::count(first, first + record.supportedCount, record.value) == 1);
        QCOMPARE(
            tried->write(OB_FT_TYPE_ENUMERATION, specimen().enumeration, specimen().otherEntry), 0);
        const auto before = record.value;
        QCOMPARE(tried->read(OB_FT_TYPE_ENUMERATION, specimen().enumeration, &record), 0);
        QCOMPARE(std::to_string(record.value), std::string(specimen().otherEntry));
        QCOMPARE(
            tried->write(OB_FT_TYPE_ENUMERATION, specimen().enumeration, std::to_string(before)),
            0);
    }

    void switchesBoolean_data() { cameras(); }
    void switchesBoolean()
    {
        REQUIRE_CAMERA();
        for (const char* text : {"1", "0"}) {
            unsigned char value = 7;
            QCOMPARE(tried->write(OB_FT_TYPE_BOOLEAN, specimen().boolean, text), 0);
            QCOMPARE(tried->read(OB_FT_TYPE_BOOLEAN, specimen().boolean, &value), 0);
            QCOMPARE(int(value), std::atoi(text));
        }
        QCOMPARE(tried->write(OB_FT_TYPE_BOOLEAN, specimen().boolean, "true"),
                 int(CameraError::InvalidText));
    }

    void readsText_data() { cameras(); }
    void readsText()
    {
        REQUIRE_CAMERA();
        _ZDCC_STRINGVALUE_T record{};
        QCOMPARE(tried->read(OB_FT_TYPE_STRING, specimen().text, &record), 0);
        QVERIFY(record.value[0] != 0);
        QCOMPARE(record.maximumLength, std::int64_t(32));
    }

    void executesCommand_data() { cameras(); }
    void executesCommand()
    {
        REQUIRE_CAMERA();
        QCOMPARE(tried->write(OB_FT_TYPE_COMMAND, specimen().command, ""), 0);
        QCOMPARE(tried->invalidate(), 0);
    }

    void refusesReads_data()
    {
        const Rows<bool, int, QByteArray, int> row("real", "type", "feature", "error");
        const auto both = [&row](const char* name, int type, const char* feature, int error) {
            row(("simulated, " + QByteArray(name)).constData(), false, type, feature, error);
            row(("real, " + QByteArray(name)).constData(), true, type, feature, error);
        };
        both("unknown feature", OB_FT_TYPE_INTEGER, "Nonsense", CameraError::NodeNotFound);
        both("empty name", OB_FT_TYPE_INTEGER, "", CameraError::NodeNotFound);
        both("integer as text", OB_FT_TYPE_STRING, "Width", CameraError::WrongType);
        both("integer as enumeration", OB_FT_TYPE_ENUMERATION, "Width", CameraError::WrongType);
        both("command", OB_FT_TYPE_INTEGER, "AcquisitionStop", CameraError::NotReadable);
    }

    void refusesReads()
    {
        REQUIRE_CAMERA();
        QFETCH(int, type);
        QFETCH(QByteArray, feature);
        QFETCH(int, error);
        _ZDCC_ENUMVALUE_T record{};
        record.value = 4711;
        // The fake camera's commands sit on a readable register: they are of the wrong type there.
        const int result = tried->read(type, feature.toStdString(), &record);
        QVERIFY2(result == error ||
                     (error == CameraError::NotReadable && result == CameraError::WrongType),
                 CameraError::text(result));
        QCOMPARE(record.value, 4711U);
    }

    void tellsAccessModes_data() { cameras(); }
    void tellsAccessModes()
    {
        REQUIRE_CAMERA();
        int mode = 77;
        QCOMPARE(tried->accessMode(specimen().integer, &mode), 0);
        QCOMPARE(mode, int(OB_FT_ACCESS_READ_WRITE));
        QCOMPARE(tried->accessMode(specimen().readOnly, &mode), 0);
        QCOMPARE(mode, int(OB_FT_ACCESS_READ_ONLY));
        QCOMPARE(tried->accessMode("Nonsense", &mode), int(CameraError::NodeNotFound));
        QCOMPARE(mode, int(OB_FT_ACCESS_NOT_IMPLEMENTED));
    }

    void realValueIsSeenFromOutside()
    {
        if (!m_real)
            QSKIP(qPrintable(m_skipReal));
        QCOMPARE(m_real->write(OB_FT_TYPE_INTEGER, "Width", "640"), 0);
        QCOMPARE(FakeGigECamera::readIndependently("Width"_s), "640"_s);
        // A serial number is found by search only.
        const auto found = RealCamera::list();
        QVERIFY(std::any_of(found.begin(), found.end(), [this](const RealCamera::Found& camera) {
            return camera.serial == m_fake->serial().toStdString();
        }));
    }

    void survivesTheEndOfTheCamera()
    {
        if (!m_real)
            QSKIP(qPrintable(m_skipReal));
        m_fake->kill();
        _ZDCC_INTVALUE_EX_T record{};
        const int first = m_real->read(OB_FT_TYPE_INTEGER, "Width", &record);
        QVERIFY2(first == CameraError::Timeout || first == CameraError::NotConnected,
                 CameraError::text(first));
        QVERIFY(!m_real->isConnected());
        int mode = 0;
        QCOMPARE(m_real->read(OB_FT_TYPE_INTEGER, "Width", &record),
                 int(CameraError::NotConnected));
        QCOMPARE(m_real->accessMode("Width", &mode), int(CameraError::NotConnected));
        QCOMPARE(m_real->reconnect(), int(CameraError::NotConnected));

        QVERIFY(m_fake->start());
        QCOMPARE(m_real->reconnect(), 0);
        QVERIFY(m_real->isConnected());
        QCOMPARE(m_real->read(OB_FT_TYPE_INTEGER, "Width", &record), 0);
    }
};

OBFT_TEST_MAIN(TestCamera)
#include "tst_camera.moc"
