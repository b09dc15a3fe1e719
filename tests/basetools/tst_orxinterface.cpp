// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"
#include "support/BracketTranslator.h"
#include "support/TestMain.h"

#include <QFileInfo>

#include <limits>
#include <thread>

namespace {

using Limits = std::numeric_limits<qint64>;

} // namespace

class TestORXInterface : public GuardedTest
{
    Q_OBJECT

private slots:
    void languageIsEnglishUnlessChinese()
    {
        QCOMPARE(ORXInterface::language(), "ENG"_s);
        QString seen;
        ORXInterface::setLanguage("CH"_s);
        std::thread([&seen] { seen = ORXInterface::language(0); }).join();
        QCOMPARE(seen, "CH"_s);
        ORXInterface::setLanguage("ch"_s);
        QCOMPARE(ORXInterface::language(), "ENG"_s);
    }

    void directoriesExistAndDiffer()
    {
        const QString data = ORXInterface::userDataPath();
        const QString temp = ORXInterface::systemTemp();
        QVERIFY(data != temp);
        for (const QString& path : {data, temp}) {
            QVERIFY(QFileInfo(path).isDir());
            QVERIFY(!path.endsWith(QLatin1Char('/')));
            // The test mode of the standard paths keeps tests away from the user's own files.
            QVERIFY2(path.contains("qttest"_s), qPrintable(path));
        }
    }

    void localTextIsBounded_data()
    {
        const Rows<QByteArray, int, QString> row("bytes", "limit", "text");
        row("ends at NUL", QByteArray("Mono8\0x", 7), 256, "Mono8");
        row("ends at limit", "Mono8", 4, "Mono");
        row("zero limit", "Mono8", 0, "");
        row("negative limit", "Mono8", -1, "");
        row("utf-8", "\xE5\xA2\x9E\xE7\x9B\x8A", 256, "\xE5\xA2\x9E\xE7\x9B\x8A");
        row("character cut by limit", "\xE5\xA2\x9E\xE7\x9B\x8A", 5, "\xE5\xA2\x9E");
    }

