// SPDX-License-Identifier: Apache-2.0
#include "model/CTreeBooleanItemValue.h"
#include "model/CTreeEnumationItemValue.h"
#include "model/CTreeFloatItemValue.h"
#include "model/CTreeIntergerItemValue.h"
#include "model/CTreeStringItemValue.h"
#include "support/TestMain.h"

using Numbers = CTreeIntergerItemValue::Numbers;

class TestTreeItemValues : public GuardedTest
{
    Q_OBJECT
private slots:
    void integerType_data();
    void integerType();
    void largeRangesArePureNumbers_data();
    void largeRangesArePureNumbers();
    void integerText_data();
    void integerText();
    void statusTexts();
    void namesFallBackOnEachOther();
    void copyingValuesOnlyKeepsNames();
};

void TestTreeItemValues::integerType_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("representation");
    QTest::addColumn<int>("type");
    const auto row = [](const char* name, const char* representation, int type) {
        QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(
            QLatin1String(name), QLatin1String(representation))))
            << QString::fromLatin1(name) << QString::fromLatin1(representation) << type;
    };
    row("Width", "", 2);
    row("Width", "Linear", 2);
    row("Width", "PureNumber", 2);
    row("Width", "HexNumber", 3);
    row("Width", "IPV4Address", 4);
    row("Width", "MACAddress", 6);
    row("GevCurrentIPAddress", "HexNumber", 4);
    row("GevSCDA", "HexNumber", 4);
    row("GevSCDA", "Linear", 2);
    row("GevCurrentSubnetMask", "HexNumber", 5);
    row("GevPersistentSubnetMask", "IPV4Address", 5);
    row("GevMACAddress", "HexNumber", 6);
    row("GevMACAddress", "IPV4Address", 4);
}

void TestTreeItemValues::integerType()
{
    QFETCH(QString, name);
    QFETCH(QString, representation);
    QFETCH(int, type);
    CTreeIntergerItemValue value;
    value.setNodeName(name);
    value.setRepresentation(representation);
    QCOMPARE(static_cast<int>(value.type()), type);
}

void TestTreeItemValues::largeRangesArePureNumbers_data()
{
    QTest::addColumn<QString>("representation");
    QTest::addColumn<qint64>("maximum");
    QTest::addColumn<QString>("result");
    const qint64 limit = 1125899906842623;
    QTest::newRow("at the limit") << QStringLiteral("Linear") << limit << QStringLiteral("Linear");
    QTest::newRow("above") << QStringLiteral("Linear") << limit + 1 << QStringLiteral("PureNumber");
    QTest::newRow("none given") << QString() << limit + 1 << QStringLiteral("PureNumber");
    QTest::newRow("hexadecimal stays")
        << QStringLiteral("HexNumber") << qint64(INT64_MAX) << QStringLiteral("HexNumber");
}

void TestTreeItemValues::largeRangesArePureNumbers()
{
    QFETCH(QString, representation);
    QFETCH(qint64, maximum);
    QFETCH(QString, result);
    CTreeIntergerItemValue value;
    value.setNumbers({0, 0, maximum, 1});
    value.setRepresentation(representation);
    QCOMPARE(value.representation(), result);
    QCOMPARE(value.isEditedAsText(), result != QLatin1String("Linear"));
}

