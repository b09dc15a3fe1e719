// SPDX-License-Identifier: Apache-2.0
// Features of the demo camera that take their time: shading reference images, the common time of
// the network, and what serves to test hosts.
#include "cameras/CameraError.h"
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

#include <chrono>

namespace DemoBehaviours {

namespace {

constexpr std::chrono::seconds kShadingTime{2};
constexpr std::chrono::seconds kPtpTime{2};

enum ShadingStatus : std::int64_t { ShadingBusy = 1, ShadingDone = 2 };
enum PtpStatus : std::int64_t { PtpDisabled = 2, PtpListening = 3, PtpSlave = 8 };
enum PtpServo : std::int64_t { ServoUnknown = 0, ServoLocked = 1 };

void shading(DemoContext& demo)
{
    demo.behaviours().beforeWrite("ActivateShading", [&demo]() -> int {
        return demo.integer("ShadingStatus") == ShadingBusy ? CameraError::Busy : CameraError::Ok;
    });
    demo.behaviours().afterWrite("ActivateShading", [&demo] {
        demo.setInteger("ShadingStatus", ShadingBusy);
        demo.behaviours().after(kShadingTime,
                                [&demo] { demo.setInteger("ShadingStatus", ShadingDone); });
    });
}

void showPtp(DemoContext& demo, PtpStatus status, PtpServo servo)
{
    demo.setInteger("PtpStatus", status);
    demo.setInteger("PtpServoStatus", servo);
}

void commonTime(DemoContext& demo)
{
    demo.behaviours().afterWrite("PtpEnable", [&demo] {
        const bool on = demo.integer("PtpEnable") != 0;
        showPtp(demo, on ? PtpListening : PtpDisabled, ServoUnknown);
        demo.behaviours().after(kPtpTime, [&demo] {
            if (demo.integer("PtpStatus") == PtpListening)
                showPtp(demo, PtpSlave, ServoLocked);
        });
    });
    demo.behaviours().afterWrite("PtpDataSetLatch", [&demo] {
        constexpr std::int64_t kSpread = 200; // nanoseconds
        const bool locked = demo.integer("PtpServoStatus") == ServoLocked;
        demo.setIntegerAt("PtpOffsetFromMasterReg", 0,
                          locked ? demo.timestamp() / 1000000 % kSpread - kSpread / 2 : 0);
    });
}

void testFeatures(DemoContext& demo)
{
    demo.behaviours().afterWrite("TestPendingAck", [&demo] {
        demo.clock().sleep(std::chrono::milliseconds(demo.integer("TestPendingAck")));
    });
    demo.behaviours().afterWrite(
        "TestEventGenerate", [&demo] { demo.setInteger("EventTestTimestamp", demo.timestamp()); });
}

} // namespace

void slowCommands(DemoContext& demo)
{
    shading(demo);
    commonTime(demo);
    testFeatures(demo);
}

} // namespace DemoBehaviours
