// SPDX-License-Identifier: Apache-2.0
#include "device/FavoritesFile.h"
#include "support/FileSizeLimit.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFileInfo>

class TestFavoritesFile : public GuardedTest
{
    Q_OBJECT

protected:
    void prepare() override { QFile::remove(FavoritesFile::path()); }
    void finish() override { QFile::remove(FavoritesFile::path()); }

private slots:
    void missingFileMakesItsFolder()
    {
        const QString folder = QFileInfo(FavoritesFile::path()).path();
        QDir(folder).removeRecursively();
        MessageGuard::ignoreMessage(QtInfoMsg, "loadFavoritesXml failed.111");
        QVERIFY(FavoritesFile::load().isEmpty());
        QVERIFY(QFileInfo(folder).isDir());
    }

    void orderAndDuplicatesSurvive()
    {
        const QList<FavoriteFeature> favorites = {
            {"Width"_s, "\u5bbd\u5ea6"_s}, {"Gain"_s, "Gain Raw"_s}, {"Width"_s, "\u5bbd\u5ea6"_s}};
        QVERIFY(storeFile(FavoritesFile::path(), "old"));
        FavoritesFile::save(favorites);
        const QByteArray width =
            "<Feature><Name>Width</Name><DisplayName>\u5bbd\u5ea6</DisplayName></Feature>";
        QCOMPARE(bytesOf(FavoritesFile::path()),
                 "<?xml version=\"1.0\" encoding=\"GB2312\"?>\r\n<Favorites>" + width +
                     "<Feature><Name>Gain</Name><DisplayName>Gain Raw</DisplayName></Feature>" +
                     width + "</Favorites>");
        QCOMPARE(FavoritesFile::load(), favorites);
    }

    void fullDiskKeepsTheFileBefore()
    {
        QVERIFY(storeFile(FavoritesFile::path(), "old"));
        {
            const FileSizeLimit full(16);
            FavoritesFile::save({{"Gain"_s, "Gain Raw"_s}});
        }
        QCOMPARE(bytesOf(FavoritesFile::path()), QByteArray("old"));
    }

    void loading_data()
    {
        const Rows<QByteArray, QByteArray, int> row("bytes", "logged", "count");
        row("any tags",
            "<r><x><DisplayName>b</DisplayName><o/><Name>a</Name>"
            "</x></r>",
            "", 1);
        row("empty display name skipped", "<r><f><Name>a</Name><DisplayName/></f></r>", "", 0);
        row("no XML", "favourites", "loadFavoritesXml failed.333", 0);
        row("document type", "<!DOCTYPE r><r><f><Name>a</Name><DisplayName>b</DisplayName></f></r>",
            "loadFavoritesXml failed.333", 0);
        row("100,000 levels",
            QByteArray("<a>").repeated(100000) + QByteArray("</a>").repeated(100000),
            "loadFavoritesXml failed.333", 0);
    }

    void loading()
    {
        const auto [bytes, logged] = fetchRow<QByteArray, QByteArray>();
        QVERIFY(storeFile(FavoritesFile::path(), bytes));
        if (!logged.isEmpty())
            MessageGuard::ignoreMessage(QtCriticalMsg, logged.constData());
        QTEST(int(FavoritesFile::load().size()), "count");
    }

    void unescapedNamesMakeTheFileUnreadable()
    {
        QVERIFY(storeFile(FavoritesFile::path(), "old"));
        FavoritesFile::save({{"A&B"_s, "both"_s}});
        MessageGuard::ignoreMessage(QtCriticalMsg, "loadFavoritesXml failed.333");
        QVERIFY(FavoritesFile::load().isEmpty());
    }
};

OBFT_TEST_MAIN(TestFavoritesFile)
#include "tst_favoritesfile.moc"
