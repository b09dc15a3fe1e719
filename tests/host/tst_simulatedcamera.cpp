// SPDX-License-Identifier: Apache-2.0
#include "cameras/CameraError.h"
#include "cameras/SimulatedCamera.h"
#include "support/TestMain.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <QTextCodec>

#include <cstring>

namespace {

// A register of the simulated camera.
QByteArray reg(const char* name, int address, const char* extra = "")
{
    return QByteArray("<IntReg Name=\"") + name + "\"><Address>" + QByteArray::number(address) +
           "</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>"
           "<Sign>Unsigned</Sign><Endianess>LittleEndian</Endianess>" +
           extra + "</IntReg>";
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
        const Rows<QByteArray> row("raw");
        const QString text =
            "<?xml version=\"1.0\" encoding=\"%1\"?>"_s +
            QString::fromUtf8(description("<String Name=\"S\"><Value>%2</Value></String>"));
        const QString german = "Gr\xC3\xB6\xC3\x9F"
                               "e"_s;
        const QString chinese = "\xE5\xAE\xBD\xE5\xBA\xA6"_s;
        const auto encoded = [&text](const char* codec, const QString& value) {
            return QTextCodec::codecForName(codec)->fromUnicode(
                text.arg(QLatin1String(codec), value));
        };
        row("UTF-8", encoded("UTF-8", chinese));
        row("UTF-8 with mark", "\xEF\xBB\xBF" + encoded("UTF-8", chinese));
        row("UTF-16 with mark", encoded("UTF-16", chinese));
        row("UTF-16 big endian", encoded("UTF-16BE", chinese));
        row("UTF-16 little endian", encoded("UTF-16LE", chinese));
        row("UTF-32 with mark", encoded("UTF-32", chinese));
        row("GB2312", encoded("GB2312", chinese));
        row("GB18030", encoded("GB18030", chinese));
        row("Latin-1", encoded("ISO-8859-1", german));
        row("Latin-1 that claims to be UTF-8",
            encoded("ISO-8859-1", german).replace("ISO-8859-1", "UTF-8"));
    }

    void convertsEncodings()
    {
        QFETCH(QByteArray, raw);
        SimulatedCamera camera(raw);
        QVERIFY(camera.hasNodeMap());
        QVERIFY(camera.descriptionXml().find("encoding=\"UTF-8\"") != std::string::npos);
        _ZDCC_STRINGVALUE_T record{};
        QCOMPARE(camera.read(OB_FT_TYPE_STRING, "S", &record), 0);
        const QString value = QString::fromUtf8(record.value);
        QVERIFY2(value == "Gr\xC3\xB6\xC3\x9F"
                          "e"_s ||
                     value == "\xE5\xAE\xBD\xE5\xBA\xA6"_s,
                 record.value);
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
        _ZDCC_INTVALUE_EX_T record{};
        int mode = 7;
        const int error = camera.read(OB_FT_TYPE_INTEGER, "R", &record);
        QVERIFY2(error == CameraError::NoDescription || error == CameraError::NodeNotFound,
                 CameraError::text(error));
        QVERIFY(camera.write(OB_FT_TYPE_INTEGER, "R", "1") != 0);
        QVERIFY(camera.accessMode("R", &mode) != 0);
        QCOMPARE(mode, int(OB_FT_ACCESS_NOT_IMPLEMENTED));
        QCOMPARE(camera.descriptionXml().size(), std::size_t(raw.size()));
    }

    void answersFaultyNodesWithAnError_data()
    {
        const Rows<QByteArray> row("nodes");
        row("missing value", "<Integer Name=\"F\"><pValue>No</pValue></Integer>");
        row("circle", "<Integer Name=\"F\"><pValue>G</pValue></Integer>"
                      "<Integer Name=\"G\"><pValue>F</pValue></Integer>");
        row("missing decider",
            "<Integer Name=\"F\"><pIsAvailable>No</pIsAvailable><Value>1</Value></Integer>");
        row("decider in a circle",
            "<Integer Name=\"F\"><pIsLocked>F</pIsLocked><pValue>F</pValue></Integer>");
        row("huge register", reg("F", 0).replace("<Length>4<", "<Length>4000000000000<"));
        row("length from a register",
            reg("F", 0).replace("<Length>4</Length>", "<pLength>L</pLength>") +
                "<Integer Name=\"L\"><Value>4000000000000</Value></Integer>");
        row("missing port", reg("F", 0).replace("Device", "Elsewhere"));
    }

    void answersFaultyNodesWithAnError()
    {
        QFETCH(QByteArray, nodes);
        SimulatedCamera camera(description(nodes));
        QVERIFY(camera.hasNodeMap());
        _ZDCC_INTVALUE_EX_T record{};
        QCOMPARE(camera.read(OB_FT_TYPE_INTEGER, "F", &record),
                 int(CameraError::BrokenDescription));
        QVERIFY(camera.write(OB_FT_TYPE_INTEGER, "F", "1") != 0);
    }

