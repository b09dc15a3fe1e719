// SPDX-License-Identifier: Apache-2.0
#include "cameras/RegisterMemory.h"
#include "cameras/SimulatedCamera.h"
#include "host/CameraTalk.h"
#include "support/DescriptionBuilder.h"
#include "support/TestMain.h"

#include <limits>

namespace {

// A register of the simulated camera.
QByteArray reg(const char* name, int address, const char* extra = "")
{
    return QByteArray("<IntReg Name=\"") + name + "\"><Address>" + QByteArray::number(address) +
           "</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>"
           "<Sign>Unsigned</Sign><Endianess>LittleEndian</Endianess>" +
           extra + "</IntReg>";
}

// Others in short.
QByteArray inShort(const char* text)
{
    return DescriptionBuilder::elements(text).toUtf8();
}

QByteArray description(const QByteArray& nodes)
{
    return "<RegisterDescription ModelName=\"M\" VendorName=\"V\" StandardNameSpace=\"None\" "
           "SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" SchemaSubMinorVersion=\"0\" "
           "MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\">" +
           nodes + "<Port Name=\"Device\"/></RegisterDescription>";
}

} // namespace

class TestSimulatedCamera : public GuardedTest
{
    Q_OBJECT

private slots:
    void convertsEncodings_data()
    {
        const Rows<QByteArray, QString> row("raw", "value");
        const QString text =
            "<?xml version=\"1.0\" encoding=\"%1\"?>"_s +
            QString::fromUtf8(description("<String Name=\"S\"><Value>%2</Value></String>"));
        const QString chinese = "宽度"_s;
        const auto plain = [&text](const char* encoding, const QByteArray& value) {
            return text.arg(QLatin1String(encoding), "%2"_s).toLatin1().replace("%2", value);
        };
        for (const auto& [encoding, value] :
             {std::pair("UTF-8", "\xE5\xAE\xBD\xE5\xBA\xA6"),
              std::pair("GB2312", "\xBF\xED\xB6\xC8"), std::pair("GB18030", "\xBF\xED\xB6\xC8")})
            row(encoding, plain(encoding, value), chinese);
        const struct
        {
            const char* name;
            const char* encoding;
            int bytes;
            bool bigEndian, marked;
        } wide[] = {{"UTF-16", "UTF-16", 2, false, true},
                    {"UTF-16, high byte first", "UTF-16", 2, true, true},
                    {"UTF-16LE without mark", "UTF-16LE", 2, false, false},
                    {"UTF-16BE without mark", "UTF-16BE", 2, true, false},
                    {"UTF-32", "UTF-32", 4, false, true},
                    {"UTF-32, high byte first", "UTF-32", 4, true, true}};
        for (const auto& form : wide) {
            const QString mark = form.marked ? QString(QChar(QChar::ByteOrderMark)) : QString();
            QByteArray raw;
            for (const uint code :
                 (mark + text.arg(QLatin1String(form.encoding), chinese)).toUcs4()) {
                for (int i = 0; i < form.bytes; ++i)
                    raw += char(code >> 8 * (form.bigEndian ? form.bytes - 1 - i : i));
            }
            row(form.name, raw, chinese);
        }
        row("UTF-8 with mark", "\xEF\xBB\xBF" + plain("UTF-8", chinese.toUtf8()), chinese);
        const QByteArray latin = plain("ISO-8859-1", "Gr\xF6\xDF"
                                                     "e");
        row("Latin-1", latin, "Größe");
        row("Latin-1 that claims to be UTF-8", QByteArray(latin).replace("ISO-8859-1", "UTF-8"),
            "Größe");
    }

    void convertsEncodings()
    {
        QFETCH(QByteArray, raw);
        SimulatedCamera camera(raw);
        QVERIFY(camera.hasNodeMap());
        QVERIFY(camera.descriptionXml().find("encoding=\"UTF-8\"") != std::string::npos);
        QTEST(CameraTalk(camera).value("S"_s), "value");
    }

    void answersWithoutNodeMap_data()
    {
        const Rows<QByteArray> row("raw");
        const QByteArray sound = description(reg("R", 0));
        row("empty", "");
        row("no XML", "hello");
        row("zeros", QByteArray(100, '\0'));
        row("cut off", sound.left(sound.size() / 2));
        row("wrong end tag", QByteArray(sound).replace("</IntReg>", "</Integer>"));
        row("other root", "<html><body/></html>");
        row("deep nesting", description(QByteArray("<Group>").repeated(5000) +
                                        QByteArray("</Group>").repeated(5000)));
    }

