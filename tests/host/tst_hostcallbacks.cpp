// SPDX-License-Identifier: Apache-2.0
#include "cameras/CameraError.h"
#include "demo/DemoCamera.h"
#include "program/HostCallbacks.h"
#include "support/TestMain.h"

#include <atomic>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

// Throws on every call.
class ThrowingCamera : public Camera
{
public:
    const std::string& descriptionXml() const override { return m_xml; }
    DeviceRecord deviceRecord() const override { return {}; }
    int read(int, const std::string&, void*) override { throw std::runtime_error("read"); }
    int write(int, const std::string&, const std::string&) override { throw 42; }
    int accessMode(const std::string&, int*) override { throw std::bad_alloc(); }
    int invalidate() override { throw "invalidate"; }
    bool isConnected() const override { return true; }
    int reconnect() override { return 0; }

private:
    std::string m_xml;
};

} // namespace

class TestHostCallbacks : public GuardedTest
{
    Q_OBJECT

private slots:
    void countsAndHandsOn()
    {
        DemoCamera camera;
        HostCallbacks callbacks(camera);
        char width[] = "Width";
        char value[] = "640";
        char nonsense[] = "Nonsense";
        _ZDCC_INTVALUE_EX_T record{};
        int mode = 0;
        QCOMPARE(HostCallbacks::getFeature(OB_FT_TYPE_INTEGER, width, &record, &callbacks), 0);
        QCOMPARE(HostCallbacks::getFeature(OB_FT_TYPE_INTEGER, width, &record, &callbacks), 0);
        QCOMPARE(HostCallbacks::getMode(nonsense, &mode, &callbacks),
                 int(CameraError::NodeNotFound));
        QCOMPARE(HostCallbacks::setFeature(OB_FT_TYPE_INTEGER, width, value, &callbacks), 0);
        QCOMPARE(HostCallbacks::invalidate(&callbacks), 0);

        const CallCounter& calls = callbacks.calls();
        QCOMPARE(calls.count(CallCounter::Read), 2L);
        QCOMPARE(calls.count(CallCounter::Read, "Width"), 2L);
        QCOMPARE(calls.count(CallCounter::Mode, "Width"), 0L);
        QCOMPARE(calls.count(CallCounter::Invalidate), 1L);
        QCOMPARE(calls.errors(), 1L);
        QCOMPARE(calls.names(), 2L);
        QCOMPARE(calls.countOnThread(std::this_thread::get_id()), 5L);
        const auto writes = calls.writes();
        QCOMPARE(writes.size(), std::size_t(1));
        QCOMPARE(writes[0].text, std::string("640"));

        int seen = 0;
        QCOMPARE(HostCallbacks::action(1, &callbacks), 0); // nobody listens yet
        callbacks.setActionHandler([&seen](int action) { seen = action; });
        QCOMPARE(HostCallbacks::action(OB_FT_ACTION_WINDOW_HIDDEN, &callbacks), 0);
        QCOMPARE(seen, int(OB_FT_ACTION_WINDOW_HIDDEN));
        QCOMPARE(HostCallbacks::setFeature(OB_FT_TYPE_COMMAND, nullptr, nullptr, &callbacks),
                 int(CameraError::NodeNotFound));
    }

    void keepsExceptionsIn()
    {
        ThrowingCamera camera;
        HostCallbacks callbacks(camera);
        callbacks.setActionHandler([](int) { throw std::logic_error("action"); });
        char name[] = "Width";
        char value[] = "1";
        int mode = 0;
        _ZDCC_INTVALUE_EX_T record{};
        const int internal = CameraError::Internal;
        QCOMPARE(HostCallbacks::getFeature(OB_FT_TYPE_INTEGER, name, &record, &callbacks),
                 internal);
        QCOMPARE(HostCallbacks::setFeature(OB_FT_TYPE_INTEGER, name, value, &callbacks), internal);
        QCOMPARE(HostCallbacks::getMode(name, &mode, &callbacks), internal);
        QCOMPARE(HostCallbacks::invalidate(&callbacks), internal);
        QCOMPARE(HostCallbacks::action(1, &callbacks), internal);
        QCOMPARE(callbacks.calls().errors(), 5L);
    }

    void newsEndWhenNothingNewIsAsked()
    {
        DemoCamera camera;
        HostCallbacks callbacks(camera);
        QVERIFY(callbacks.calls().timeSinceNews().count() == 0);
        char width[] = "Width";
        int mode = 0;
        // The same question again and again, as polling does, is no news.
        QTRY_VERIFY((HostCallbacks::getMode(width, &mode, &callbacks),
                     callbacks.calls().timeSinceNews().count() > 50));
        char height[] = "Height";
        HostCallbacks::getMode(height, &mode, &callbacks);
        callbacks.calls().begin(CallCounter::Read, "Width");
        QVERIFY(callbacks.calls().timeSinceNews().count() == 0); // a call runs
        callbacks.calls().end(CallCounter::Read, "Width", 0);
    }

    // Readers and writers of one feature: every value that is read was written by somebody. Run it
    // under the thread sanitizer as well.
    void servesManyThreadsAtOnce()
    {
        constexpr int kThreads = 4;
        constexpr int kRounds = 150;
        DemoCamera camera;
        HostCallbacks callbacks(camera);
        std::atomic<int> wrong{0};
        const auto work = [&](int number) {
            char name[] = "TestLinear";
            char name2[] = "DeviceUserID";
            for (int round = 0; round < kRounds; ++round) {
                std::string value = std::to_string(5 * ((number * kRounds + round) % 200));
                std::string text = "user " + std::to_string(number);
                _ZDCC_INTVALUE_EX_T record{};
                _ZDCC_STRINGVALUE_T user{};
                int mode = 0;
                wrong += HostCallbacks::setFeature(OB_FT_TYPE_INTEGER, name, value.data(),
                                                   &callbacks) != 0;
                wrong +=
                    HostCallbacks::getFeature(OB_FT_TYPE_INTEGER, name, &record, &callbacks) != 0;
                wrong += record.value % 5 != 0 || record.value < 0 || record.value > 1000;
                wrong += HostCallbacks::setFeature(OB_FT_TYPE_STRING, name2, text.data(),
                                                   &callbacks) != 0;
                wrong +=
                    HostCallbacks::getFeature(OB_FT_TYPE_STRING, name2, &user, &callbacks) != 0;
                wrong += std::strncmp(user.value, "user ", 5) != 0;
                wrong += HostCallbacks::getMode(name, &mode, &callbacks) != 0;
                wrong += HostCallbacks::invalidate(&callbacks) != 0;
            }
        };
        std::vector<std::thread> threads;
        for (int number = 0; number < kThreads; ++number)
            threads.emplace_back(work, number);
        for (std::thread& thread : threads)
            thread.join();
        QCOMPARE(wrong.load(), 0);
        QCOMPARE(callbacks.calls().count(CallCounter::Write), long(2 * kThreads * kRounds));
    }
};

OBFT_TEST_MAIN(TestHostCallbacks)
#include "tst_hostcallbacks.moc"
