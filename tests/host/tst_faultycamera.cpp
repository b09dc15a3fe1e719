// SPDX-License-Identifier: Apache-2.0
#include "cameras/CameraError.h"
#include "cameras/ManualClock.h"
#include "demo/DemoCamera.h"
#include "description/DescriptionNodes.h"
#include "faults/FaultyCamera.h"
#include "faults/FaultyRecords.h"
#include "support/TestMain.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <cmath>
#include <cstring>
#include <memory>

using namespace std::chrono_literals;

class TestFaultyCamera : public GuardedTest
{
    Q_OBJECT

private:
    std::unique_ptr<FaultyCamera> faulty(const char* plan)
    {
        QString error;
        const auto parsed = FaultPlan::parse(QString::fromLatin1(plan), &error);
        if (!parsed)
            qWarning("%s", qPrintable(error));
        return std::make_unique<FaultyCamera>(*m_demo, *parsed, &m_clock);
    }
    static int width(Camera& camera)
    {
        _ZDCC_INTVALUE_EX_T record{};
        return camera.read(OB_FT_TYPE_INTEGER, "Width", &record);
    }

    ManualClock m_clock;
    std::unique_ptr<DemoCamera> m_demo;

protected:
    void prepare() override { m_demo = std::make_unique<DemoCamera>(&m_clock); }

private slots:
    void passesThroughWithoutAPlan()
    {
        const auto camera = faulty("");
        QCOMPARE(camera->descriptionXml(), m_demo->descriptionXml());
        QCOMPARE(width(*camera), 0);
        QCOMPARE(camera->write(OB_FT_TYPE_INTEGER, "Width", "640"), 0);
        QVERIFY(camera->isConnected());
        QCOMPARE(camera->invalidate(), 0);
    }

    void latencyAddsUp()
    {
        const auto camera = faulty("latency * 5; latency Width 20 on read; hang Height 300");
        const auto took = [this](const std::function<void()>& call) {
            const auto before = m_clock.now();
            call();
            return m_clock.now() - before;
        };
        int mode = 0;
        _ZDCC_INTVALUE_EX_T record{};
        QVERIFY(took([&] { width(*camera); }) == 25ms);
        QVERIFY(took([&] { camera->accessMode("Width", &mode); }) == 5ms);
        QVERIFY(took([&] { camera->read(OB_FT_TYPE_INTEGER, "Height", &record); }) == 305ms);
        QVERIFY(took([&] { camera->read(OB_FT_TYPE_INTEGER, "Height", &record); }) == 5ms);
    }

    void jitterRepeatsWithItsSeed()
    {
        const auto total = [this](const char* plan) {
            const auto camera = faulty(plan);
            const auto before = m_clock.now();
            for (int i = 0; i < 20; ++i)
                width(*camera);
            return m_clock.now() - before;
        };
        const auto first = total("seed 7; jitter * 1000");
        QVERIFY(first > 0ms && first <= 20000ms);
        QVERIFY(total("seed 7; jitter * 1000") == first);
        QVERIFY(total("seed 8; jitter * 1000") != first);
    }

    void errorComesWhenItIsDue()
    {
        const auto camera = faulty("error Width 0x80000042 after 1 times 2 on read");
        const int code = static_cast<int>(0x80000042U);
        int mode = 0;
        QCOMPARE(camera->accessMode("Width", &mode), 0);
        QCOMPARE(width(*camera), 0);
        QCOMPARE(width(*camera), code);
        QCOMPARE(width(*camera), code);
        QCOMPARE(width(*camera), 0);
        QCOMPARE(camera->effects(0), 2L);
    }

    void featureVanishes()
    {
        const auto camera = faulty("vanish Width after 1");
        int mode = 0;
        QCOMPARE(camera->accessMode("Width", &mode), 0);
        QCOMPARE(camera->accessMode("Width", &mode), int(CameraError::NodeNotFound));
        QCOMPARE(mode, int(OB_FT_ACCESS_NOT_IMPLEMENTED));
        QCOMPARE(width(*camera), int(CameraError::NodeNotFound));
    }