    void leavesOutFaultyLimits()
    {
        SimulatedCamera camera(description(
            "<Integer Name=\"F\"><pValue>R</pValue><pMin>No</pMin><pMax>No</pMax></Integer>" +
            reg("R", 0)));
        _ZDCC_INTVALUE_EX_T record{};
        QCOMPARE(camera.read(OB_FT_TYPE_INTEGER, "F", &record), 0);
        QVERIFY(record.minimum < record.maximum);
        QCOMPARE(camera.write(OB_FT_TYPE_INTEGER, "F", "12"), 0);
    }

    void settlesStartValues_data()
    {
        const Rows<QByteArray, int> row("nodes", "mode");
        row("available by a bit of a register",
            QByteArray(
                "<Integer Name=\"F\"><pIsAvailable>K</pIsAvailable><pValue>R</pValue>"
                "<Min>5</Min><Max>9</Max></Integer><IntSwissKnife Name=\"K\">"
                "<pVariable Name=\"X\">Q</pVariable><Formula>(X &gt;&gt; 31) &amp; 1</Formula>"
                "</IntSwissKnife>") +
                reg("R", 0) + reg("Q", 8),
            OB_FT_ACCESS_READ_WRITE);
        row("maximum from an empty register",
            "<Integer Name=\"F\"><pValue>R</pValue><Min>5</Min><pMax>Q</pMax></Integer>" +
                reg("R", 0) + reg("Q", 8),
            OB_FT_ACCESS_READ_WRITE);
        row("lock that stands against availability",
            "<Integer Name=\"F\"><pIsAvailable>Q</pIsAvailable><pIsLocked>Q</pIsLocked>"
            "<pValue>R</pValue><Min>5</Min><Max>9</Max></Integer>" +
                reg("R", 0) + reg("Q", 8),
            OB_FT_ACCESS_READ_ONLY);
    }

    void settlesStartValues()
    {
        QFETCH(QByteArray, nodes);
        SimulatedCamera camera(description(nodes));
        int mode = 0;
        QCOMPARE(camera.accessMode("F", &mode), 0);
        QTEST(mode, "mode");
        _ZDCC_INTVALUE_EX_T record{};
        QCOMPARE(camera.read(OB_FT_TYPE_INTEGER, "F", &record), 0);
        QVERIFY(record.minimum < record.maximum);
        QVERIFY(record.value >= record.minimum && record.value <= record.maximum);
    }

    void takesDescribedStartValues()
    {
        SimulatedCamera camera(description(
            "<Integer Name=\"S\"><Value>2</Value></Integer>" +
            reg("R", 16,
                "<pIndex Offset=\"4\">S</pIndex>"
                "<Extension><StartValues>10 20 30</StartValues></Extension>") +
            "<StringReg Name=\"T\"><Address>64</Address><Length>8</Length><pPort>Device</pPort>"
            "<Extension><StartValue>two words</StartValue></Extension></StringReg>"));
        _ZDCC_INTVALUE_EX_T record{};
        QCOMPARE(camera.read(OB_FT_TYPE_INTEGER, "R", &record), 0);
        QCOMPARE(record.value, std::int64_t(30));
        _ZDCC_STRINGVALUE_T text{};
        QCOMPARE(camera.read(OB_FT_TYPE_STRING, "T", &text), 0);
        QCOMPARE(QByteArray(text.value), QByteArray("two word"));
    }

    void settlesEachEntryOfASelector()
    {
        SimulatedCamera camera(description(
            "<Enumeration Name=\"Sel\"><EnumEntry Name=\"A\"><Value>0</Value></EnumEntry>"
            "<EnumEntry Name=\"B\"><Value>1</Value></EnumEntry><pValue>SelReg</pValue>"
            "<pSelected>F</pSelected></Enumeration>"
            "<Integer Name=\"F\"><pValue>R</pValue><Min>5</Min><Max>9</Max></Integer>" +
            reg("SelReg", 0) + reg("R", 16, "<pIndex Offset=\"4\">SelReg</pIndex>")));
        for (const char* entry : {"0", "1"}) {
            QCOMPARE(camera.write(OB_FT_TYPE_ENUMERATION, "Sel", entry), 0);
            _ZDCC_INTVALUE_EX_T record{};
            QCOMPARE(camera.read(OB_FT_TYPE_INTEGER, "F", &record), 0);
            QCOMPARE(record.value, std::int64_t(5));
        }
    }

    void lockMakesReadOnly()
    {
        SimulatedCamera camera(description(
            "<Integer Name=\"F\"><pIsLocked>L</pIsLocked><Value>1</Value></Integer>"
            "<Integer Name=\"OverF\"><pValue>F</pValue></Integer>"
            "<Command "
            "Name=\"C\"><pIsLocked>L</pIsLocked><pValue>W</pValue><CommandValue>1</CommandValue>"
            "</Command>" +
            reg("W", 0).replace(">RW<", ">WO<") + reg("L", 8)));
        QCOMPARE(camera.write(OB_FT_TYPE_COMMAND, "C", ""), 0);
        QCOMPARE(camera.write(OB_FT_TYPE_INTEGER, "L", "1"), 0);
        int mode = 0;
        for (const char* name : {"F", "OverF"}) {
            QCOMPARE(camera.accessMode(name, &mode), 0);
            QCOMPARE(mode, int(OB_FT_ACCESS_READ_ONLY));
            QCOMPARE(camera.write(OB_FT_TYPE_INTEGER, name, "5"), int(CameraError::NotWritable));
        }
        QCOMPARE(camera.accessMode("C", &mode), 0);
        QCOMPARE(mode, int(OB_FT_ACCESS_WRITE_ONLY));
        QCOMPARE(camera.write(OB_FT_TYPE_COMMAND, "C", ""), int(CameraError::NotWritable));
    }

