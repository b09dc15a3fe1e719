// SPDX-License-Identifier: Apache-2.0
#include "program/HostOptions.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

Q_DECLARE_METATYPE(ExitCode)

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
        QFile plan(file("plan.txt"));
        QVERIFY(plan.open(QIODevice::WriteOnly));
        plan.write("# slow\nlatency * 1\nvanish B\n");
        QFile steps(file("story.steps"));
        QVERIFY(steps.open(QIODevice::WriteOnly));
        steps.write("tab=1\nsettle\npicture=a.png\n");
        QFile empty(file("empty.xml"));
        QVERIFY(empty.open(QIODevice::WriteOnly));
    }

    void acceptsOptions()
    {
        HostOptions options;
        QVERIFY(parse({}, &options).run);
        QCOMPARE(options.language, 0); // English
        QCOMPARE(options.size, QSize(1280, 800));
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

    void scriptsMayStandInFiles()
    {
        HostOptions options;
        QVERIFY(
            parse({"--faults"_s, file("plan.txt"), "--do"_s, file("story.steps")}, &options).run);
        QCOMPARE(options.faults.rules.size(), std::size_t(2));
        QCOMPARE(options.steps.steps.size(), std::size_t(3));
    }

    void refuses_data()
    {
        // arguments: divided by bars; message: a part of it
        const Rows<QString, ExitCode, QString> row("arguments", "code", "message");
        row("unknown option", "--bogus", ExitCode::Usage, "bogus");
        row("no value", "--xml", ExitCode::Usage, "xml");
        row("stray word", "camera.xml", ExitCode::Usage, "camera.xml");
        row("two cameras", "--xml|a|--camera|b", ExitCode::Usage, "exclude");
        row("empty camera", "--camera|", ExitCode::Usage, "name or an address");
        row("language", "--language|fr", ExitCode::Usage, "fr");
        row("size without x", "--size|640", ExitCode::Usage, "640");
        row("size too small", "--size|99x600", ExitCode::Usage, "99x600");
        row("size too large", "--size|640x99999", ExitCode::Usage, "640x99999");
        row("timeout", "--timeout|soon", ExitCode::Usage, "soon");
        row("plan", "--faults|explode", ExitCode::Usage, "explode");
        row("steps", "--do|dance", ExitCode::Usage, "dance");
        row("missing file", "--xml|/nowhere.xml", ExitCode::NoFile, "/nowhere.xml");
        row("folder", "--xml|"_s + m_directory.path(), ExitCode::NoFile, "cannot read");
        row("empty plan", "--faults|"_s + file("empty.xml"), ExitCode::NoFile, "is empty");
        row("empty file", "--xml|"_s + file("empty.xml"), ExitCode::NoFile, "is empty");
        row("missing translations", "--translations|/nowhere.xml", ExitCode::NoFile,
            "/nowhere.xml");
        row("help", "--help", ExitCode::Ok, "--screenshot");
        row("version", "--version", ExitCode::Ok, "camera-host");
    }

    void refuses()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, message);
        HostOptions options;
        const auto outcome = parse(arguments.split(QLatin1Char('|')), &options);
        QVERIFY(!outcome.run);
        QTEST(outcome.code, "code");
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