    void lockAppearsAfterAWrite()
    {
        const auto camera = faulty("lock Wid* by ExposureTime");
        int mode = 0;
        QCOMPARE(camera->write(OB_FT_TYPE_INTEGER, "Width", "640"), 0);
        QCOMPARE(camera->write(OB_FT_TYPE_FLOAT, "ExposureTime", "no number"),
                 int(CameraError::InvalidText));
        QCOMPARE(camera->write(OB_FT_TYPE_INTEGER, "Width", "656"), 0);
        QCOMPARE(camera->write(OB_FT_TYPE_FLOAT, "ExposureTime", "500"), 0);
        QCOMPARE(camera->accessMode("Width", &mode), 0);
        QCOMPARE(mode, int(OB_FT_ACCESS_READ_ONLY));
        QCOMPARE(camera->write(OB_FT_TYPE_INTEGER, "Width", "640"), int(CameraError::NotWritable));
        QCOMPARE(width(*camera), 0);
    }

    void disconnectsInTheMiddleOfAPass()
    {
        const auto camera = faulty("disconnect after 10");
        int answered = 0;
        while (width(*camera) == 0)
            ++answered;
        QCOMPARE(answered, 10);
        QVERIFY(!camera->isConnected());
        QCOMPARE(camera->invalidate(), int(CameraError::NotConnected));
        QCOMPARE(camera->reconnect(), 0);
        QVERIFY(camera->isConnected());
        QCOMPARE(width(*camera), 0);
    }

    void spoilsRecords()
    {
        const auto camera =
            faulty("range Width min=10 max=1 inc=-3; range Gain value=nan max=-inf; entries "
                   "PixelFormat 5000; value PixelFormat 7; value ReverseX 200; text DeviceUserID "
                   "unterminated; text DeviceVendorName empty");
        _ZDCC_INTVALUE_EX_T integer{};
        QCOMPARE(camera->read(OB_FT_TYPE_INTEGER, "Width", &integer), 0);
        QCOMPARE(integer.minimum, std::int64_t(10));
        QCOMPARE(integer.maximum, std::int64_t(1));
        QCOMPARE(integer.increment, std::int64_t(-3));
        _ZDCC_FLOATVALUE_T real{};
        QCOMPARE(camera->read(OB_FT_TYPE_FLOAT, "Gain", &real), 0);
        QVERIFY(std::isnan(real.value) && std::isinf(real.maximum));
        _ZDCC_ENUMVALUE_T entries{};
        QCOMPARE(camera->read(OB_FT_TYPE_ENUMERATION, "PixelFormat", &entries), 0);
        QCOMPARE(entries.supportedCount, 5000U);
        QCOMPARE(entries.value, 7U);
        unsigned char on = 0;
        QCOMPARE(camera->read(OB_FT_TYPE_BOOLEAN, "ReverseX", &on), 0);
        QCOMPARE(int(on), 200);
        _ZDCC_STRINGVALUE_T text{};
        QCOMPARE(camera->read(OB_FT_TYPE_STRING, "DeviceUserID", &text), 0);
        QVERIFY(!std::memchr(text.value, 0, sizeof text.value));
        QCOMPARE(camera->read(OB_FT_TYPE_STRING, "DeviceVendorName", &text), 0);
        QCOMPARE(std::strlen(text.value), std::size_t(0));
    }

    void spoilsModes()
    {
        const auto camera = faulty("mode Width 9; mode Height -1");
        int mode = 0;
        QCOMPARE(camera->accessMode("Width", &mode), 0);
        QCOMPARE(mode, 9);
        QCOMPARE(camera->accessMode("Height", &mode), 0);
        QCOMPARE(mode, -1);
    }

    void lengthensNames()
    {
        const auto camera = faulty("long-name Width; long-text Height");
        const DescriptionNodes nodes(camera->descriptionXml());
        const DescriptionNodes sound(m_demo->descriptionXml());
        QVERIFY(nodes.isValid());
        QCOMPARE(nodes.all().size(), sound.all().size());
        QCOMPARE(nodes.find("Width")->displayName.size(), std::size_t(FaultyRecords::kLongText));
        QCOMPARE(nodes.find("Height")->description.size(), std::size_t(FaultyRecords::kLongText));
        QCOMPARE(nodes.find("Height")->displayName, sound.find("Height")->displayName);
        QCOMPARE(nodes.find("OffsetX")->displayName, sound.find("OffsetX")->displayName);
    }
};

OBFT_TEST_MAIN(TestFaultyCamera)
#include "tst_faultycamera.moc"
