// SPDX-License-Identifier: Apache-2.0
// The Chinese interface: complete, made from the texts of the sources as they are now.
#include "support/ChildProcess.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTranslator>

namespace {

struct Message
{
    QString context;
    QString source;
    QString translation;
    bool unfinished = false;
};

QString sourceDir()
{
    return QStringLiteral(OBFT_SOURCE_DIR);
}

QVector<Message> messagesOf(const QString& path)
{
    QVector<Message> messages;
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        return messages;
    const QDomNodeList contexts = document.elementsByTagName("context"_s);
    for (int i = 0; i < contexts.size(); ++i) {
        const QDomElement context = contexts.at(i).toElement();
        for (QDomElement e = context.firstChildElement("message"_s); !e.isNull();
             e = e.nextSiblingElement("message"_s)) {
            const QDomElement text = e.firstChildElement("translation"_s);
            messages.append({context.firstChildElement("name"_s).text(),
                             e.firstChildElement("source"_s).text(), text.text(),
                             text.hasAttribute("type"_s)});
        }
    }
    return messages;
}

QSet<QString> keysOf(const QVector<Message>& messages)
{
    QSet<QString> keys;
    for (const Message& message : messages)
        keys.insert(message.context + ": "_s + message.source);
    return keys;
}

QString translationFile()
{
    return sourceDir() + "/src/resources/translations/FeatureTree_zh_CN.ts"_s;
}

} // namespace

class TestTranslation : public GuardedTest
{
    Q_OBJECT

private slots:
    void everyEntryIsFinishedAndCompiled()
    {
        QTranslator compiled;
        QVERIFY(compiled.load(QCoreApplication::applicationDirPath() +
                              "/FeatureTreeResource/FeatureTree_zh_CN.qm"_s));
        const QVector<Message> messages = messagesOf(translationFile());
        QVERIFY(!messages.isEmpty());
        for (const Message& message : messages) {
            QVERIFY2(!message.unfinished && !message.translation.trimmed().isEmpty(),
                     qPrintable(message.source));
            bool hasHan = false;
            for (const QChar& letter : message.translation)
                hasHan = hasHan || letter.script() == QChar::Script_Han;
            QVERIFY2(hasHan, qPrintable(message.source));
            QCOMPARE(message.translation.count(QLatin1Char('%')),
                     message.source.count(QLatin1Char('%')));
            QCOMPARE(compiled.translate(message.context.toUtf8().constData(),
                                        message.source.toUtf8().constData()),
                     message.translation);
        }
    }

    void everyTextOfTheSourcesIsThere()
    {
        QTemporaryDir directory;
        const QString fresh = directory.filePath("fresh.ts"_s);
        ChildProcess lupdate;
        lupdate.setWorkingDirectory(sourceDir());
        lupdate.start(QStringLiteral(OBFT_LUPDATE),
                      {"-silent"_s, "-no-obsolete"_s, "src"_s, "platform"_s, "-ts"_s, fresh});
        QVERIFY(lupdate.waitForFinished(60000));
        QVERIFY2(lupdate.exitCode() == 0, lupdate.readAllStandardError().constData());
        const QSet<QString> inSources = keysOf(messagesOf(fresh));
        const QSet<QString> translated = keysOf(messagesOf(translationFile()));
        QVERIFY(!inSources.isEmpty());
        QCOMPARE((inSources - translated).values(), QStringList());
        QCOMPARE((translated - inSources).values(), QStringList());
    }
};

OBFT_TEST_MAIN(TestTranslation)
#include "tst_translation.moc"
