// SPDX-License-Identifier: Apache-2.0
#include "DescriptionNodes.h"
#include "support/TestMain.h"

namespace {

std::string inRoot(const QString& nodes)
{
    return (QStringLiteral("<RegisterDescription>") + nodes +
            QStringLiteral("</RegisterDescription>"))
        .toStdString();
}

QString integer(const QString& name, const QString& inside)
{
    return QStringLiteral("<Integer Name=\"%1\">%2</Integer>").arg(name, inside);
}

QString valueOf(const QString& name)
{
    return QStringLiteral("<pValue>%1</pValue>").arg(name);
}

QString reg(const QString& name, const QString& length)
{
    return QStringLiteral("<IntReg Name=\"%1\"><Length>%2</Length></IntReg>").arg(name, length);
}

// "n0" refers to "n1" refers to ... the literal at the end; `twice` lets each refer twice.
QString chain(int length, bool twice)
{
    QString nodes;
    for (int i = 0; i < length; ++i) {
        const QString next = QStringLiteral("<pVariable>n%1</pVariable>").arg(i + 1);
        nodes += QStringLiteral("<IntSwissKnife Name=\"n%1\">%2</IntSwissKnife>")
                     .arg(QString::number(i), twice ? next + next : next);
    }
    return nodes + integer(QStringLiteral("n%1").arg(length), QStringLiteral("<Value>1</Value>"));
}

} // namespace

class TestDescriptionNodes : public GuardedTest
{
    Q_OBJECT
private slots:
    void findsFaults_data();
    void findsFaults();
    void faultyLimitDoesNotSpoilTheValue();
    void structureGivesItsPartsToItsEntries();
    void walksThroughWrappers();
    void reachesEachFeatureOnceInOrder();
    void rejectsBrokenText();
};

void TestDescriptionNodes::findsFaults_data()
{
    QTest::addColumn<QString>("nodes");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("faulty");
    const QString a = QStringLiteral("A");
    const QString b = QStringLiteral("B");
    QTest::newRow("sound") << integer(a, valueOf(b)) + reg(b, QStringLiteral("4")) << a << false;
    QTest::newRow("unknown name") << QString() << a << true;
    QTest::newRow("missing target") << integer(a, valueOf(b)) << a << true;
    QTest::newRow("itself") << integer(a, valueOf(a)) << a << true;
    QTest::newRow("circle of two") << integer(a, valueOf(b)) + integer(b, valueOf(a)) << b << true;
    QTest::newRow("leads into a circle") << integer(QStringLiteral("C"), valueOf(a)) +
                                                integer(a, valueOf(b)) + integer(b, valueOf(a))
                                         << QStringLiteral("C") << true;
    QTest::newRow("long chain") << chain(150, false) << QStringLiteral("n0") << false;
    QTest::newRow("too long a chain") << chain(20000, false) << QStringLiteral("n0") << true;
    QTest::newRow("end of too long a chain")
        << chain(20000, false) << QStringLiteral("n19990") << false;
    QTest::newRow("doubles at each step") << chain(60, true) << QStringLiteral("n0") << true;
    QTest::newRow("no length") << reg(a, QString()) << a << true;
    QTest::newRow("negative length") << reg(a, QStringLiteral("-4")) << a << true;
    QTest::newRow("terabytes") << reg(a, QStringLiteral("0x10000000000")) << a << true;
    QTest::newRow("address from a circle")
        << QStringLiteral("<IntReg Name=\"A\"><pAddress>B</pAddress><Length>4</Length></IntReg>") +
               integer(b, valueOf(b))
        << a << true;
    QTest::newRow("second register of the name")
        << reg(a, QStringLiteral("4")) + reg(a, QStringLiteral("-4")) << a << true;
    QTest::newRow("second node of the name")
        << reg(a, QStringLiteral("4")) + integer(a, valueOf(a)) << a << true;
}

