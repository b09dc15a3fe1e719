// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"
#include "pages/ORXCCMWidget.h"
#include "pages/ORXRWCCMValue.h"
#include "support/FakeHost.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const QString kName = "SN 1"_s;

void store(const QByteArray& content)
{
    QDir().mkpath(QFileInfo(ORXRWCCMValue::fileOf(kName)).path());
    QFile file(ORXRWCCMValue::fileOf(kName));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray stored()
{
    QFile file(ORXRWCCMValue::fileOf(kName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

class TestORXRWCCMValue : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override { removeFolder(); }
    void finish() override
    {
        removeFolder();
        FakeHost::uninstall();
    }

private:
    static QString folder() { return ORXInterface::userDataPath() + "/CCMList"_s; }
    static void removeFolder()
    {
        QFile::remove(folder());
        QDir(folder()).removeRecursively();
    }

private slots:
    void missingFileIsMadeEmpty()
    {
        QVERIFY(!ORXRWCCMValue::exists(kName));
        ORXRWCCMValue settings;
        QVERIFY(settings.createSetting(kName));
        QCOMPARE(settings.fileName(), folder() + "/CCMList_SN 1.ini"_s);
        QCOMPARE(stored(), QByteArray());
        QVERIFY(!settings.content().enabled);
        QCOMPARE(settings.content().values,
                 (ORXRWCCMValue::Coefficients{1024, 0, 0, 0, 1024, 0, 0, 0, 1024}));
    }

    void coefficientsCountOnlyWhenOn()
    {
        int values[ORXRWCCMValue::kCoefficients] = {7, 7, 7, 7, 7, 7, 7, 7, 7};
        store("[Common]\nCCMEnable=false\nCCMValue1=-300\n");
        QVERIFY(!ORXCCMWidget::getSDKCCMEnable(kName, values));
        QCOMPARE(values[1], 7);
        store("[Common]\nCCMEnable=true\nCCMValue1=-300\nCCMValue8=2048\n");
        QVERIFY(ORXCCMWidget::getSDKCCMEnable(kName, values));
        const int wanted[] = {1024, -300, 0, 0, 1024, 0, 0, 0, 2048};
        for (int i = 0; i < ORXRWCCMValue::kCoefficients; ++i)
            QCOMPARE(values[i], wanted[i]);
    }

    void switchingKeepsWhatTheHostWrote()
    {
        store("[Common]\nCCMValue2=512\n[Host]\nNote=mine\n");
        ORXRWCCMValue settings;
        QVERIFY(settings.createSetting(kName));
        QVERIFY(settings.writeEnable(true));
        ORXRWCCMValue again;
        QVERIFY(again.createSetting(kName));
        QVERIFY(again.content().enabled);
        QCOMPARE(again.content().values[2], 512);
        QVERIFY(stored().contains("Note=mine"));
        QVERIFY(!stored().contains("CCMValue0"));
    }

    void badFileIsLeftAlone_data()
    {
        const Rows<QByteArray> row("content");
        row("no settings at all", "Dear reader\nhow are you\n");
        row("section without end", "[Common\nCCMEnable=true\n");
        row("binary", QByteArray("[Common]\nCCMEnable=true\n\0\0\1", 28));
        row("no truth value", "[Common]\nCCMEnable=maybe\n");
        row("empty truth value", "[Common]\nCCMEnable=\n");
        row("no number", "[Common]\nCCMEnable=true\nCCMValue3=abc\n");
        row("fraction", "[Common]\nCCMEnable=true\nCCMValue3=1.5\n");
        row("more than 32 bits", "[Common]\nCCMEnable=true\nCCMValue8=99999999999\n");
        row("two numbers", "[Common]\nCCMEnable=true\nCCMValue0=1, 2\n");
        row("too large", "[Common]\nCCMEnable=true\n" + QByteArray(70000, ';'));
        row("bad while off", "[Common]\nCCMEnable=false\nCCMValue3=abc\n");
    }

    void badFileIsLeftAlone()
    {
        QFETCH(QByteArray, content);
        store(content);
        ORXRWCCMValue settings;
        QVERIFY(!settings.createSetting(kName));
        QVERIFY(!settings.fault().isEmpty());
        QVERIFY(!settings.writeEnable(true));
        int values[ORXRWCCMValue::kCoefficients] = {};
        QVERIFY(!ORXCCMWidget::getSDKCCMEnable(kName, values));
        QCOMPARE(values[0], 0);
        QCOMPARE(stored(), content);
    }

    void folderThatCannotBeMade()
    {
        QFile blocker(folder());
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        ORXRWCCMValue settings;
        QVERIFY(!settings.createSetting(kName));
        QVERIFY(!settings.fault().isEmpty());
        QVERIFY(!settings.content().enabled);
    }

    void fileIsNamedAfterTheCamera_data()
    {
        const Rows<QByteArray, QByteArray, QString> row("serial", "record", "name");
        row("serial number", "A1-0007", "Cam", "A1-0007");
        row("signs that paths know", "../A B", "Cam", "..%2FA%20B");
        row("device record", "", "Left", "Left");
        row("nothing", "", "", "camera");
    }

    void fileIsNamedAfterTheCamera()
    {
        QFETCH(QByteArray, serial);
        QFETCH(QByteArray, record);
        FakeHost host;
        host.install();
        if (!serial.isEmpty())
            host.set("DeviceSerialNumber"_s, FakeHost::textFeature(serial));
        _OB_FT_DEVICEINFO_ info = {};
        qstrncpy(info.deviceName, record.constData(), sizeof(info.deviceName));
        OBDeviceControl::SetDeviceInfo(&info);
        QTEST(ORXRWCCMValue::cameraName(), "name");
        FakeHost::uninstall();
    }
};

OBFT_TEST_MAIN(TestORXRWCCMValue)
#include "tst_orxrwccmvalue.moc"