    void answersWithoutNodeMap()
    {
        QFETCH(QByteArray, raw);
        SimulatedCamera camera(raw);
        const QString talk = "R: NoDescription; R=1: NoDescription; R? ni: NoDescription"_s;
        QCOMPARE(CameraTalk(camera).again(talk), talk);
        QCOMPARE(camera.descriptionXml().size(), std::size_t(raw.size()));
    }

    void answers_data()
    {
        const Rows<QByteArray, QString> row("nodes", "talk");
        const char* const faulty = "F: BrokenDescription; F=1: BrokenDescription";
        row("missing value", inShort("Integer F pValue=No"), faulty);
        row("circle", inShort("Integer F pValue=G; Integer G pValue=F"), faulty);
        row("missing decider", inShort("Integer F pIsAvailable=No Value=1"), faulty);
        row("decider in a circle", inShort("Integer F pIsLocked=F pValue=F"), faulty);
        row("huge register", reg("F", 0).replace("<Length>4<", "<Length>4000000000000<"), faulty);
        row("length from a register",
            reg("F", 0).replace("<Length>4</Length>", "<pLength>L</pLength>") +
                inShort("Integer L Value=4000000000000"),
            faulty);
        row("missing port", reg("F", 0).replace("Device", "Elsewhere"), faulty);
        row("faulty limits are left out",
            inShort("Integer F pValue=R pMin=No pMax=No") + reg("R", 0),
            "F: 0; F.min: -9223372036854775808; F.max: 9223372036854775807; F=12; F: 12");
        // Registers that are empty get values at which the features are available and in range.
        row("available by a bit of a register",
            "<Integer Name='F'><pIsAvailable>K</pIsAvailable><pValue>R</pValue><Min>5</Min>"
            "<Max>9</Max></Integer><IntSwissKnife Name='K'><pVariable Name='X'>Q</pVariable>"
            "<Formula>(X &gt;&gt; 31) &amp; 1</Formula></IntSwissKnife>" +
                reg("R", 0) + reg("Q", 8),
            "F? rw; F.min: 5; F.max: 9; F: 5");
        row("maximum from an empty register",
            inShort("Integer F pValue=R Min=5 pMax=Q") + reg("R", 0) + reg("Q", 8),
            "F? rw; F.min: 5; F.max: 1000; F: 5");
        row("lock that stands against availability",
            inShort("Integer F pIsAvailable=Q pIsLocked=Q pValue=R Min=5 Max=9") + reg("R", 0) +
                reg("Q", 8),
            "F? ro; F.min: 5; F.max: 9; F: 5");
        row("each entry of a selector",
            "<Enumeration Name='Sel'><EnumEntry Name='A'><Value>0</Value></EnumEntry>"
            "<EnumEntry Name='B'><Value>1</Value></EnumEntry><pValue>SelReg</pValue>"
            "<pSelected>F</pSelected></Enumeration>" +
                inShort("Integer F pValue=R Min=5 Max=9") + reg("SelReg", 0) +
                reg("R", 16, "<pIndex Offset='4'>SelReg</pIndex>"),
            "Sel=0; F: 5; Sel=1; F: 5");
        row("described start values",
            inShort("Integer S Value=2") +
                reg("R", 16,
                    "<pIndex Offset='4'>S</pIndex>"
                    "<Extension><StartValues>10 20 30</StartValues></Extension>") +
                "<StringReg Name='T'><Address>64</Address><Length>8</Length><pPort>Device</pPort>"
                "<Extension><StartValue>two words</StartValue></Extension></StringReg>",
            "R: 30; T: two word");
        row("lock makes read-only",
            inShort("Integer F pIsLocked=L Value=1; Integer OverF pValue=F;"
                    "Command C pIsLocked=L pValue=W CommandValue=1") +
                reg("W", 0).replace(">RW<", ">WO<") + reg("L", 8),
            "C(); L=1; F? ro; F=5: NotWritable; OverF? ro; OverF=5: NotWritable; C? wo; "
            "C(): NotWritable");
        row("entries follow their deciders",
            "<Enumeration Name='E'><EnumEntry Name='A'><Value>0</Value></EnumEntry>"
            "<EnumEntry Name='B'><pIsAvailable>D</pIsAvailable><Value>7</Value></EnumEntry>"
            "<pValue>R</pValue></Enumeration>" +
                reg("R", 0) + reg("D", 8),
            "D=0; E.entries: 1; E=7: OutOfRange; D=1; E=7; E.entries: 2; E: 7");
        row("increment binds writes", inShort("Integer F Value=3 Min=3 Max=40 Inc=5"),
            "F=13; F=15: OutOfRange");
        row("rounded bound counts as bound", inShort("Float F Value=1 Min=0.00012346 Max=1234.4"),
            "F=1234.9; F: 1234.4; F=0.0001234; F=1236: OutOfRange");
        row("whole range of 64 bits", inShort("Integer F Value=0"),
            "F=-9223372036854775808; F: -9223372036854775808; F=9223372036854775807; "
            "F: 9223372036854775807");
        const QString euros(85, QChar(0x20AC));
        row("long text is cut between characters", inShort("String S Value=x"),
            "S=%1%1; S: %1; S.bytes: 255"_s.arg(euros));
        row("data ports have no value",
            inShort("Integer F pValue=R; Port Chunk ChunkID=12") +
                reg("R", 0).replace("Device", "Chunk"),
            "F? na");
    }

