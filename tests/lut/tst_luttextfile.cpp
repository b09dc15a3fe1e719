// SPDX-License-Identifier: Apache-2.0
// Text files of look-up tables: their bytes, files that are not what they should be, full disks.
#include "lut/LUTTextFile.h"
#include "support/FileSizeLimit.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

constexpr int kPoints = 8; // of the tables here
constexpr int kMaxValue = 255;

LUTPoints points(int count)
{
    LUTPoints result;
    for (int i = 0; i < count; ++i)
        result.append({i, (i * 31) % (kMaxValue + 1)});
    return result;
}

} // namespace

class TestLutTextFile : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override { m_directory.reset(new QTemporaryDir); }

private:
    QString path(const char* name) const
    {
        return m_directory->filePath(QString::fromLatin1(name));
    }
    QScopedPointer<QTemporaryDir> m_directory;

private slots:
    void linesEndWithCrLf()
    {
        QVERIFY(LUTTextFile::write(path("a.txt"), {{0, 4095}, {1, 0}}));
        QCOMPARE(bytesOf(path("a.txt")), QByteArray("0\r\n4095\r\n1\r\n0\r\n"));
    }

    void fullDiskKeepsTheFileBefore()
    {
        // Written at once, and buffered.
        for (const int count : {4096, 600}) {
            QVERIFY(LUTTextFile::write(path("a.txt"), points(kPoints)));
            const QByteArray before = bytesOf(path("a.txt"));
            {
                const FileSizeLimit full(4096);
                QVERIFY(!LUTTextFile::write(path("a.txt"), points(count)));
                QVERIFY(!LUTTextFile::write(path("new.txt"), points(count)));
            }
            QCOMPARE(bytesOf(path("a.txt")), before);
            QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files), QStringList{"a.txt"_s});
        }
    }

    void unwritablePlaces_data()
    {
        const Rows<QString> row("name");
        row("no such folder", "none/a.txt");
        row("a folder", ".");
        row("below a file", "file/a.txt");
    }

    void unwritablePlaces()
    {
        QFETCH(QString, name);
        QVERIFY(LUTTextFile::write(path("file"), points(kPoints)));
        const QByteArray before = bytesOf(path("file"));
        QVERIFY(!LUTTextFile::write(m_directory->filePath(name), points(kPoints)));
        QCOMPARE(bytesOf(path("file")), before);
    }

    void contents_data()
    {
        const Rows<QByteArray, bool> row("content", "good");
        row("one pair", "0\r\n5\r\n", true);
        row("LF alone", "0\n5\n1\n6\n", true);
        row("last line without end", "0\r\n5\r\n1\r\n6", true);
        row("blanks", " 0 \r\n\t5\r\n", true);
        row("byte-order mark",
            "\xEF\xBB\xBF"
            "0\r\n5\r\n",
            true);
        row("largest numbers", "8\r\n255\r\n", true);
        row("leading zeros", "0008\r\n0255\r\n", true);
        row("as many points as there may be", QByteArray("0\r\n5\r\n").repeated(kPoints + 1), true);
        row("one more", QByteArray("0\r\n5\r\n").repeated(kPoints + 2), false);
        row("empty", "", false);
        row("blank line", "\r\n", false);
        row("odd number of lines", "0\r\n5\r\n1\r\n", false);
        row("blank line at the end", "0\r\n5\r\n\r\n", false);
        row("a word", "0\r\nfive\r\n", false);
        row("index above the range", "9\r\n5\r\n", false);
        row("value above the range", "0\r\n256\r\n", false);
        row("value beyond 64 bits", "0\r\n18446744073709551617\r\n", false);
        row("negative index", "-1\r\n5\r\n", false);
        row("fraction", "0\r\n5.0\r\n", false);
        row("hexadecimal", "0\r\n0x5\r\n", false);
        row("CR alone", "0\r5\r1\r6\r", false);
        row("NUL after a number", QByteArray("0\r\n5\0\r\n", 7), false);
        row("UTF-16",
            QByteArray("\xFF\xFE"
                       "0\0\r\0\n\0",
                       8),
            false);
        row("huge line", QByteArray(1 << 20, '1'), false);
        row("huge line of blanks", "0" + QByteArray(1 << 20, ' ') + "\r\n5\r\n", false);
    }

    void contents()
    {
        const auto [content, good] = fetchRow<QByteArray, bool>();
        QVERIFY(storeFile(path("a.txt"), content));
        const LUTPoints before = points(3);
        LUTPoints read = before;
        QCOMPARE(LUTTextFile::read(path("a.txt"), kPoints, kMaxValue, kPoints, &read),
                 good ? LUTTextFile::ReadResult::Read : LUTTextFile::ReadResult::BadFormat);
        QCOMPARE(read == before, !good);
        QCOMPARE(bytesOf(path("a.txt")), content);
    }

    void whatIsNoFileIsNotOpened_data()
    {
        const Rows<QString> row("name");
        row("cancelled", "");
        row("missing", "none.txt");
        row("folder", ".");
        row.of("pipe"); // opening it would wait for a writer
    }

    void whatIsNoFileIsNotOpened()
    {
        QFETCH(QString, name);
        QCOMPARE(mkfifo(qPrintable(path("pipe")), 0600), 0);
        LUTPoints read;
        QCOMPARE(LUTTextFile::read(name.isEmpty() ? name : m_directory->filePath(name), kPoints,
                                   kMaxValue, kPoints, &read),
                 LUTTextFile::ReadResult::NotOpened);
    }
};

OBFT_TEST_MAIN(TestLutTextFile)
#include "tst_luttextfile.moc"