    void localTextIsBounded()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, limit);
        QTEST(ORXInterface::fromLocalText(bytes.constData(), limit), "text");
        QVERIFY(ORXInterface::fromLocalText(nullptr, limit).isEmpty());
    }

    void localTextFallsBackFromUtf8()
    {
        const QByteArray broken("a\xFFz", 3);
        const QString text = ORXInterface::fromLocalText(broken.constData(), 3);
        QVERIFY(text.startsWith(QLatin1Char('a')) && text.endsWith(QLatin1Char('z')));
        const QString chinese = "\xE7\x9B\xB8\xE6\x9C\xBA"_s;
        const QByteArray local = ORXInterface::toLocalText(chinese);
        QCOMPARE(ORXInterface::fromLocalText(local.constData(), local.size()), chinese);
    }

    void string2Int_data()
    {
        const Rows<QString, qint64> row("text", "value");
        row.of("42", 42);
        row.of("-17", -17);
        row.of(" \t8\n", 8);
        row.of("0x1F", 31);
        row.of("0XfF", 255);
        row.of("0x0108000C", 0x0108000C);
        row.of("9223372036854775807", Limits::max());
        row.of("-9223372036854775808", Limits::min());
        row.of("0x8000000000000000", Limits::min());
        row.of("0xFFFFFFFFFFFFFFFF", -1);
        row.of("18446744073709551615", -1);
        row.of("0x1FFFFFFFFFFFFFFFF", 0);
        row.of("-9223372036854775809", 0);
        row.of("010", 10);
        row.of("", 0);
        row.of("0x", 0);
        row.of("12abc", 0);
        row.of("1.5", 0);
    }

    void string2Int()
    {
        QFETCH(QString, text);
        QTEST(ORXInterface::string2Int(text), "value");
    }

    void cutStringKeepsCharactersWhole_data()
    {
        const Rows<QString, int, QString> row("text", "bytes", "cut");
        const QString mixed = "a\xC3\xA4\xE7\x9B\xB8\xF0\x9F\x98\x80z"_s; // 1+2+3+4+1
        row("all", mixed, 11, mixed);
        row("without the last", mixed, 10, mixed.left(5));
        row("inside the pair", mixed, 9, mixed.left(3));
        row("inside three bytes", mixed, 5, mixed.left(2));
        row("inside two bytes", mixed, 2, mixed.left(1));
        row("nothing", mixed, 0, "");
        row("negative", mixed, -4, "");
        row("one byte each", "Width", 3, "Wid");
    }

    void cutStringKeepsCharactersWhole()
    {
        QFETCH(QString, text);
        QFETCH(int, bytes);
        const QString result = ORXInterface::cutString(text, bytes);
        QTEST(result, "cut");
        QVERIFY(result.toUtf8().size() <= qMax(0, bytes));
    }

    void hexText()
    {
        QCOMPARE(ORXInterface::int2HexText(0), "0x0"_s);
        QCOMPARE(ORXInterface::int2HexText(0x0abc), "0xABC"_s);
        QCOMPARE(ORXInterface::int2HexText(-1), "0xFFFFFFFFFFFFFFFF"_s);
    }

    void ipText_data()
    {
        const Rows<QString, bool, quint32> row("text", "good", "address");
        row.of("192.168.0.1", true, 0xC0A80001);
        row.of("0.0.0.0", true, 0);
        row.of("255.255.255.255", true, 0xFFFFFFFF);
        row.of("256.0.0.1", false, 0);
        row.of("1.2.3", false, 0);
        row.of("1.2.3.4.5", false, 0);
        row.of("1.2.3.", false, 0);
        row.of("1..2.3", false, 0);
        row.of("+1.2.3.4", false, 0);
        row.of("1.2.3.-4", false, 0);
        row.of(" 1.2.3.4", false, 0);
        row.of("1.2.3.4\n", false, 0);
        row.of("0001.2.3.4", false, 0);
        row.of("a.b.c.d", false, 0);
        row.of("", false, 0);
    }

    void ipText()
    {
        QFETCH(QString, text);
        QFETCH(bool, good);
        QCOMPARE(ORXInterface::CheckIpAble(text), good);
        QTEST(ORXInterface::strIP2IntIP(text), "address");
        if (good)
            QCOMPARE(ORXInterface::intIP2strIP(ORXInterface::strIP2IntIP(text)), text);
    }

    void subnetMask_data()
    {
        const Rows<QString, bool> row("text", "good");
        row.of("255.255.255.0", true);
        row.of("255.255.254.0", true);
        row.of("128.0.0.0", true);
        row.of("255.255.255.252", true);
        row.of("255.255.255.255", true);
        row.of("0.0.0.0", false);
        row.of("255.0.255.0", false);
        row.of("0.255.255.255", false);
        row.of("255.255.255.253", false);
        row.of("255.255.256.0", false);
    }

    void subnetMask()
    {
        QFETCH(QString, text);
        QTEST(ORXInterface::CheckSubnetMask(text), "good");
    }

    void macText_data()
    {
        const Rows<QString, bool, quint64> row("text", "good", "address");
        row.of("54:10:EC:00:0A:FF", true, 0x5410EC000AFFULL);
        row.of("54-10-ec-00-0a-ff", true, 0x5410EC000AFFULL);
        row.of("00:00:00:00:00:01", true, 1);
        row.of("54:10-EC:00:0A:FF", false, 0);
        row.of("54:10:EC:00:0A", false, 0);
        row.of("54:10:EC:00:0A:FG", false, 0);
        row.of("5410EC000AFF", false, 0);
        row.of("", false, 0);
    }

    void macText()
    {
        QFETCH(QString, text);
        QFETCH(bool, good);
        QFETCH(quint64, address);
        QCOMPARE(ORXInterface::CheckMac(text), good);
        QCOMPARE(ORXInterface::strMac2IntMac(text), address);
        if (good) {
            // Bits above the 48 of the address are not shown.
            const QString shown = ORXInterface::intMac2strMac(address | 0xABCD000000000000ULL);
            QCOMPARE(shown, text.toUpper().replace(QLatin1Char('-'), QLatin1Char(':')));
        }
    }

    void errorCodes()
    {
        QCOMPARE(ORXInterface::IntCode2DisplayCode(5), "0x00000005"_s);
        QCOMPARE(ORXInterface::IntCode2DisplayCode(-1), "0xFFFFFFFF"_s);
        BracketTranslator translator;
        QCoreApplication::installTranslator(&translator);
        const QString unreadable = ORXInterface::IntCode2DisplayCode(int(0x80000106u));
        const QString noCallback = ORXInterface::IntCode2DisplayCode(int(0x80000000u));
        QCoreApplication::removeTranslator(&translator);
        QVERIFY2(unreadable.startsWith("0x80000106 ([ORXInterface|"_s), qPrintable(unreadable));
        QVERIFY2(noCallback.startsWith("0x80000000 ([ORXInterface|"_s), qPrintable(noCallback));
    }

    void fileDialogHook()
    {
        QString answer = "/tmp/curve"_s;
        QStringList asked;
        ORXInterface::setFileDialogHook(
            [&](ORXInterface::FileDialogKind kind, const QString& title, const QString& filter) {
                asked << "%1 %2 %3"_s.arg(kind).arg(title, filter);
                return answer;
            });
        const QString filter = "txt Files (*.txt)"_s;
        const auto save = [&] {
            return ORXInterface::getSaveFileName(nullptr, "Save"_s, filter, "txt"_s);
        };
        QCOMPARE(save(), "/tmp/curve.txt"_s);
        answer = "/tmp/curve.csv"_s;
        QCOMPARE(save(), answer);
        QCOMPARE(ORXInterface::getOpenFileName(nullptr, "Open"_s, filter), answer);
        answer.clear();
        QVERIFY(save().isEmpty());
        ORXInterface::setFileDialogHook({});
        QCOMPARE(asked.constFirst(), "0 Save txt Files (*.txt)"_s);
        QCOMPARE(asked.at(2), "1 Open txt Files (*.txt)"_s);
    }
};

OBFT_TEST_MAIN(TestORXInterface)
#include "tst_orxinterface.moc"
