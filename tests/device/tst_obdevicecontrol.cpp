// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "support/FakeHost.h"
#include "support/TestMain.h"

#include <cstring>
#include <stdexcept>

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
        const Rows<int, QVariant, QString> row("type", "value", "text");
        row("largest integer", 2, qlonglong(INT64_MAX), "9223372036854775807");
        row("smallest integer", 2, qlonglong(INT64_MIN), "-9223372036854775808");
        row("true", 3, true, "1");
        row("false", 3, false, "0");
        row("command", 4, QVariant(), "");
        row("float rounded", 5, 1234.56F, "1235");
        row("float exponent", 5, 12346.0F, "1.235e+04");
        row("float small", 5, 0.000123456F, "0.0001235");
        row("text", 6, "lab 3"_s, "lab 3");
        row("largest entry", 9, 4294967295U, "4294967295");
    }

    void writesSendTheTextOfTheirType()
    {
        QFETCH(int, type);
        QFETCH(QVariant, value);
        QFETCH(QString, text);
        struct Sent
        {
            int type = 0;
            QByteArray text;
        } sent;
        OBDeviceControl::SetCallBackFunc(
            nullptr,
            [](int kind, char*, char* written, void* user) {
                *static_cast<Sent*>(user) = {kind, QByteArray(written)};
                return 0;
            },
            nullptr, nullptr, nullptr, &sent);
        const QString name = "Feature"_s;
        int err = -1;
        switch (type) {
        case 2:
            QVERIFY(OBDeviceControl::SetIntegerNodeValue(name, value.toLongLong(), &err));
            break;
        case 3:
            QVERIFY(OBDeviceControl::SetBoolNodeValue(name, value.toBool(), &err));
            break;
        case 4:
            QVERIFY(OBDeviceControl::SetCommandNodeValue(name, &err));
            break;
        case 5:
            QVERIFY(OBDeviceControl::SetFloatNodeValue(name, value.toFloat(), &err));
            break;
        case 6:
            QVERIFY(OBDeviceControl::SetStringNodeValue(name, value.toString(), &err));
            break;
        default:
            QVERIFY(OBDeviceControl::SetEnumNodeValue(name, value.toUInt(), &err));
        }
        QCOMPARE(err, 0);
        QCOMPARE(sent.type, type);
        QCOMPARE(sent.text, text.toLatin1());
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
        QFETCH(int, mode);
        QFETCH(bool, readable);
        FakeHost host;
        FakeHost::Feature feature = FakeHost::integerFeature(7);
        feature.mode = mode;
        host.set("Width"_s, feature);
        host.install();
        host.clearCalls();
        _ZDCC_INTVALUE_EX_T value = {};
        int err = 0;
        QCOMPARE(OBDeviceControl::GetIntegerNodeValue("Width"_s, &value, &err, true), readable);
        QCOMPARE(err, readable ? 0 : DeviceError::kNotReadable);
        QCOMPARE(host.count("mode Width"_s), 1);
        QCOMPARE(host.count("get Width"_s), readable ? 1 : 0);
    }

    void failedModeQueryGivesNotImplemented()
    {
        FakeHost host;
        host.set("Width"_s, FakeHost::integerFeature(7));
        host.failMode("Width"_s, 42);
        host.install();
        int err = 0;
        QCOMPARE(OBDeviceControl::GetNodeAccessMode("Width"_s, &err), 0);
        QCOMPARE(err, 42);
    }

    void failedWriteLogsItsCode_data()
    {
        const Rows<int, QByteArray> row("code", "printed");
        row("small", 31, "1f");
        row("top bit", static_cast<int>(0x80000106U), "-7ffffefa");
        row("minus one", -1, "-1");
    }

    void failedWriteLogsItsCode()
    {
        QFETCH(int, code);
        QFETCH(QByteArray, printed);
        FakeHost host;
        host.fail("Gain"_s, code);
        host.install();
        const QByteArray line = "Read Feature Failed; NodeName : Gain;  ErrorCode : " + printed;
        MessageGuard::ignoreMessage(QtCriticalMsg, line.constData());
        int err = 0;
        QVERIFY(!OBDeviceControl::SetFloatNodeValue("Gain"_s, 1.0F, &err));
        QCOMPARE(err, code);
    }

    void chunkSupportFollowsReadability_data()
    {
        const Rows<int, bool, bool> row("mode", "active", "supported");
        row("no chunk mode", 0, false, false);
        row("readable but off", 4, false, true);
        row("on", 3, true, true);
    }

    void chunkSupportFollowsReadability()
    {
        QFETCH(int, mode);
        QFETCH(bool, active);
        FakeHost host;
        FakeHost::Feature feature = FakeHost::booleanFeature(active);
        feature.mode = mode;
        host.set("ChunkModeActive"_s, feature);
        host.install();
        QTEST(OBDeviceControl::IsSupportChunk(), "supported");
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

    void failedStringReadChangesNothing()
    {
        FakeHost host;
        host.install();
        QString text = "before"_s;
        int length = 5;
        QVERIFY(!OBDeviceControl::GetStringNodeValue("Missing"_s, text, &length));
        QCOMPARE(text, "before"_s);
        QCOMPARE(length, 5);
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
};

OBFT_TEST_MAIN(TestOBDeviceControl)
#include "tst_obdevicecontrol.moc"
