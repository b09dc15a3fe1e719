// SPDX-License-Identifier: Apache-2.0
#include "description/DescriptionNodes.h"
#include "support/TestMain.h"

namespace {

std::string inRoot(const QString& nodes)
{
    return ("<RegisterDescription>"_s + nodes + "</RegisterDescription>"_s).toStdString();
}

QString integer(const QString& name, const QString& inside)
{
    return "<Integer Name=\"%1\">%2</Integer>"_s.arg(name, inside);
}

QString valueOf(const QString& name)
{
    return "<pValue>%1</pValue>"_s.arg(name);
}

QString reg(const QString& name, const QString& length)
{
    return "<IntReg Name=\"%1\"><Length>%2</Length></IntReg>"_s.arg(name, length);
}

// "n0" refers to "n1" refers to ... the literal at the end; `twice` lets each refer twice.
QString chain(int length, bool twice)
{
    QString nodes;
    for (int i = 0; i < length; ++i) {
        const QString next = "<pVariable>n%1</pVariable>"_s.arg(i + 1);
        nodes += "<IntSwissKnife Name=\"n%1\">%2</IntSwissKnife>"_s.arg(QString::number(i),
                                                                        twice ? next + next : next);
    }
    return nodes + integer("n%1"_s.arg(length), "<Value>1</Value>"_s);
}

} // namespace

class TestDescriptionNodes : public GuardedTest
{
    Q_OBJECT

private slots:
    void findsFaults_data()
    {
        const Rows<QString, QString, bool> row("nodes", "name", "faulty");
        const QString a = "A"_s;
        const QString b = "B"_s;
        row("sound", integer(a, valueOf(b)) + reg(b, "4"_s), a, false);
        row("unknown name", "", a, true);
        row("itself", integer(a, valueOf(a)), a, true);
        row("leads into a circle",
            integer("C"_s, valueOf(a)) + integer(a, valueOf(b)) + integer(b, valueOf(a)), "C",
            true);
        row("long chain", chain(150, false), "n0", false);
        row("too long a chain", chain(20000, false), "n0", true);
        row("end of too long a chain", chain(20000, false), "n19990", false);
        row("doubles at each step", chain(60, true), "n0", true);
        row("no length", reg(a, QString()), a, true);
        row("negative length", reg(a, "-4"_s), a, true);
        row("address from a circle",
            "<IntReg Name=\"A\"><pAddress>B</pAddress><Length>4</Length></IntReg>"_s +
                integer(b, valueOf(b)),
            a, true);
        row("second register of the name", reg(a, "4"_s) + reg(a, "-4"_s), a, true);
        row("second node of the name", reg(a, "4"_s) + integer(a, valueOf(a)), a, true);
    }

    void findsFaults()
    {
        const auto [nodes, name] = fetchRow<QString, QString>();
        const DescriptionNodes described(inRoot(nodes));
        QVERIFY(described.isValid());
        QTEST(described.has(name.toStdString(), DescriptionNodes::Faulty), "faulty");
    }

    void structureGivesItsPartsToItsEntries()
    {
        const DescriptionNodes nodes(inRoot(
            "<StructReg Comment=\"s\"><Address>0x10</Address><Length>4</Length>"
            "<StructEntry Name=\"E\"><Bit>3</Bit></StructEntry><pIsLocked>L</pIsLocked></StructReg>"
            "<IntReg Name=\"R\"><Address>0x20</Address><Length>2</Length></IntReg>"_s));
        QVERIFY(nodes.find("E"));
        QCOMPARE(nodes.find("E")->address, std::uint64_t(0x10));
        QCOMPARE(nodes.find("E")->length, std::int64_t(4));
        QCOMPARE(nodes.find("R")->address, std::uint64_t(0x20));
        QCOMPARE(nodes.all().size(), std::size_t(2));
    }

    void walksThroughWrappers()
    {
        const DescriptionNodes nodes(inRoot(
            "<Group Name=\"G\"><Group><Enumeration Name=\"E\">"
            "<EnumEntry Name=\"X\"><Value> 0x10 </Value><pIsAvailable>A</pIsAvailable></EnumEntry>"
            "<pValue><![CDATA[R]]></pValue></Enumeration></Group></Group>"_s));
        const DescriptionNode* node = nodes.find("E");
        QVERIFY(node);
        QVERIFY(!nodes.find("G"));
        QCOMPARE(node->pValue, std::string("R"));
        QCOMPARE(node->entries.size(), std::size_t(1));
        QCOMPARE(node->entries[0].value, std::int64_t(16));
        QCOMPARE(node->entries[0].pIsAvailable, std::string("A"));
        QVERIFY(node->pIsAvailable.empty());
    }

    void reachesEachFeatureOnceInOrder()
    {
        const DescriptionNodes nodes(
            inRoot("<Category Name='Root'><pFeature>C</pFeature><pFeature>A</pFeature></Category>"
                   "<Category Name='C'><pFeature>B</pFeature><pFeature>Gone</pFeature>"
                   "<pFeature>Root</pFeature><pFeature>A</pFeature></Category><Integer Name='A'/>"
                   "<Integer Name='B'/><Integer Name='Unreached'/>"_s));
        QCOMPARE(nodes.reachableFeatures(), (std::vector<std::string>{"B", "A"}));
    }

    void rejectsBrokenText()
    {
        const DescriptionNodes nodes("<RegisterDescription><Integer Name=\"A\">");
        QVERIFY(!nodes.isValid());
        QVERIFY(nodes.all().empty());
    }
};

OBFT_TEST_MAIN(TestDescriptionNodes)
#include "tst_descriptionnodes.moc"
