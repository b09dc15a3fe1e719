// SPDX-License-Identifier: Apache-2.0
#include "device/LoadingLane.h"
#include "device/OBDeviceControl.h"
#include "device/XmlLimits.h"
#include "support/FakeHost.h"
#include "support/TestMain.h"

#include <QSemaphore>

#include <atomic>
#include <chrono>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <thread>

using Write = std::function<bool(int* err)>;
Q_DECLARE_METATYPE(Write)

class TestOBDeviceControl : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override { FakeHost::uninstall(); }

private slots:
    void withoutCallbacksOnlyWritesAreLogged()
    {
        _ZDCC_INTVALUE_EX_T value = {};
        int err = 0;
        QVERIFY(!OBDeviceControl::GetIntegerNodeValue("Width"_s, &value, &err));
        QCOMPARE(err, DeviceError::kNoCallback);
        QVERIFY(MessageGuard::messages().isEmpty());
        MessageGuard::ignoreMessage(
            QtCriticalMsg, "Read Feature Failed; NodeName : Width;  ErrorCode : -80000000");
        err = 0;
        QVERIFY(!OBDeviceControl::SetIntegerNodeValue("Width"_s, 1, &err));
        QCOMPARE(err, DeviceError::kNoCallback);
    }

    void writesSendTheTextOfTheirType_data()
    {
        // sent: the type's code and the text
        const Rows<Write, QString> row("write", "sent");
        using Control = OBDeviceControl;
        const auto integer = [](qint64 value) {
            return [=](int* err) { return Control::SetIntegerNodeValue("F"_s, value, err); };
        };
        row("largest integer", integer(INT64_MAX), "2 9223372036854775807");
        row("smallest integer", integer(INT64_MIN), "2 -9223372036854775808");
        const auto boolean = [](bool value) {
            return [=](int* err) { return Control::SetBoolNodeValue("F"_s, value, err); };
        };
        row("true", boolean(true), "3 1");
        row("false", boolean(false), "3 0");
        const auto command = [](int* err) { return Control::SetCommandNodeValue("F"_s, err); };
        row("command", Write(command), "4 ");
        const auto real = [](float value) {
            return [=](int* err) { return Control::SetFloatNodeValue("F"_s, value, err); };
        };
        row("float rounded", real(1234.56F), "5 1235");
        row("float exponent", real(12346.0F), "5 1.235e+04");
        row("float small", real(0.000123456F), "5 0.0001235");
        const auto text = [](int* err) { return Control::SetStringNodeValue("F"_s, "a b"_s, err); };
        row("text", Write(text), "6 a b");
        const auto entry = [](int* err) { return Control::SetEnumNodeValue("F"_s, ~0U, err); };
        row("largest entry", Write(entry), "9 4294967295");
    }

    void writesSendTheTextOfTheirType()
    {
        QFETCH(Write, write);
        QString sent;
        OBDeviceControl::SetCallBackFunc(
            nullptr,
            [](int type, char* name, char* text, void* user) {
                *static_cast<QString*>(user) = "%1 %2"_s.arg(type).arg(QLatin1String(text));
                return std::strcmp(name, "F");
            },
            nullptr, nullptr, nullptr, &sent);
        int err = -1;
        QVERIFY(write(&err));
        QCOMPARE(err, 0);
        QTEST(sent, "sent");
    }

    void readabilityTest_data()
    {
        const Rows<int, bool> row("mode", "readable");
        row("not implemented", 0, false);
        row("not available", 1, false);
        row("write-only counts as readable", 2, true);
        row("read-only", 3, true);
        row("read-write", 4, true);
        row("nonsense", 5, false);
        row("negative nonsense", -3, false);
    }

    void readabilityTest()
    {
        const auto [mode, readable] = fetchRow<int, bool>();
        FakeHost host;
        host.set("Width"_s, FakeHost::integerFeature(7).withMode(mode));
        host.install();
        host.clearCalls();
        _ZDCC_INTVALUE_EX_T value = {};
        int err = 0;
        QCOMPARE(OBDeviceControl::GetIntegerNodeValue("Width"_s, &value, &err, true), readable);
        QCOMPARE(err, readable ? 0 : DeviceError::kNotReadable);
        QCOMPARE(host.count("mode Width"_s), 1);
        QCOMPARE(host.count("get Width"_s), readable ? 1 : 0);
    }

    void failedReadsGiveNothing()
    {
        FakeHost host;
        host.set("Width"_s, FakeHost::integerFeature(7));
        host.failMode("Width"_s, 42);
        host.install();
        int err = 0;
        QCOMPARE(OBDeviceControl::GetNodeAccessMode("Width"_s, &err), 0); // not implemented
        QCOMPARE(err, 42);
        QString text = "before"_s;
        int length = 5;
        QVERIFY(!OBDeviceControl::GetStringNodeValue("Missing"_s, text, &length));
        QCOMPARE(text, "before"_s);
        QCOMPARE(length, 5);
    }

    void failedWriteLogsItsCode()
    {
        for (const auto& [code, printed] :
             {std::pair(31, "1f"), {int(0x80000106U), "-7ffffefa"}, {-1, "-1"}}) {
            FakeHost host;
            host.fail("Gain"_s, code);
            host.install();
            const QByteArray line =
                QByteArray("Read Feature Failed; NodeName : Gain;  ErrorCode : ") + printed;
            MessageGuard::ignoreMessage(QtCriticalMsg, line.constData());
            int err = 0;
            QVERIFY(!OBDeviceControl::SetFloatNodeValue("Gain"_s, 1.0F, &err));
            QCOMPARE(err, code);
        }
    }

    void chunkSupportFollowsReadability()
    {
        for (const auto& [mode, active, supported] :
             {std::tuple(0, false, false), {4, false, true}, {3, true, true}}) {
            FakeHost host;
            host.set("ChunkModeActive"_s, FakeHost::booleanFeature(active).withMode(mode));
            host.install();
            QCOMPARE(OBDeviceControl::IsSupportChunk(), supported);
        }
    }

    void recordsOfTheHostAreBounded()
    {
        OBDeviceControl::SetCallBackFunc(
            [](int type, char*, void* value, void*) {
                if (type == OB_FT_TYPE_STRING)
                    std::memset(static_cast<_ZDCC_STRINGVALUE_T*>(value)->value, 'x', 256);
                else if (type == OB_FT_TYPE_ENUMERATION)
                    static_cast<_ZDCC_ENUMVALUE_T*>(value)->supportedCount = 100000;
                else
                    *static_cast<unsigned char*>(value) = 0x80;
                return 0;
            },
            nullptr, nullptr, nullptr, nullptr, nullptr);
        QString text;
        QVERIFY(OBDeviceControl::GetStringNodeValue("Id"_s, text, nullptr));
        QCOMPARE(text, QString(256, QLatin1Char('x')));
        _ZDCC_ENUMVALUE_T entry = {};
        QVERIFY(OBDeviceControl::GetEnumNodeValue("Mode"_s, &entry));
        QCOMPARE(entry.supportedCount, 64U);
        bool on = false;
        QVERIFY(OBDeviceControl::GetBoolNodeValue("On"_s, &on));
        QVERIFY(on);
    }

    void exceptionsOfTheHostEndHere()
    {
        OBDeviceControl::SetCallBackFunc(
            [](int, char*, void*, void*) -> int { throw std::runtime_error("no camera"); }, nullptr,
            nullptr, nullptr, nullptr, nullptr);
        MessageGuard::ignoreMessage(QtCriticalMsg, "A callback of the host: no camera");
        int err = 0;
        bool on = false;
        QVERIFY(!OBDeviceControl::GetBoolNodeValue("On"_s, &on, &err));
        QCOMPARE(err, DeviceError::kCallbackThrew);
    }

    void deviceNameEndsAt127Bytes()
    {
        QCOMPARE(OBDeviceControl::GetDeviceType(), 0);
        QVERIFY(!OBDeviceControl::IsGenTLInterface());
        OBDeviceControl::SetDeviceInfo(nullptr);
        _OB_FT_DEVICEINFO_ info = {};
        info.deviceType = 256;
        std::memset(info.deviceName, 'n', sizeof(info.deviceName));
        OBDeviceControl::SetDeviceInfo(&info);
        QVERIFY(OBDeviceControl::IsGenTLInterface());
        QCOMPARE(OBDeviceControl::GetDeviceName(), QString(127, QLatin1Char('n')));
    }

    void textsWithinTheLimits_data()
    {
        const Rows<QByteArray, bool> row("text", "acceptable");
        const auto nested = [](int depth) {
            return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
        };
        row("empty", "", true);
        row("1,000 levels", nested(1000), true);
        row("1,001 levels", nested(1001), false);
        row("100,000 opened, none closed", QByteArray("<a>").repeated(100000), false);
        row("many siblings", "<r>" + QByteArray("<a></a>").repeated(5000) + "</r>", true);
        row("elements that close themselves", QByteArray("<a/>").repeated(5000), true);
        row("tags inside comments", "<r><!--" + QByteArray("<a>").repeated(2000) + "--></r>", true);
        row("tags inside CDATA", "<r><![CDATA[" + QByteArray("<a>").repeated(2000) + "]]></r>",
            true);
        row("sign inside an attribute", "<r>" + QByteArray("<a t='/>'>").repeated(1500) + "</r>",
            false);
        row("unfinished comment", "<r><!-- <a>", true);
        row("quoted end of the declaration",
            "<?xml version='1.0' encoding='?><!--'?>" + nested(1001), false);
        row("apostrophe in a processing instruction", "<?p it's?>" + nested(1001), false);
        row("document type declaration", "<!DOCTYPE r><r/>", false);
        row("document type behind what may precede it",
            "<?xml version='1.0'?>\n<!-- it's --><?p '?> <!DOCTYPE r [<!ENTITY a 'b'>]><r>&a;</r>",
            false);
        row("document type inside a comment", "<!-- <!DOCTYPE r> --><r/>", true);
        row("document type inside CDATA", "<r><![CDATA[<!DOCTYPE r>]]></r>", true);
        row("65 MB", QByteArray(65 * 1024 * 1024, ' '), false);
    }

    void textsWithinTheLimits()
    {
        const auto [text, acceptable] = fetchRow<QByteArray, bool>();
        QCOMPARE(XmlLimits::acceptable(text.constData(), static_cast<std::size_t>(text.size())),
                 acceptable);
    }

    void descriptionsThatDoNotParse_data()
    {
        const Rows<QByteArray> row("text");
        row("empty", "");
        row("no XML", "Width=640");
        row("cut off", "<RegisterDescription><Category");
        row("beyond the limits", QByteArray("<a>").repeated(100000));
        row("two roots", "<RegisterDescription/><RegisterDescription/>");
        row("no root", "<?xml version='1.0'?><!-- nothing -->");
    }

    void descriptionsThatDoNotParse()
    {
        QFETCH(QByteArray, text);
        OBDeviceControl::Init("<RegisterDescription/>", nullptr);
        QVERIFY(OBDeviceControl::GetDeviceXml()->documentElement());
        MessageGuard::ignoreMessage(QtCriticalMsg, "Create XML pDeviceXml DomDocument Failed");
        OBDeviceControl::Init(text.constData(), nullptr);
        QVERIFY(!OBDeviceControl::GetDeviceXml()->documentElement());
    }

    void textOfAnElement_data()
    {
        const Rows<QByteArray, QString, QString> row("inner", "text", "inOnePiece");
        row("blanks around it", " \n a b\t", " \n a b\t", "a b");
        row("only blanks", "  ", "", "");
        row("CDATA", "<![CDATA[ a<b ]]>", " a<b ", "a<b");
        row("references", "&lt;&#181;&amp;&quot;", "<µ&\"", "<µ&\"");
        row("of an entity that nobody declares", "&a;", "&a;", "&a;");
        row("line breaks", "a\r\nb", "a\nb", "a\nb");
        row("around a comment", "a<!-- c -->b", "ab", "");
        row("around CDATA", "a<![CDATA[b]]>c", "abc", "");
        row("around an element", "a<i>b<i>c</i></i>d", "abcd", "");
        row("broken UTF-8", "a\xFF", "a\uFFFD", "a\uFFFD");
    }

    void textOfAnElement()
    {
        QFETCH(QByteArray, inner);
        XmlDocument document;
        QVERIFY(document.setContent("<r>" + inner + "</r>"));
        QTEST(XmlText::of(document.documentElement()), "text");
        QTEST(XmlText::toString(XmlText::trimmed(document.documentElement())), "inOnePiece");
    }

    void piecesAreLoadedOneAfterTheOther()
    {
        QSemaphore gate;
        QSemaphore begun;
        std::atomic<bool> firstEnded{false};
        const auto first = LoadingLane::run([&] {
            gate.acquire();
            firstEnded = true;
            throw std::runtime_error("of no use");
            return 0;
        });
        auto second = LoadingLane::run([&] {
            begun.release();
            return firstEnded.load();
        });
        QVERIFY(!begun.tryAcquire(1, 20));
        gate.release();
        QVERIFY(second.get());
        QVERIFY(LoadingLane::run([] { return true; }).get());
    }

    void theLaneGoesOnWithWhatAPieceAsksFor()
    {
        std::thread::id asking;
        std::thread::id asked;
        LoadingLane::run([&] {
            asking = std::this_thread::get_id();
            LoadingLane::run([&] {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                asked = std::this_thread::get_id();
            });
        });
        LoadingLane::finish();
        QVERIFY(asked != std::thread::id());
        QVERIFY(asked != std::this_thread::get_id());
        QCOMPARE(asked, asking);
        LoadingLane::finish(); // nothing to wait for
    }

    void nullKeepsTheDescription()
    {
        OBDeviceControl::Init("\xEF\xBB\xBF<RegisterDescription ModelName='x'/>", nullptr);
        OBDeviceControl::Init(nullptr, nullptr);
        QCOMPARE(
            XmlText::attribute(OBDeviceControl::GetDeviceXml()->documentElement(), "ModelName"),
            "x"_s);
    }
};

OBFT_TEST_MAIN(TestOBDeviceControl)
#include "tst_obdevicecontrol.moc"
