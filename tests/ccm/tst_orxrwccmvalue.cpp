// SPDX-License-Identifier: Apache-2.0
#include "ccm/ORXCCMWidget.h"
#include "ccm/ORXRWCCMValue.h"
#include "device/OBDeviceControl.h"
#include "pages/SettingsFile.h"
#include "support/FakeHost.h"
#include "support/FileSizeLimit.h"
#include "support/TestMain.h"

namespace {

const QString kName = "SN 1"_s;
const SettingsFile kFile{kName};

} // namespace

class TestORXRWCCMValue : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override { SettingsFile::removeAll(); }
    void finish() override
    {
        SettingsFile::removeAll();
        FakeHost::uninstall();
    }

private slots:
    void missingFileIsMadeEmpty()
    {
        QVERIFY(!ORXRWCCMValue::exists(kName));
        ORXRWCCMValue settings;
        QVERIFY(settings.createSetting(kName));
        QCOMPARE(settings.fileName(), SettingsFile::folder() + "/CCMList_SN 1.ini"_s);
        QCOMPARE(kFile.stored(), QByteArray());
        QVERIFY(!settings.content().enabled);
        QCOMPARE(settings.content().values,
                 (ORXRWCCMValue::Coefficients{1024, 0, 0, 0, 1024, 0, 0, 0, 1024}));
    }

    // As it is after two writes within a tick of the file system's clock.
    void changeOfTheSameSizeAndTimeIsSeen()
    {
        const QDateTime moment = QDateTime::currentDateTime();
        for (const bool on : {true, false}) {
            kFile.store(on ? "[Common]\nCCMEnable=true \n" : "[Common]\nCCMEnable=false\n");
            QFile file(ORXRWCCMValue::fileOf(kName));
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(moment, QFileDevice::FileModificationTime));
            file.close();
            ORXRWCCMValue settings;
            QVERIFY(settings.createSetting(kName));
            QCOMPARE(settings.content().enabled, on);
        }
    }

    void coefficientsCountOnlyWhenOn()
    {
        int values[ORXRWCCMValue::kCoefficients] = {7, 7, 7, 7, 7, 7, 7, 7, 7};
        kFile.store("[Common]\nCCMEnable=false\nCCMValue1=-300\n");
        QVERIFY(!ORXCCMWidget::getSDKCCMEnable(kName, values));
        QCOMPARE(values[1], 7);
        kFile.store("[Common]\nCCMEnable=true\nCCMValue1=-300\nCCMValue8=2048\n");
        QVERIFY(ORXCCMWidget::getSDKCCMEnable(kName, values));
        QCOMPARE(QVector<int>(std::begin(values), std::end(values)),
                 (QVector<int>{1024, -300, 0, 0, 1024, 0, 0, 0, 2048}));
    }

    void switchingKeepsWhatTheHostWrote_data()
    {
        const Rows<QByteArray, QByteArray> row("before", "after");
        row("new file", "", "[Common]\nCCMEnable=true\n");
        row("switched off", "[Common]\nCCMEnable = false\nCCMValue2=512\n",
            "[Common]\nCCMEnable=true\nCCMValue2=512\n");
        row("not told", "; by the host\n[Common]\nCCMValue2=512\n[Host]\nCCMEnable=mine\n",
            "; by the host\n[Common]\nCCMEnable=true\nCCMValue2=512\n[Host]\nCCMEnable=mine\n");
        row("other sections only", "[Host]\nNote=mine",
            "[Host]\nNote=mine\n[Common]\nCCMEnable=true\n");
        row("CR LF", "[Common]\r\nCCMEnable=false\r\n", "[Common]\r\nCCMEnable=true\r\n");
    }

    void switchingKeepsWhatTheHostWrote()
    {
        const auto [before, after] = fetchRow<QByteArray, QByteArray>();
        kFile.store(before);
        ORXRWCCMValue settings;
        QVERIFY(settings.createSetting(kName));
        QVERIFY(!settings.content().enabled);
        QVERIFY(settings.writeEnable(true));
        QCOMPARE(kFile.stored(), after);
        ORXRWCCMValue again;
        QVERIFY(again.createSetting(kName));
        QVERIFY(again.content().enabled);
        QCOMPARE(again.content().values, settings.content().values);
        QVERIFY(again.writeEnable(false));
        QCOMPARE(kFile.stored(), QByteArray(after).replace("true", "false"));
    }

    void fullDiskKeepsTheFileBefore()
    {
        const QByteArray before =
            "[Common]\nCCMEnable=false\nCCMValue2=512\nNote=" + QByteArray(2000, 'x') + "\n";
        kFile.store(before);
        ORXRWCCMValue settings;
        QVERIFY(settings.createSetting(kName));
        {
            const FileSizeLimit full(1024);
            QVERIFY(!settings.writeEnable(true));
        }
        QVERIFY(!settings.fault().isEmpty());
        QCOMPARE(kFile.stored(), before);
        QCOMPARE(QDir(SettingsFile::folder()).entryList(QDir::Files).size(), 1);
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
        row("no setting behind a lone carriage return", "[Common]\nA=1\rhow are you\n");
        row("open quotation", "[Other]\nA=-1\"\n");
        row("line that goes on", "[Common]\nA=1\\\nCCMEnable=true\n");
        row("switch behind a lone carriage return", "[Common]\nA=1\rCCMEnable=true\n");
        row("bad while off", "[Common]\nCCMEnable=false\nCCMValue3=abc\n");
    }

    void badFileIsLeftAlone()
    {
        QFETCH(QByteArray, content);
        kFile.store(content);
        ORXRWCCMValue settings;
        QVERIFY(!settings.createSetting(kName));
        QVERIFY(!settings.fault().isEmpty());
        QVERIFY(!settings.writeEnable(true));
        int values[ORXRWCCMValue::kCoefficients] = {};
        QVERIFY(!ORXCCMWidget::getSDKCCMEnable(kName, values));
        QCOMPARE(values[0], 0);
        QCOMPARE(kFile.stored(), content);
    }

    void folderThatCannotBeMade()
    {
        QVERIFY(storeFile(SettingsFile::folder(), ""));
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
        const auto [serial, record] = fetchRow<QByteArray, QByteArray>();
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
