// SPDX-License-Identifier: Apache-2.0
#include "cameras/CameraError.h"
#include "cameras/ManualClock.h"
#include "cameras/RealCamera.h"
#include "demo/DemoCamera.h"
#include "host/CameraTalk.h"
#include "host/FakeGigECamera.h"
#include "support/TestMain.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <algorithm>
#include <memory>

// The contract of Camera, kept by every kind of camera: each test runs on the simulated camera and
// on a real one, which is a separate program speaking the real protocol.
class TestCamera : public GuardedTest
{
    Q_OBJECT

private:
    ManualClock m_clock;
    std::unique_ptr<Camera> m_demo;
    std::unique_ptr<FakeGigECamera> m_fake;
    std::unique_ptr<Camera> m_real;
    QString m_skipReal;

private slots:
    void initTestCase()
    {
        m_demo = std::make_unique<DemoCamera>(&m_clock);
        m_skipReal = FakeGigECamera::reasonToSkip();
        if (!m_skipReal.isEmpty())
            return;
        m_fake = std::make_unique<FakeGigECamera>();
        m_real = m_fake->open();
        QVERIFY(m_real);
    }

    void cleanupTestCase()
    {
        m_real.reset();
        m_fake.reset();
        m_demo.reset();
    }

    void keepsTheContract_data()
    {
        const Rows<bool, QString> row("real", "talk");
        // $Real, $Boolean: features that the two call differently.
        const auto both = [&row](const char* name, const char* talk) {
            QString said = QString::fromLatin1(talk);
            row(("real, " + QByteArray(name)).constData(), true,
                QString(said)
                    .replace("$Real"_s, "ExposureTimeAbs"_s)
                    .replace("$Boolean"_s, "TestBoolean"_s));
            row(("simulated, " + QByteArray(name)).constData(), false,
                said.replace("$Real"_s, "ExposureTime"_s).replace("$Boolean"_s, "ReverseX"_s));
        };
        both("keeps an integer", "Width=320; Width: 320; invalidate(); Width: 320");
        both("keeps a float", "$Real=1.235e+04; $Real: 12350");
        both("keeps an entry", "PixelFormat=17301505; PixelFormat: 17301505");
        both("keeps a switch", "$Boolean=1; $Boolean: 1; $Boolean=0; $Boolean: 0");
        both("executes a command", "TriggerSoftware()");
        both("access modes", "Width? rw; SensorWidth? ro; Nonsense? ni: NodeNotFound");
        for (const char* refused :
             {"Width=1000000: OutOfRange", "Width=-1: OutOfRange",
              "Width=9223372036854775808: InvalidText", "Width=12a: InvalidText",
              "Width=: InvalidText", "(Float)Width=64: WrongType", "(none)Width=64: WrongType",
              "$Real=inf: InvalidText", "PixelFormat=3: OutOfRange", "SensorWidth=64: NotWritable",
              "$Boolean=true: InvalidText", "Nonsense=1: NodeNotFound", "Width(): WrongType"})
            both(refused, (QByteArray("Width=320; ") + refused + "; Width: 320").constData());
        for (const char* refused : {"Nonsense: NodeNotFound", "(String)Width: WrongType",
                                    "(Enumeration)Width: WrongType", ": NodeNotFound"})
            both(refused, refused);
    }

    void keepsTheContract()
    {
        const auto [real, talk] = fetchRow<bool, QString>();
        if (real && !m_real)
            QSKIP(qPrintable(m_skipReal));
        QCOMPARE(CameraTalk(real ? *m_real : *m_demo).again(talk), talk);
    }

    void describesItself_data()
    {
        const Rows<bool> row("real");
        row("simulated", false);
        row("real", true);
    }

    void describesItself()
    {
        QFETCH(bool, real);
        if (real && !m_real)
            QSKIP(qPrintable(m_skipReal));
        Camera& camera = real ? *m_real : *m_demo;
        QVERIFY(DescriptionNodes(camera.descriptionXml()).reachableFeatures().size() > 20);
        QVERIFY(!camera.deviceRecord().name.empty());
        QCOMPARE(camera.deviceRecord().type, std::uint32_t(DeviceRecord::GigEVision));
        _ZDCC_INTVALUE_EX_T width{};
        QCOMPARE(camera.read(OB_FT_TYPE_INTEGER, "Width", &width), 0);
        QVERIFY(width.minimum < width.value && width.value <= width.maximum);
        _ZDCC_ENUMVALUE_T format{};
        QCOMPARE(camera.read(OB_FT_TYPE_ENUMERATION, "PixelFormat", &format), 0);
        QVERIFY(format.supportedCount > 1 && format.supportedCount <= 64);
        const std::uint32_t* first = format.supported;
        QVERIFY(std::count(first, first + format.supportedCount, format.value) == 1);
        _ZDCC_STRINGVALUE_T vendor{};
        QCOMPARE(camera.read(OB_FT_TYPE_STRING, "DeviceVendorName", &vendor), 0);
        QVERIFY(vendor.value[0] != 0);
        QCOMPARE(vendor.maximumLength, std::int64_t(32));
        // The fake camera's commands sit on a readable register: they may be of the wrong type.
        const int error = camera.read(OB_FT_TYPE_INTEGER, "AcquisitionStop", &width);
        QVERIFY2(error == CameraError::NotReadable || (real && error == CameraError::WrongType),
                 CameraError::text(error));
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
        CameraTalk talk(*m_real);
        const QString gone = "isConnected: 0; Width: NotConnected; Width? ni: NotConnected; "
                             "reconnect(): NotConnected"_s;
        QCOMPARE(talk.again(gone), gone);
        QVERIFY(m_fake->start());
        QCOMPARE(talk.again("reconnect(); isConnected: 1"_s), "reconnect(); isConnected: 1"_s);
        QCOMPARE(m_real->read(OB_FT_TYPE_INTEGER, "Width", &record), 0);
    }
};

OBFT_TEST_MAIN(TestCamera)
#include "tst_camera.moc"