void TestDescriptionNodes::findsFaults()
{
    QFETCH(QString, nodes);
    QFETCH(QString, name);
    const DescriptionNodes described(inRoot(nodes));
    QVERIFY(described.isValid());
    QTEST(described.has(name.toStdString(), DescriptionNodes::Faulty), "faulty");
}

void TestDescriptionNodes::faultyLimitDoesNotSpoilTheValue()
{
    const DescriptionNodes nodes(
        inRoot(integer(QStringLiteral("A"), valueOf(QStringLiteral("B"))) +
               integer(QStringLiteral("B"), QStringLiteral("<Value>1</Value><pMax>Gone</pMax>"))));
    QVERIFY(!nodes.has("A", DescriptionNodes::Faulty));
    QVERIFY(nodes.has("A", DescriptionNodes::FaultyLimits));
}

void TestDescriptionNodes::structureGivesItsPartsToItsEntries()
{
    const DescriptionNodes nodes(inRoot(QStringLiteral(
        "<StructReg Comment=\"s\"><Address>0x10</Address><Length>4</Length>"
        "<StructEntry Name=\"E\"><Bit>3</Bit></StructEntry><pIsLocked>L</pIsLocked></StructReg>"
        "<IntReg Name=\"R\"><Address>0x20</Address><Length>2</Length></IntReg>")));
    QVERIFY(nodes.find("E"));
    QCOMPARE(nodes.find("E")->address, std::uint64_t(0x10));
    QCOMPARE(nodes.find("E")->length, std::int64_t(4));
    QCOMPARE(nodes.find("R")->address, std::uint64_t(0x20));
    QCOMPARE(nodes.all().size(), std::size_t(2));
}

void TestDescriptionNodes::walksThroughWrappers()
{
    const DescriptionNodes nodes(inRoot(QStringLiteral(
        "<Group Name=\"G\"><Group><Enumeration Name=\"E\">"
        "<EnumEntry Name=\"X\"><Value> 0x10 </Value><pIsAvailable>A</pIsAvailable></EnumEntry>"
        "<pValue><![CDATA[R]]></pValue></Enumeration></Group></Group>")));
    const DescriptionNode* node = nodes.find("E");
    QVERIFY(node);
    QVERIFY(!nodes.find("G"));
    QCOMPARE(node->pValue, std::string("R"));
    QCOMPARE(node->entries.size(), std::size_t(1));
    QCOMPARE(node->entries[0].value, std::int64_t(16));
    QCOMPARE(node->entries[0].pIsAvailable, std::string("A"));
    QVERIFY(node->pIsAvailable.empty());
}

void TestDescriptionNodes::reachesEachFeatureOnceInOrder()
{
    const QString category = QStringLiteral("<Category Name=\"%1\">%2</Category>");
    const QString feature = QStringLiteral("<pFeature>%1</pFeature>");
    const auto features = [&feature](const QStringList& names) {
        QString text;
        for (const QString& name : names)
            text += feature.arg(name);
        return text;
    };
    const auto s = [](const char* text) { return QString::fromLatin1(text); };
    const DescriptionNodes nodes(
        inRoot(category.arg(s("Root"), features({s("C"), s("A")})) +
               category.arg(s("C"), features({s("B"), s("Gone"), s("Root"), s("A")})) +
               integer(s("A"), s("<Value>1</Value>")) + integer(s("B"), s("<Value>1</Value>")) +
               integer(s("Unreached"), s("<Value>1</Value>"))));
    QCOMPARE(nodes.reachableFeatures(), (std::vector<std::string>{"B", "A"}));
}

void TestDescriptionNodes::rejectsBrokenText()
{
    const DescriptionNodes nodes("<RegisterDescription><Integer Name=\"A\">");
    QVERIFY(!nodes.isValid());
    QVERIFY(nodes.all().empty());
}

OBFT_TEST_MAIN(TestDescriptionNodes)
#include "tst_descriptionnodes.moc"