    void entriesFollowTheirDeciders()
    {
        SimulatedCamera camera(description(
            "<Enumeration Name=\"E\"><EnumEntry Name=\"A\"><Value>0</Value></EnumEntry>"
            "<EnumEntry Name=\"B\"><pIsAvailable>D</pIsAvailable><Value>7</Value></EnumEntry>"
            "<pValue>R</pValue></Enumeration>" +
            reg("R", 0) + reg("D", 8)));
        _ZDCC_ENUMVALUE_T record{};
        QCOMPARE(camera.write(OB_FT_TYPE_INTEGER, "D", "0"), 0);
        QCOMPARE(camera.read(OB_FT_TYPE_ENUMERATION, "E", &record), 0);
        QCOMPARE(record.supportedCount, 1U);
        QCOMPARE(camera.write(OB_FT_TYPE_ENUMERATION, "E", "7"), int(CameraError::OutOfRange));
        QCOMPARE(camera.write(OB_FT_TYPE_INTEGER, "D", "1"), 0);
        QCOMPARE(camera.write(OB_FT_TYPE_ENUMERATION, "E", "7"), 0);
        QCOMPARE(camera.read(OB_FT_TYPE_ENUMERATION, "E", &record), 0);
        QCOMPARE(record.supportedCount, 2U);
        QCOMPARE(record.value, 7U);
    }

    void incrementBindsWrites()
    {
        SimulatedCamera camera(description(
            "<Integer Name=\"F\"><Value>3</Value><Min>3</Min><Max>40</Max><Inc>5</Inc></Integer>"));
        QCOMPARE(camera.write(OB_FT_TYPE_INTEGER, "F", "13"), 0);
        QCOMPARE(camera.write(OB_FT_TYPE_INTEGER, "F", "15"), int(CameraError::OutOfRange));
    }

    void roundedBoundCountsAsBound()
    {
        SimulatedCamera camera(description(
            "<Float Name=\"F\"><Value>1</Value><Min>0.00012346</Min><Max>1234.4</Max></Float>"));
        _ZDCC_FLOATVALUE_T record{};
        QCOMPARE(camera.write(OB_FT_TYPE_FLOAT, "F", "1234.9"), 0);
        QCOMPARE(camera.read(OB_FT_TYPE_FLOAT, "F", &record), 0);
        QCOMPARE(record.value, 1234.4F);
        QCOMPARE(camera.write(OB_FT_TYPE_FLOAT, "F", "0.0001234"), 0);
        QCOMPARE(camera.write(OB_FT_TYPE_FLOAT, "F", "1236"), int(CameraError::OutOfRange));
    }

    void wholeRangeOf64Bits()
    {
        SimulatedCamera camera(description("<Integer Name=\"F\"><Value>0</Value></Integer>"));
        for (const char* text : {"-9223372036854775808", "9223372036854775807"}) {
            _ZDCC_INTVALUE_EX_T record{};
            QCOMPARE(camera.write(OB_FT_TYPE_INTEGER, "F", text), 0);
            QCOMPARE(camera.read(OB_FT_TYPE_INTEGER, "F", &record), 0);
            QCOMPARE(std::to_string(record.value), std::string(text));
        }
    }

    void cutsLongTextBetweenCharacters()
    {
        SimulatedCamera camera(description("<String Name=\"S\"><Value>x</Value></String>"));
        const std::string euro = "\xE2\x82\xAC";
        std::string text;
        while (text.size() < 300)
            text += euro;
        QCOMPARE(camera.write(OB_FT_TYPE_STRING, "S", text), 0);
        _ZDCC_STRINGVALUE_T record{};
        QCOMPARE(camera.read(OB_FT_TYPE_STRING, "S", &record), 0);
        QCOMPARE(std::strlen(record.value), std::size_t(255));
        QCOMPARE(std::string(record.value), text.substr(0, 255));
    }

    void dataPortsHaveNoValue()
    {
        SimulatedCamera camera(description("<Integer Name=\"F\"><pValue>R</pValue></Integer>" +
                                           reg("R", 0).replace("Device", "Chunk") +
                                           "<Port Name=\"Chunk\"><ChunkID>12</ChunkID></Port>"));
        int mode = 0;
        QCOMPARE(camera.accessMode("F", &mode), 0);
        QCOMPARE(mode, int(OB_FT_ACCESS_NOT_AVAILABLE));
    }
};

OBFT_TEST_MAIN(TestSimulatedCamera)
#include "tst_simulatedcamera.moc"
