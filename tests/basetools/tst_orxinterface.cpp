// SPDX-License-Identifier: Apache-2.0
#include "basetools/ORXInterface.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTranslator>

#include <limits>
#include <thread>

namespace {

using Limits = std::numeric_limits<qint64>;

// Marks every translation, so that a text can be seen to have gone through one.
class BracketTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QStringLiteral("[%1|%2]").arg(QLatin1String(context), QLatin1String(text));
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestORXInterface : public GuardedTest
{
    Q_OBJECT
private slots:
    void languageIsEnglishUnlessChinese();
    void directoriesExistAndDiffer();
    void localTextIsBounded_data();
    void localTextIsBounded();
    void localTextFallsBackFromUtf8();
    void string2Int_data();
    void string2Int();
    void cutStringKeepsCharactersWhole_data();
    void cutStringKeepsCharactersWhole();
    void hexText();
    void ipText_data();
    void ipText();
    void subnetMask_data();
    void subnetMask();
    void macText_data();
    void macText();
    void errorCodes();
    void fileDialogHook();
};

void TestORXInterface::languageIsEnglishUnlessChinese()
{
    QCOMPARE(ORXInterface::language(), QStringLiteral("ENG"));
    QString seen;
    ORXInterface::setLanguage(QStringLiteral("CH"));
    std::thread([&seen] { seen = ORXInterface::language(0); }).join();
    QCOMPARE(seen, QStringLiteral("CH"));
    ORXInterface::setLanguage(QStringLiteral("ch"));
    QCOMPARE(ORXInterface::language(), QStringLiteral("ENG"));
}

void TestORXInterface::directoriesExistAndDiffer()
{
    const QString data = ORXInterface::userDataPath();
    const QString temp = ORXInterface::systemTemp();
    QVERIFY(data != temp);
    for (const QString& path : {data, temp}) {
        QVERIFY(QFileInfo(path).isDir());
        QVERIFY(!path.endsWith(QLatin1Char('/')));
        // The test mode of the standard paths keeps tests away from the user's own files.
        QVERIFY2(path.contains(QStringLiteral("qttest")), qPrintable(path));
    }
}

void TestORXInterface::localTextIsBounded_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("text");
    QTest::newRow("ends at NUL") << QByteArray("Mono8\0x", 7) << 256 << QStringLiteral("Mono8");
    QTest::newRow("ends at limit") << QByteArray("Mono8") << 4 << QStringLiteral("Mono");
    QTest::newRow("zero limit") << QByteArray("Mono8") << 0 << QString();
    QTest::newRow("negative limit") << QByteArray("Mono8") << -1 << QString();
    QTest::newRow("utf-8") << QByteArray("\xE5\xA2\x9E\xE7\x9B\x8A") << 256
                           << QString::fromUtf8("\xE5\xA2\x9E\xE7\x9B\x8A");
    QTest::newRow("character cut by limit")
        << QByteArray("\xE5\xA2\x9E\xE7\x9B\x8A") << 5 << QString::fromUtf8("\xE5\xA2\x9E");
}

void TestORXInterface::localTextIsBounded()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, limit);
    QTEST(ORXInterface::fromLocalText(bytes.constData(), limit), "text");
    QVERIFY(ORXInterface::fromLocalText(nullptr, limit).isEmpty());
}

void TestORXInterface::localTextFallsBackFromUtf8()
{
    const QByteArray broken("a\xFFz", 3);
    const QString text = ORXInterface::fromLocalText(broken.constData(), 3);
    QVERIFY(text.startsWith(QLatin1Char('a')) && text.endsWith(QLatin1Char('z')));
    const QString chinese = QString::fromUtf8("\xE7\x9B\xB8\xE6\x9C\xBA");
    const QByteArray local = ORXInterface::toLocalText(chinese);
    QCOMPARE(ORXInterface::fromLocalText(local.constData(), local.size()), chinese);
}

void TestORXInterface::string2Int_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("value");
    const auto row = [](const char* text, qint64 value) {
        QTest::newRow(text) << QString::fromLatin1(text) << value;
    };
    row("42", 42);
    row("-17", -17);
    row(" \t8\n", 8);
    row("0x1F", 31);
    row("0XfF", 255);
    row("0x0108000C", 0x0108000C);
    row("9223372036854775807", Limits::max());
    row("-9223372036854775808", Limits::min());
    row("0x8000000000000000", Limits::min());
    row("0xFFFFFFFFFFFFFFFF", -1);
    row("18446744073709551615", -1);
    row("0x1FFFFFFFFFFFFFFFF", 0);
    row("-9223372036854775809", 0);
    row("010", 10);
    row("", 0);
    row("0x", 0);
    row("12abc", 0);
    row("1.5", 0);
}

void TestORXInterface::string2Int()
{
    QFETCH(QString, text);
    QTEST(ORXInterface::string2Int(text), "value");
}

void TestORXInterface::cutStringKeepsCharactersWhole_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("cut");
    const QString mixed = QString::fromUtf8("a\xC3\xA4\xE7\x9B\xB8\xF0\x9F\x98\x80z"); // 1+2+3+4+1
    QTest::newRow("all") << mixed << 11 << mixed;
    QTest::newRow("without the last") << mixed << 10 << mixed.left(5);
    QTest::newRow("inside the pair") << mixed << 9 << mixed.left(3);
    QTest::newRow("inside three bytes") << mixed << 5 << mixed.left(2);
    QTest::newRow("inside two bytes") << mixed << 2 << mixed.left(1);
    QTest::newRow("nothing") << mixed << 0 << QString();
    QTest::newRow("negative") << mixed << -4 << QString();
    QTest::newRow("one byte each") << QStringLiteral("Width") << 3 << QStringLiteral("Wid");
}

