// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoCamera.h"
#include "host/FakeGigECamera.h"
#include "program/HostOptions.h"
#include "support/ChildProcess.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

Q_DECLARE_METATYPE(ExitCode)

// The host program: its options, and end to end as its user starts it.
class TestCameraHost : public GuardedTest
{
    Q_OBJECT

private:
    struct Run
    {
        int code;
        QString output; // both channels
    };
    Run run(const QStringList& arguments, bool display = true)
    {
        ChildProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("DISPLAY"_s);
        environment.remove("WAYLAND_DISPLAY"_s);
        if (display)
            environment.insert("QT_QPA_PLATFORM"_s, "offscreen"_s);
        else
            environment.remove("QT_QPA_PLATFORM"_s);
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(m_directory.path());
        program.setProcessChannelMode(QProcess::MergedChannels);
        // A program for another processor is started as these tests are, by the emulator.
        QStringList command{QStringLiteral(OBFT_EMULATOR), QStringLiteral(OBFT_CAMERA_HOST)};
        command.removeAll(QString());
        command += arguments;
        program.start(command.takeFirst(), command);
        if (!program.waitForFinished(90000)) {
            program.kill();
            program.waitForFinished();
            return {-1, "did not end"_s};
        }
        const bool crashed = program.exitStatus() == QProcess::CrashExit;
        return {crashed ? -2 : program.exitCode(), QString::fromUtf8(program.readAll())};
    }

    static HostOptions::Outcome parse(const QStringList& arguments, HostOptions* options)
    {
        return HostOptions::parse(QStringList("camera-host"_s) + arguments, options);
    }
    QString file(const char* name) const { return m_directory.filePath(QLatin1String(name)); }

    QTemporaryDir m_directory;

private slots:
    void initTestCase()
    {
        const QByteArray demo = DemoCamera::description();
        QVERIFY(storeFile(file("sound.xml"), demo));
        QVERIFY(storeFile(file("cut-off.xml"), demo.left(5000)));
        QVERIFY(storeFile(file("no-xml.xml"), "hello"));
        QVERIFY(storeFile(file("camera.xml"), "<RegisterDescription/>"));
        QVERIFY(storeFile(file("plan.txt"), "# slow\nlatency * 1\nvanish B\n"));
        QVERIFY(storeFile(file("story.steps"), "tab=1\nsettle\nwait=5\n"));
        QVERIFY(storeFile(file("empty.xml"), ""));
    }

