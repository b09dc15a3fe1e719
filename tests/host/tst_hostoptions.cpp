// SPDX-License-Identifier: Apache-2.0
#include "HostOptions.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

class TestHostOptions : public GuardedTest
{
    Q_OBJECT

private:
    static HostOptions::Outcome parse(const QStringList& arguments, HostOptions* options)
    {
        return HostOptions::parse(QStringList("camera-host"_s) + arguments, options);
    }
    QString file(const char* name) const { return m_directory.filePath(QLatin1String(name)); }

    QTemporaryDir m_directory;

private slots:
    void initTestCase()
    {
        QFile xml(file("camera.xml"));
        QVERIFY(xml.open(QIODevice::WriteOnly));
        xml.write("<RegisterDescription/>");
        QFile empty(file("empty.xml"));
        QVERIFY(empty.open(QIODevice::WriteOnly));
    }

    void acceptsOptions()
    {
        HostOptions options;
        const auto outcome = parse(
            {"--xml"_s, file("camera.xml"), "--translations"_s, file("camera.xml"), "--language"_s,
             "zh"_s, "--size"_s, "640x480"_s, "--screenshot"_s, "a.png"_s, "--faults"_s,
             "latency * 5"_s, "--do"_s, "tab=1"_s, "--timeout"_s, "5"_s, "--verbose"_s},
            &options);
        QVERIFY2(outcome.run, qPrintable(outcome.message));
        QCOMPARE(options.description, QByteArray("<RegisterDescription/>"));
        QCOMPARE(options.translations, QByteArray("<RegisterDescription/>"));
        QCOMPARE(options.language, 1);
        QCOMPARE(options.size, QSize(640, 480));
        QCOMPARE(options.picture, "a.png"_s);
        QCOMPARE(options.faults.rules.size(), std::size_t(1));
        QCOMPARE(options.steps.steps.size(), std::size_t(1));
        QCOMPARE(options.timeoutSeconds, 5);
        QVERIFY(options.verbose);
    }

    void hasDefaults()
    {
        HostOptions options;
        QVERIFY(parse({}, &options).run);
        QVERIFY(options.description.isEmpty() && options.camera.isEmpty() &&
                options.picture.isEmpty());
        QVERIFY(options.faults.rules.empty() && options.steps.steps.empty());
        QCOMPARE(options.language, 0); // English
        QCOMPARE(options.size, QSize(1280, 800));
    }

    void refuses_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message"); // a part of it
        const auto row = [](const char* name, const QString& arguments, ExitCode code,
                            const char* message) {
            QTest::newRow(name) << arguments.split(QLatin1Char('|')) << int(code)
                                << QString::fromLatin1(message);
        };
        const auto s = [](const char* text) { return QString::fromLatin1(text); };
        row("unknown option", s("--bogus"), ExitCode::Usage, "bogus");
        row("no value", s("--xml"), ExitCode::Usage, "xml");
        row("stray word", s("camera.xml"), ExitCode::Usage, "camera.xml");
        row("two cameras", s("--xml|a|--camera|b"), ExitCode::Usage, "exclude");
        row("empty camera", s("--camera|"), ExitCode::Usage, "name or an address");
        row("language", s("--language|fr"), ExitCode::Usage, "fr");
        row("size without x", s("--size|640"), ExitCode::Usage, "640");
        row("size too small", s("--size|99x600"), ExitCode::Usage, "99x600");
        row("size too large", s("--size|640x99999"), ExitCode::Usage, "640x99999");
        row("timeout", s("--timeout|soon"), ExitCode::Usage, "soon");
        row("plan", s("--faults|explode"), ExitCode::Usage, "explode");
        row("steps", s("--do|dance"), ExitCode::Usage, "dance");
        row("missing file", s("--xml|/nowhere.xml"), ExitCode::NoFile, "/nowhere.xml");
        row("folder", s("--xml|") + m_directory.path(), ExitCode::NoFile, "cannot read");
        row("empty file", s("--xml|") + file("empty.xml"), ExitCode::NoFile, "is empty");
        row("missing translations", s("--translations|/nowhere.xml"), ExitCode::NoFile,
            "/nowhere.xml");
        row("help", s("--help"), ExitCode::Ok, "--screenshot");
        row("version", s("--version"), ExitCode::Ok, "camera-host");
    }

    void refuses()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, message);
        HostOptions options;
        const auto outcome = parse(arguments, &options);
        QVERIFY(!outcome.run);
        QTEST(int(outcome.code), "code");
        QVERIFY2(outcome.message.contains(message), qPrintable(outcome.message));
    }

    void readsSteps()
    {
        QString error;
        const auto script = StepScript::parse(
            " tab = 2 ; select=Gain Auto\nset=Width:640 # narrow; and more\nsettle;;"
            "wait=250; picture=a=b.png"_s,
            &error);
        QVERIFY2(script, qPrintable(error));
        QStringList read;
        for (const StepScript::Step& step : script->steps)
            read << step.verb + QLatin1Char('|') + step.argument;
        QCOMPARE(read.join(QLatin1Char(' ')),
                 "tab|2 select|Gain Auto set|Width:640 settle| wait|250 picture|a=b.png"_s);
    }

    void refusesSteps_data()
    {
        const Rows<QString> row("text");
        for (const char* text : {"jump", "tab", "tab=", "wait=soon", "wait=-1", "size=3x4",
                                 "set=Width", "settle=now", "select=A; =B"})
            row.of(text);
    }

    void refusesSteps()
    {
        QFETCH(QString, text);
        QString error;
        QVERIFY(!StepScript::parse(text, &error));
        QVERIFY(error.contains(QLatin1String("is not understood")));
    }
};

OBFT_TEST_MAIN(TestHostOptions)
#include "tst_hostoptions.moc"
