// SPDX-License-Identifier: Apache-2.0
#include "device/OBDeviceControl.h"
#include "support/FakeHost.h"
#include "support/TestMain.h"

#include <cstring>

class TestOBDeviceControl : public GuardedTest
{
    Q_OBJECT
private slots:
    void readsWithoutCallbackFailSilently();
    void writesWithoutCallbackAreLogged();
    void writesSendTheTextOfTheirType_data();
    void writesSendTheTextOfTheirType();
    void readabilityTest_data();
    void readabilityTest();
    void failedModeQueryGivesNotImplemented();
    void failedWriteLogsItsCode_data();
    void failedWriteLogsItsCode();
    void chunkSupportFollowsReadability_data();
    void chunkSupportFollowsReadability();
    void recordsOfTheHostAreBounded();
    void failedStringReadChangesNothing();
    void deviceNameEndsAt127Bytes();

protected:
    void prepare() override { FakeHost::uninstall(); }
};

void TestOBDeviceControl::readsWithoutCallbackFailSilently()
{
    _ZDCC_INTVALUE_EX_T value = {};
    int err = 0;
    QVERIFY(!OBDeviceControl::GetIntegerNodeValue(QStringLiteral("Width"), &value, &err));
    QCOMPARE(err, DeviceError::kNoCallback);
    QVERIFY(MessageGuard::messages().isEmpty());
}

void TestOBDeviceControl::writesWithoutCallbackAreLogged()
{
    MessageGuard::ignoreMessage(QtCriticalMsg,
                         "Read Feature Failed; NodeName : Width;  ErrorCode : -80000000");
    int err = 0;
    QVERIFY(!OBDeviceControl::SetIntegerNodeValue(QStringLiteral("Width"), 1, &err));
    QCOMPARE(err, DeviceError::kNoCallback);
}

void TestOBDeviceControl::writesSendTheTextOfTheirType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("largest integer")
        << 2 << QVariant(qlonglong(INT64_MAX)) << QStringLiteral("9223372036854775807");
    QTest::newRow("smallest integer")
        << 2 << QVariant(qlonglong(INT64_MIN)) << QStringLiteral("-9223372036854775808");
    QTest::newRow("true") << 3 << QVariant(true) << QStringLiteral("1");
    QTest::newRow("false") << 3 << QVariant(false) << QStringLiteral("0");
    QTest::newRow("command") << 4 << QVariant() << QString();
    QTest::newRow("float rounded") << 5 << QVariant(1234.56F) << QStringLiteral("1235");
    QTest::newRow("float exponent") << 5 << QVariant(12346.0F) << QStringLiteral("1.235e+04");
    QTest::newRow("float small") << 5 << QVariant(0.000123456F) << QStringLiteral("0.0001235");
    QTest::newRow("text") << 6 << QVariant(QStringLiteral("lab 3")) << QStringLiteral("lab 3");
    QTest::newRow("largest entry") << 9 << QVariant(4294967295U) << QStringLiteral("4294967295");
}

void TestOBDeviceControl::writesSendTheTextOfTheirType()
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
    const QString name = QStringLiteral("Feature");
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

void TestOBDeviceControl::readabilityTest_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("readable");
    QTest::newRow("not implemented") << 0 << false;
    QTest::newRow("not available") << 1 << false;
    QTest::newRow("write-only counts as readable") << 2 << true;
    QTest::newRow("read-only") << 3 << true;
    QTest::newRow("read-write") << 4 << true;
    QTest::newRow("nonsense") << 5 << false;
    QTest::newRow("negative nonsense") << -3 << false;
}

