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
    void integerType_data()
    {
        const Rows<QString, int> row("given", "type"); // name and representation
        row.of("Width", 2);
        row.of("Width Linear", 2);
        row.of("Width PureNumber", 2);
        row.of("Width HexNumber", 3);
        row.of("Width IPV4Address", 4);
        row.of("Width MACAddress", 6);
        row.of("GevCurrentIPAddress HexNumber", 4);
        row.of("GevSCDA HexNumber", 4);
        row.of("GevSCDA Linear", 2);
        row.of("GevCurrentSubnetMask HexNumber", 5);
        row.of("GevPersistentSubnetMask IPV4Address", 5);
        row.of("GevMACAddress HexNumber", 6);
        row.of("GevMACAddress IPV4Address", 4);
    }

    void integerType()
    {
        QFETCH(QString, given);
        CTreeIntergerItemValue value;
        value.setNodeName(given.section(QLatin1Char(' '), 0, 0));
        value.setRepresentation(given.section(QLatin1Char(' '), 1));
        QTEST(static_cast<int>(value.type()), "type");
    }

    void integerText_data()
    {
        const Rows<QString, qint64, qint64, qint64, QString> row("representation", "number",
                                                                 "minimum", "maximum", "text");
        row("below", "", 5, 10, 20, "10");
        row("above", "", 30, 10, 20, "20");
        row("range upside down", "", 5, 10, 3, "10");
        row("smallest", "", INT64_MIN, INT64_MIN, INT64_MAX, "-9223372036854775808");
        row("address", "IPV4Address", 0xC0A80001, 0, 0xFFFFFFFF, "192.168.0.1");
        row("card address", "MACAddress", 0x0011223344FF, 0, 0xFFFFFFFFFFFF, "00:11:22:33:44:FF");
        row("hexadecimal", "HexNumber", 255, 0, 1000, "0xFF");
        row("hexadecimal of a large range", "HexNumber", 255, 0, INT64_MAX, "0xFF");
    }

    void integerText()
    {
        QFETCH(QString, representation);
        QFETCH(qint64, number);
        QFETCH(qint64, minimum);
        QFETCH(qint64, maximum);
        CTreeIntergerItemValue value;
        value.setNumbers({number, minimum, maximum, 1});
        value.setRepresentation(representation);
        QTEST(value.displayValue(), "text");
    }

    void statusTexts()
    {
        CTreeIntergerItemValue integer;
        integer.setNumbers({5, 1, 9, 2});
        integer.setRepresentation("HexNumber"_s);
        QCOMPARE(
            integer.createCurrentStauts(true),
            "ReadOnly:true;m_nValue:5; m_nMinValue:1; m_nMaxValue:9; m_nIncrement:2; NeedRecreateEditor:HexNumber"_s);
        CTreeFloatItemValue number;
        number.setNumbers({1.5F, 0.0F, 2.25F});
        QCOMPARE(number.createCurrentStauts(false),
                 "ReadOnly:false;m_fValue:1.500; m_fMinValue:0.000; m_fMaxValue:2.250"_s);
        CTreeEnumationItemValue entry;
        entry.setNumber(3);
        entry.replaceEnumList({"On"_s, "Off"_s}, {}, {}, {});
        QCOMPARE(entry.createCurrentStauts(false), "ReadOnly:false;m_nValue:3;On;Off;"_s);
    }

    void namesFallBackOnEachOther()
    {
        CTreeItemValue value;
        value.setDisplayName("Gain"_s);
        QCOMPARE(value.translateName(), "Gain"_s);
        value.setTranslateName("\u589e\u76ca"_s);
        value.setDisplayName(QString());
        QCOMPARE(value.displayName(), "\u589e\u76ca"_s);
    }

    void copyingValuesOnlyKeepsNames()
    {
        CTreeEnumationItemValue from;
        from.setNodeName("From"_s);
        from.setNumber(2);
        from.replaceEnumList({"A"_s}, {"a"_s}, {{2, "A"_s}}, {{"a"_s, "A"_s}});
        CTreeEnumationItemValue to;
        to.setNodeName("To"_s);
        to.copy(&from, false);
        QCOMPARE(to.nodeName(0), "To"_s);
        QCOMPARE(to.displayValue(), "A"_s);
        QVERIFY(to.nameMap().isEmpty());
        CTreeBooleanItemValue other;
        to.copy(&other, false);
        QCOMPARE(to.number(), qint64(2));
        to.copy(&from, true);
        QCOMPARE(to.nodeName(0), "From"_s);
        to.copy(nullptr, true);
    }
};

OBFT_TEST_MAIN(TestTreeItemValues)
#include "tst_treeitemvalues.moc"