void TestORXInterface::cutStringKeepsCharactersWhole()
{
    QFETCH(QString, text);
    QFETCH(int, bytes);
    const QString result = ORXInterface::cutString(text, bytes);
    QTEST(result, "cut");
    QVERIFY(result.toUtf8().size() <= qMax(0, bytes));
}

void TestORXInterface::hexText()
{
    QCOMPARE(ORXInterface::int2HexText(0), QStringLiteral("0x0"));
    QCOMPARE(ORXInterface::int2HexText(0x0abc), QStringLiteral("0xABC"));
    QCOMPARE(ORXInterface::int2HexText(-1), QStringLiteral("0xFFFFFFFFFFFFFFFF"));
}

void TestORXInterface::ipText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("good");
    QTest::addColumn<quint32>("address");
    const auto row = [](const char* text, bool good, quint32 address) {
        QTest::newRow(text) << QString::fromLatin1(text) << good << address;
    };
    row("192.168.0.1", true, 0xC0A80001);
    row("0.0.0.0", true, 0);
    row("255.255.255.255", true, 0xFFFFFFFF);
    row("256.0.0.1", false, 0);
    row("1.2.3", false, 0);
    row("1.2.3.4.5", false, 0);
    row("1.2.3.", false, 0);
    row("1..2.3", false, 0);
    row("+1.2.3.4", false, 0);
    row("1.2.3.-4", false, 0);
    row(" 1.2.3.4", false, 0);
    row("1.2.3.4\n", false, 0);
    row("0001.2.3.4", false, 0);
    row("a.b.c.d", false, 0);
    row("", false, 0);
}

void TestORXInterface::ipText()
{
    QFETCH(QString, text);
    QFETCH(bool, good);
    QCOMPARE(ORXInterface::CheckIpAble(text), good);
    QTEST(ORXInterface::strIP2IntIP(text), "address");
    if (good)
        QCOMPARE(ORXInterface::intIP2strIP(ORXInterface::strIP2IntIP(text)), text);
}

void TestORXInterface::subnetMask_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("good");
    const auto row = [](const char* text, bool good) {
        QTest::newRow(text) << QString::fromLatin1(text) << good;
    };
    row("255.255.255.0", true);
    row("255.255.254.0", true);
    row("128.0.0.0", true);
    row("255.255.255.252", true);
    row("255.255.255.255", true);
    row("0.0.0.0", false);
    row("255.0.255.0", false);
    row("0.255.255.255", false);
    row("255.255.255.253", false);
    row("255.255.256.0", false);
}

void TestORXInterface::subnetMask()
{
    QFETCH(QString, text);
    QTEST(ORXInterface::CheckSubnetMask(text), "good");
}

void TestORXInterface::macText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("good");
    QTest::addColumn<quint64>("address");
    const auto row = [](const char* text, bool good, quint64 address) {
        QTest::newRow(text) << QString::fromLatin1(text) << good << address;
    };
    row("54:10:EC:00:0A:FF", true, 0x5410EC000AFFULL);
    row("54-10-ec-00-0a-ff", true, 0x5410EC000AFFULL);
    row("00:00:00:00:00:01", true, 1);
    row("54:10-EC:00:0A:FF", false, 0);
    row("54:10:EC:00:0A", false, 0);
    row("54:10:EC:00:0A:FG", false, 0);
    row("5410EC000AFF", false, 0);
    row("", false, 0);
}

void TestORXInterface::macText()
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

void TestORXInterface::errorCodes()
{
    QCOMPARE(ORXInterface::IntCode2DisplayCode(5), QStringLiteral("0x00000005"));
    QCOMPARE(ORXInterface::IntCode2DisplayCode(-1), QStringLiteral("0xFFFFFFFF"));
    BracketTranslator translator;
    QCoreApplication::installTranslator(&translator);
    const QString unreadable = ORXInterface::IntCode2DisplayCode(int(0x80000106u));
    const QString noCallback = ORXInterface::IntCode2DisplayCode(int(0x80000000u));
    QCoreApplication::removeTranslator(&translator);
    QVERIFY2(unreadable.startsWith(QStringLiteral("0x80000106 ([ORXInterface|")),
             qPrintable(unreadable));
    QVERIFY2(noCallback.startsWith(QStringLiteral("0x80000000 ([ORXInterface|")),
             qPrintable(noCallback));
}

void TestORXInterface::fileDialogHook()
{
    QString answer = QStringLiteral("/tmp/curve");
    QStringList asked;
    ORXInterface::setFileDialogHook(
        [&](ORXInterface::FileDialogKind kind, const QString& title, const QString& filter) {
            asked << QStringLiteral("%1 %2 %3").arg(kind).arg(title, filter);
            return answer;
        });
    const QString filter = QStringLiteral("txt Files (*.txt)");
    const auto save = [&] {
        return ORXInterface::getSaveFileName(nullptr, QStringLiteral("Save"), filter,
                                             QStringLiteral("txt"));
    };
    QCOMPARE(save(), QStringLiteral("/tmp/curve.txt"));
    answer = QStringLiteral("/tmp/curve.csv");
    QCOMPARE(save(), answer);
    QCOMPARE(ORXInterface::getOpenFileName(nullptr, QStringLiteral("Open"), filter), answer);
    answer.clear();
    QVERIFY(save().isEmpty());
    ORXInterface::setFileDialogHook({});
    QCOMPARE(asked.constFirst(), QStringLiteral("0 Save txt Files (*.txt)"));
    QCOMPARE(asked.at(2), QStringLiteral("1 Open txt Files (*.txt)"));
}

OBFT_TEST_MAIN(TestORXInterface)
#include "tst_orxinterface.moc"