void TestOBDeviceControl::readabilityTest()
{
    QFETCH(int, mode);
    QFETCH(bool, readable);
    FakeHost host;
    FakeHost::Feature feature = FakeHost::integerFeature(7);
    feature.mode = mode;
    host.set(QStringLiteral("Width"), feature);
    host.install();
    host.clearCalls();
    _ZDCC_INTVALUE_EX_T value = {};
    int err = 0;
    QCOMPARE(OBDeviceControl::GetIntegerNodeValue(QStringLiteral("Width"), &value, &err, true),
             readable);
    QCOMPARE(err, readable ? 0 : DeviceError::kNotReadable);
    QCOMPARE(host.count(QStringLiteral("mode Width")), 1);
    QCOMPARE(host.count(QStringLiteral("get Width")), readable ? 1 : 0);
}

void TestOBDeviceControl::failedModeQueryGivesNotImplemented()
{
    FakeHost host;
    host.set(QStringLiteral("Width"), FakeHost::integerFeature(7));
    host.failMode(QStringLiteral("Width"), 42);
    host.install();
    int err = 0;
    QCOMPARE(OBDeviceControl::GetNodeAccessMode(QStringLiteral("Width"), &err), 0);
    QCOMPARE(err, 42);
}

void TestOBDeviceControl::failedWriteLogsItsCode_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("printed");
    QTest::newRow("small") << 31 << QByteArray("1f");
    QTest::newRow("top bit") << static_cast<int>(0x80000106U) << QByteArray("-7ffffefa");
    QTest::newRow("minus one") << -1 << QByteArray("-1");
}

void TestOBDeviceControl::failedWriteLogsItsCode()
{
    QFETCH(int, code);
    QFETCH(QByteArray, printed);
    FakeHost host;
    host.fail(QStringLiteral("Gain"), code);
    host.install();
    const QByteArray line = "Read Feature Failed; NodeName : Gain;  ErrorCode : " + printed;
    MessageGuard::ignoreMessage(QtCriticalMsg, line.constData());
    int err = 0;
    QVERIFY(!OBDeviceControl::SetFloatNodeValue(QStringLiteral("Gain"), 1.0F, &err));
    QCOMPARE(err, code);
}

void TestOBDeviceControl::chunkSupportFollowsReadability_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("active");
    QTest::addColumn<bool>("supported");
    QTest::newRow("no chunk mode") << 0 << false << false;
    QTest::newRow("readable but off") << 4 << false << true;
    QTest::newRow("on") << 3 << true << true;
}

void TestOBDeviceControl::chunkSupportFollowsReadability()
{
    QFETCH(int, mode);
    QFETCH(bool, active);
    QFETCH(bool, supported);
    FakeHost host;
    FakeHost::Feature feature = FakeHost::booleanFeature(active);
    feature.mode = mode;
    host.set(QStringLiteral("ChunkModeActive"), feature);
    host.install();
    QCOMPARE(OBDeviceControl::IsSupportChunk(), supported);
}

void TestOBDeviceControl::recordsOfTheHostAreBounded()
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
    QVERIFY(OBDeviceControl::GetStringNodeValue(QStringLiteral("Id"), text, nullptr));
    QCOMPARE(text, QString(256, QLatin1Char('x')));
    _ZDCC_ENUMVALUE_T entry = {};
    QVERIFY(OBDeviceControl::GetEnumNodeValue(QStringLiteral("Mode"), &entry));
    QCOMPARE(entry.supportedCount, 64U);
    bool on = false;
    QVERIFY(OBDeviceControl::GetBoolNodeValue(QStringLiteral("On"), &on));
    QVERIFY(on);
}

void TestOBDeviceControl::failedStringReadChangesNothing()
{
    FakeHost host;
    host.install();
    QString text = QStringLiteral("before");
    int length = 5;
    QVERIFY(!OBDeviceControl::GetStringNodeValue(QStringLiteral("Missing"), text, &length));
    QCOMPARE(text, QStringLiteral("before"));
    QCOMPARE(length, 5);
}

void TestOBDeviceControl::deviceNameEndsAt127Bytes()
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

OBFT_TEST_MAIN(TestOBDeviceControl)
#include "tst_obdevicecontrol.moc"
