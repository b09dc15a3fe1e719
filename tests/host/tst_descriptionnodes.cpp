// SPDX-License-Identifier: Apache-2.0
#include "description/DescriptionNodes.h"
#include "support/DescriptionBuilder.h"
#include "support/TestMain.h"

namespace {

DescriptionNodes described(const QString& nodes)
{
    return DescriptionNodes(DescriptionBuilder::wrap(nodes).toStdString());
}

// "n0" refers to "n1" refers to ... the literal at the end; `twice` lets each refer twice.
QString chain(int length, bool twice)
{
    QString nodes;
    for (int i = 0; i < length; ++i)
        nodes += (twice ? "IntSwissKnife n%1 pVariable=n%2,n%2;"_s
                        : "IntSwissKnife n%1 pVariable=n%2;"_s)
                     .arg(i)
                     .arg(i + 1);
    return nodes + "Integer n%1 Value=1"_s.arg(length);
}

} // namespace

class TestDescriptionNodes : public GuardedTest
{
    Q_OBJECT

private slots:
    void findsFaults_data()
    {
        const Rows<QString, QString, bool> row("nodes", "name", "faulty");
        row("sound", "Integer A pValue=B; IntReg B Length=4", "A", false);
        row("unknown name", "Integer B", "A", true);
        row("itself", "Integer A pValue=A", "A", true);
        row("leads into a circle", "Integer C pValue=A; Integer A pValue=B; Integer B pValue=A",
            "C", true);
        row("long chain", chain(150, false), "n0", false);
        row("too long a chain", chain(20000, false), "n0", true);
        row("end of too long a chain", chain(20000, false), "n19990", false);
        row("doubles at each step", chain(60, true), "n0", true);
        row("no length", "IntReg A Length=", "A", true);
        row("negative length", "IntReg A Length=-4", "A", true);
        row("address from a circle", "IntReg A pAddress=B Length=4; Integer B pValue=B", "A", true);
        row("second register of the name", "IntReg A Length=4; IntReg A Length=-4", "A", true);
        row("second node of the name", "IntReg A Length=4; Integer A pValue=A", "A", true);
    }

    void findsFaults()
    {
        const auto [nodes, name] = fetchRow<QString, QString>();
        const DescriptionNodes all =
            described(DescriptionBuilder::elements(nodes.toUtf8().constData()));
        QVERIFY(all.isValid());
        QTEST(all.has(name.toStdString(), DescriptionNodes::Faulty), "faulty");
    }

    void structureGivesItsPartsToItsEntries()
    {
        const DescriptionNodes nodes = described(
            "<StructReg Comment=\"s\"><Address>0x10</Address><Length>4</Length>"
            "<StructEntry Name=\"E\"><Bit>3</Bit></StructEntry><pIsLocked>L</pIsLocked></StructReg>"
            "<IntReg Name=\"R\"><Address>0x20</Address><Length>2</Length></IntReg>"_s);
        QVERIFY(nodes.find("E"));
        QCOMPARE(nodes.find("E")->address, std::uint64_t(0x10));
        QCOMPARE(nodes.find("E")->length, std::int64_t(4));
        QCOMPARE(nodes.find("R")->address, std::uint64_t(0x20));
        QCOMPARE(nodes.all().size(), std::size_t(2));
    }

    void walksThroughWrappers()
    {
        const DescriptionNodes nodes = described(
            "<Group Name=\"G\"><Group><Enumeration Name=\"E\">"
            "<EnumEntry Name=\"X\"><Value> 0x10 </Value><pIsAvailable>A</pIsAvailable></EnumEntry>"
            "<pValue><![CDATA[R]]></pValue></Enumeration></Group></Group>"_s);
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
        const DescriptionNodes nodes = described(DescriptionBuilder::elements(
            "Category Root pFeature=C,A; Category C pFeature=B,Gone,Root,A; Integer A; Integer B;"
            "Integer Unreached"));
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
