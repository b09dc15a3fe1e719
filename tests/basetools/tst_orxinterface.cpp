// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"
#include "support/BracketTranslator.h"
#include "support/TestMain.h"

#include <QFileInfo>

#include <functional>
#include <thread>

using Convert = std::function<QString(const QString&)>;
Q_DECLARE_METATYPE(Convert)

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
        const auto [bytes, limit] = fetchRow<QByteArray, int>();
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
        QCOMPARE(ORXInterface::fromLocalText(local.constData(), int(local.size())), chinese);
    }

    void conversions_data()
    {
        // Each text with what becomes of it, divided by bars.
        const Rows<Convert, QString> row("convert", "texts");
        const auto number = [](const QString& text) {
            return QString::number(ORXInterface::string2Int(text));
        };
        row("decimal numbers", number,
            "42=42|-17=-17| \t8\n=8|010=10|9223372036854775807=9223372036854775807|"
            "-9223372036854775808=-9223372036854775808|18446744073709551615=-1|"
            "-9223372036854775809=0|=0|12abc=0|1.5=0");
        row("hexadecimal numbers", number,
            "0x1F=31|0XfF=255|0x0108000C=17301516|0x8000000000000000=-9223372036854775808|"
            "0xFFFFFFFFFFFFFFFF=-1|0x1FFFFFFFFFFFFFFFF=0|0x=0");
        const auto hexadecimal = [](const QString& text) {
            return ORXInterface::int2HexText(text.toLongLong());
        };
        row("to hexadecimal", hexadecimal, "0=0x0|2748=0xABC|-1=0xFFFFFFFFFFFFFFFF");
        const auto address = [](const QString& text) {
            const quint32 bits = ORXInterface::strIP2IntIP(text);
            const bool good =
                ORXInterface::CheckIpAble(text) && ORXInterface::intIP2strIP(bits) == text;
            return QString::number(bits, 16) + (good ? " good"_s : QString());
        };
        row("addresses", address,
            "192.168.0.1=c0a80001 good|0.0.0.0=0 good|255.255.255.255=ffffffff good|256.0.0.1=0|"
            "1.2.3=0|1.2.3.4.5=0|1.2.3.=0|1..2.3=0|+1.2.3.4=0|1.2.3.-4=0| 1.2.3.4=0|1.2.3.4\n=0|"
            "0001.2.3.4=0|a.b.c.d=0|=0");
        const auto mask = [](const QString& text) {
            return ORXInterface::CheckSubnetMask(text) ? "good"_s : "bad"_s;
        };
        row("subnet masks", mask,
            "255.255.255.0=good|255.255.254.0=good|128.0.0.0=good|255.255.255.252=good|"
            "255.255.255.255=good|0.0.0.0=bad|255.0.255.0=bad|0.255.255.255=bad|"
            "255.255.255.253=bad|255.255.256.0=bad");
        const auto mac = [](const QString& text) {
            // Bits above the 48 of the address are not shown.
            const quint64 bits = ORXInterface::strMac2IntMac(text);
            const QString shown = ORXInterface::intMac2strMac(bits | 0xABCD000000000000ULL);
            return QString::number(bits, 16) +
                   (ORXInterface::CheckMac(text) ? " as "_s + shown : QString());
        };
        row("MAC addresses", mac,
            "54:10:EC:00:0A:FF=5410ec000aff as 54:10:EC:00:0A:FF|"
            "54-10-ec-00-0a-ff=5410ec000aff as 54:10:EC:00:0A:FF|"
            "00:00:00:00:00:01=1 as 00:00:00:00:00:01|54:10-EC:00:0A:FF=0|54:10:EC:00:0A=0|"
            "54:10:EC:00:0A:FG=0|5410EC000AFF=0|=0");
        const auto code = [](const QString& text) {
            return ORXInterface::IntCode2DisplayCode(text.toInt()).section(QLatin1Char('('), 0, 0);
        };
        row("error codes", code, "5=0x00000005|-1=0xFFFFFFFF|-2147483386=0x80000106 ");
    }

    void conversions()
    {
        const auto [convert, texts] = fetchRow<Convert, QString>();
        QStringList made;
        for (const QString& each : texts.split(QLatin1Char('|'))) {
            const QString text = each.section(QLatin1Char('='), 0, 0);
            made += text + QLatin1Char('=') + convert(text);
        }
        QCOMPARE(made, texts.split(QLatin1Char('|')));
    }

    void cutStringKeepsCharactersWhole()
    {
        const QString text = "a\xC3\xA4\xE7\x9B\xB8\xF0\x9F\x98\x80z"_s; // 1+2+3+4+1 bytes
        QVector<int> left;
        for (const int bytes : {11, 10, 9, 5, 2, 1, 0, -4}) {
            const QString cut = ORXInterface::cutString(text, bytes);
            QVERIFY(text.startsWith(cut));
            QVERIFY(cut.toUtf8().size() <= qMax(0, bytes));
            left.append(int(cut.size()));
        }
        // All, without the last, inside the pair, inside three bytes, inside two ...
        QCOMPARE(left, (QVector<int>{6, 5, 3, 2, 1, 1, 0, 0}));
    }

    void knownErrorCodesHaveAMeaning()
    {
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