    // Plans and steps may stand in files.
    void acceptsOptions()
    {
        HostOptions options;
        QVERIFY(parse({}, &options).run);
        QCOMPARE(options.language, 0); // English
        QCOMPARE(options.size, QSize(1280, 800));
        const auto outcome = parse(
            {"--xml"_s, file("camera.xml"), "--translations"_s, file("camera.xml"), "--language"_s,
             "zh"_s, "--size"_s, "640x480"_s, "--screenshot"_s, "a.png"_s, "--faults"_s,
             file("plan.txt"), "--do"_s, file("story.steps"), "--timeout"_s, "5"_s, "--verbose"_s},
            &options);
        QVERIFY2(outcome.run, qPrintable(outcome.message));
        QCOMPARE(options.description, QByteArray("<RegisterDescription/>"));
        QCOMPARE(options.translations, QByteArray("<RegisterDescription/>"));
        QCOMPARE(options.language, 1);
        QCOMPARE(options.size, QSize(640, 480));
        QCOMPARE(options.picture, "a.png"_s);
        QCOMPARE(options.faults.rules.size(), std::size_t(2));
        QCOMPARE(options.steps.steps.size(), std::size_t(3));
        QCOMPARE(options.timeoutSeconds, 5);
        QVERIFY(options.verbose);
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
        const auto [arguments, code, message] = fetchRow<QString, ExitCode, QString>();
        HostOptions options;
        const auto outcome = parse(arguments.split(QLatin1Char('|')), &options);
        QVERIFY(!outcome.run);
        QCOMPARE(outcome.code, code);
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

    void drawsOffScreenWithoutADisplay()
    {
        const Run result = run({"--size"_s, "900x600"_s}, false);
        QVERIFY2(result.code == 0, qPrintable(result.output));
        QVERIFY(result.output.contains(QLatin1String("no display; drawing off screen")));
        static const QRegularExpression count("features: (\\d+) in the description"_s);
        QVERIFY(count.match(result.output).captured(1).toInt() >= 300);
        QCOMPARE(QImage(file("camera-host.png")).size(), QSize(900, 600));
    }

    void runs_data()
    {
        // arguments: divided by bars; said, picture: part of the output and a file, if not empty
        const Rows<QString, ExitCode, QString, QString> row("arguments", "code", "said", "picture");
        const auto shows = [&row](const char* file, const char* said) {
            row(file, "--xml|%1.xml|--screenshot|window.png"_s.arg(QLatin1String(file)),
                ExitCode::Ok, said, "");
        };
        shows("sound", "picture: ");
        shows("cut-off", "does not parse");
        shows("no-xml", "does not parse");
        row("steps", "--do|settle; picture=one.png; size=700x500; picture=two.png", ExitCode::Ok,
            "", "two.png 700x500");
        // The stories that the pictures of the documents come from.
        for (const char* language : {"en", "zh"})
            row(language,
                "--size|1000x760|--language|%1|--do|%2/tour-%1.steps"_s.arg(
                    QLatin1String(language), QStringLiteral(OBFT_STORIES)),
                ExitCode::Ok, "", "tour-applied-%1.png 1000x760"_s.arg(QLatin1String(language)));
        row("wrong option", "--bogus", ExitCode::Usage, "bogus", "");
        row("no such camera", "--camera|no-such-camera", ExitCode::NoCamera, "no-such-camera", "");
        row("step that fails", "--do|press=NoSuchButton", ExitCode::Failed, "NoSuchButton", "");
        row("picture into nowhere", "--screenshot|/nowhere/a.png", ExitCode::Failed, "nowhere", "");
        row("first read too slow", "--faults|latency * 400|--timeout|1|--screenshot|slow.png",
            ExitCode::Failed, "", "");
        for (const char* plan :
             {"error * 0x80000001 always", "mode * 9",
              "text * unterminated; range * min=10 max=1 inc=0; entries * 4000000000; "
              "long-name *; long-text *",
              "range * value=nan min=nan max=nan inc=-5; vanish * after 400"})
            row(plan, "--screenshot|faults.png|--faults|"_s + QLatin1String(plan), ExitCode::Ok, "",
                "faults.png 1280x800");
        row("disconnect", "--screenshot|faults.png|--faults|disconnect after 300", ExitCode::Ok,
            "the camera is back", "faults.png 1280x800");
    }

    void runs()
    {
        const auto [arguments, code, said, picture] =
            fetchRow<QString, ExitCode, QString, QString>();
        QFile::remove(file("tour.features"));
        QFile::remove(file("faults.png"));
        const Run result = run(arguments.split(QLatin1Char('|')));
        QVERIFY2(result.code == int(code), qPrintable(result.output));
        QVERIFY(!result.output.isEmpty());
        QVERIFY2(result.output.contains(said), qPrintable(result.output));
        const QSize size =
            QImage(m_directory.filePath(picture.section(QLatin1Char(' '), 0, 0))).size();
        if (!picture.isEmpty())
            QCOMPARE("%1x%2"_s.arg(size.width()).arg(size.height()),
                     picture.section(QLatin1Char(' '), 1));
    }

    void showsARealCamera()
    {
        const QString skip = FakeGigECamera::reasonToSkip();
        if (!skip.isEmpty())
            QSKIP(qPrintable(skip));
        FakeGigECamera camera;
        QVERIFY(camera.start());
        const Run list = run({"--list"_s});
        QVERIFY2(list.output.contains(camera.serial()), qPrintable(list.output));
        const Run result = run({"--camera"_s, camera.serial(), "--screenshot"_s, "real.png"_s});
        QVERIFY2(result.code == 0, qPrintable(result.output));
        QVERIFY2(result.output.contains(QLatin1String("camera: Fake")), qPrintable(result.output));
    }
};

OBFT_TEST_MAIN(TestCameraHost)
#include "tst_camerahost.moc"