    void answers()
    {
        const auto [nodes, talk] = fetchRow<QByteArray, QString>();
        SimulatedCamera camera(description(nodes));
        QVERIFY(camera.hasNodeMap());
        QCOMPARE(CameraTalk(camera).again(talk), talk);
    }

    void keepsNumbers_data()
    {
        const Rows<int, bool, qint64, qint64> row("bytes", "bigEndian", "written", "read");
        row("byte", 1, false, 200, 200);
        row("cut off", 2, false, 0x12345, 0x2345);
        row("big endian", 4, true, 0x01020304, 0x01020304);
        row("whole range", 8, true, std::numeric_limits<qint64>::min(),
            std::numeric_limits<qint64>::min());
    }

    void keepsNumbers()
    {
        const auto [bytes, bigEndian, written] = fetchRow<int, bool, qint64>();
        RegisterMemory memory;
        memory.writeInteger(0x1000, std::size_t(bytes), bigEndian, written);
        QTEST(qint64(memory.readInteger(0x1000, std::size_t(bytes), bigEndian)), "read");
        memory.writeFloat(0x2000, 4, bigEndian, -1.5);
        memory.writeFloat(0x2008, 8, bigEndian, 1e-300);
        QCOMPARE(memory.readFloat(0x2000, 4, bigEndian), -1.5);
        QCOMPARE(memory.readFloat(0x2008, 8, bigEndian), 1e-300);
    }

    void bigEndianPutsTheHighByteFirst()
    {
        RegisterMemory memory;
        memory.writeInteger(0, 2, true, 0x0102);
        QCOMPARE(memory.readInteger(0, 1, false), std::int64_t(1));
        memory.writeInteger(0, 2, false, 0x0102);
        QCOMPARE(memory.readInteger(0, 1, false), std::int64_t(2));
    }

    void crossesPagesAndTheEndOfTheAddressRange()
    {
        const std::string text = "across the border";
        for (const std::uint64_t address :
             {RegisterMemory::kPageBytes - 5, std::numeric_limits<std::uint64_t>::max() - 4}) {
            RegisterMemory memory;
            memory.writeText(address, text.size(), text);
            std::string back(text.size(), '?');
            memory.read(address, &back[0], back.size());
            QCOMPARE(back, text);
        }
    }

    void replacesOnlyTheGivenRange()
    {
        RegisterMemory memory;
        memory.writeInteger(0x0FF8, 8, false, 1); // below the range
        memory.writeInteger(0x1000, 8, false, 2); // first in it
        memory.writeInteger(0x1FF8, 8, false, 3); // last in it
        memory.writeInteger(0x2000, 8, false, 4); // above it
        const RegisterMemory copy = memory.copyOf(0x1000, 0x1FFF);
        for (const std::uint64_t address : {0x0FF8, 0x1000, 0x1800, 0x1FF8, 0x2000})
            memory.writeInteger(address, 8, false, 99);
        memory.replace(0x1000, 0x1FFF, copy);
        QVector<std::int64_t> kept;
        for (const std::uint64_t address : {0x0FF8, 0x1000, 0x1800, 0x1FF8, 0x2000})
            kept += memory.readInteger(address, 8, false);
        QCOMPARE(kept, (QVector<std::int64_t>{99, 2, 0, 3, 99}));
    }
};

OBFT_TEST_MAIN(TestSimulatedCamera)
#include "tst_simulatedcamera.moc"