void TestTreeItemValues::integerText_data()
{
    QTest::addColumn<QString>("representation");
    QTest::addColumn<qint64>("number");
    QTest::addColumn<qint64>("minimum");
    QTest::addColumn<qint64>("maximum");
    QTest::addColumn<QString>("text");
    QTest::newRow("below") << QString() << qint64(5) << qint64(10) << qint64(20)
                           << QStringLiteral("10");
    QTest::newRow("above") << QString() << qint64(30) << qint64(10) << qint64(20)
                           << QStringLiteral("20");
    QTest::newRow("range upside down") << QString() << qint64(5) << qint64(10) << qint64(3)
                                       << QStringLiteral("10");
    QTest::newRow("smallest") << QString() << qint64(INT64_MIN) << qint64(INT64_MIN)
                              << qint64(INT64_MAX) << QStringLiteral("-9223372036854775808");
    QTest::newRow("address") << QStringLiteral("IPV4Address") << qint64(0xC0A80001)
                             << qint64(0) << qint64(0xFFFFFFFF) << QStringLiteral("192.168.0.1");
    QTest::newRow("card address") << QStringLiteral("MACAddress") << qint64(0x0011223344FF)
                                  << qint64(0) << qint64(0xFFFFFFFFFFFF)
                                  << QStringLiteral("00:11:22:33:44:FF");
    QTest::newRow("hexadecimal") << QStringLiteral("HexNumber") << qint64(255) << qint64(0)
                                 << qint64(1000) << QStringLiteral("0xFF");
}

void TestTreeItemValues::integerText()
{
    QFETCH(QString, representation);
    QFETCH(qint64, number);
    QFETCH(qint64, minimum);
    QFETCH(qint64, maximum);
    QFETCH(QString, text);
    CTreeIntergerItemValue value;
    value.setNumbers({number, minimum, maximum, 1});
    value.setRepresentation(representation);
    QCOMPARE(value.displayValue(), text);
}

void TestTreeItemValues::statusTexts()
{
    CTreeIntergerItemValue integer;
    integer.setNumbers({5, 1, 9, 2});
    integer.setRepresentation(QStringLiteral("HexNumber"));
    QCOMPARE(integer.createCurrentStauts(true),
             QStringLiteral("ReadOnly:true;m_nValue:5; m_nMinValue:1; m_nMaxValue:9; "
                            "m_nIncrement:2; NeedRecreateEditor:HexNumber"));
    CTreeFloatItemValue number;
    number.setNumbers({1.5F, 0.0F, 2.25F});
    QCOMPARE(number.createCurrentStauts(false),
             QStringLiteral("ReadOnly:false;m_fValue:1.500; m_fMinValue:0.000; "
                            "m_fMaxValue:2.250"));
    CTreeEnumationItemValue entry;
    entry.setNumber(3);
    entry.replaceEnumList({QStringLiteral("On"), QStringLiteral("Off")}, {}, {}, {});
    QCOMPARE(entry.createCurrentStauts(false), QStringLiteral("ReadOnly:false;m_nValue:3;On;Off;"));
}

void TestTreeItemValues::namesFallBackOnEachOther()
{
    CTreeItemValue value;
    value.setDisplayName(QStringLiteral("Gain"));
    QCOMPARE(value.translateName(), QStringLiteral("Gain"));
    value.setTranslateName(QString::fromUtf8("\u589e\u76ca"));
    value.setDisplayName(QString());
    QCOMPARE(value.displayName(), QString::fromUtf8("\u589e\u76ca"));
}

void TestTreeItemValues::copyingValuesOnlyKeepsNames()
{
    CTreeEnumationItemValue from;
    from.setNodeName(QStringLiteral("From"));
    from.setNumber(2);
    from.replaceEnumList({QStringLiteral("A")}, {QStringLiteral("a")},
                         {{2, QStringLiteral("A")}}, {{QStringLiteral("a"), QStringLiteral("A")}});
    CTreeEnumationItemValue to;
    to.setNodeName(QStringLiteral("To"));
    to.copy(&from, false);
    QCOMPARE(to.nodeName(0), QStringLiteral("To"));
    QCOMPARE(to.displayValue(), QStringLiteral("A"));
    QVERIFY(to.nameMap().isEmpty());
    CTreeBooleanItemValue other;
    to.copy(&other, false);
    QCOMPARE(to.number(), qint64(2));
    to.copy(&from, true);
    QCOMPARE(to.nodeName(0), QStringLiteral("From"));
    to.copy(nullptr, true);
}

OBFT_TEST_MAIN(TestTreeItemValues)
#include "tst_treeitemvalues.moc"
