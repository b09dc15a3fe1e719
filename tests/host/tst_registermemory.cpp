// SPDX-License-Identifier: Apache-2.0
#include "cameras/RegisterMemory.h"
#include "support/TestMain.h"

#include <limits>

class TestRegisterMemory : public GuardedTest
{
    Q_OBJECT

private slots:
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
        QFETCH(int, bytes);
        QFETCH(bool, bigEndian);
        QFETCH(qint64, written);
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
        QCOMPARE(memory.readInteger(0x0FF8, 8, false), std::int64_t(99));
        QCOMPARE(memory.readInteger(0x1000, 8, false), std::int64_t(2));
        QCOMPARE(memory.readInteger(0x1800, 8, false), std::int64_t(0));
        QCOMPARE(memory.readInteger(0x1FF8, 8, false), std::int64_t(3));
        QCOMPARE(memory.readInteger(0x2000, 8, false), std::int64_t(99));
    }
};

OBFT_TEST_MAIN(TestRegisterMemory)
#include "tst_registermemory.moc"
