// SPDX-License-Identifier: Apache-2.0
#include "demo/DemoCamera.h"
#include "host/FakeGigECamera.h"
#include "program/ExitCode.h"
#include "support/ChildProcess.h"
#include "support/TestMain.h"

#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

Q_DECLARE_METATYPE(ExitCode)

// The host program end to end, as its user starts it.
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

    QTemporaryDir m_directory;

private slots:
    void drawsOffScreenWithoutADisplay()
    {
        const Run result = run({"--size"_s, "900x600"_s}, false);
        QVERIFY2(result.code == 0, qPrintable(result.output));
        QVERIFY(result.output.contains(QLatin1String("no display; drawing off screen")));
        static const QRegularExpression count("features: (\\d+) in the description"_s);
        QVERIFY(count.match(result.output).captured(1).toInt() >= 300);
        QCOMPARE(QImage(m_directory.filePath("camera-host.png"_s)).size(), QSize(900, 600));
    }

    void showsADescription_data()
    {
        const Rows<QByteArray, QString> row("xml", "expected");
        const QByteArray demo = DemoCamera::description();
        row("sound", demo, "picture: ");
        row("cut off", demo.left(5000), "does not parse");
        row("no XML", "hello", "does not parse");
    }

    void showsADescription()
    {
        QFETCH(QByteArray, xml);
        QFETCH(QString, expected);
        QFile file(m_directory.filePath("camera.xml"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(xml);
        file.close();
        const Run result = run({"--xml"_s, file.fileName(), "--screenshot"_s, "window.png"_s});
        QVERIFY2(result.code == 0, qPrintable(result.output));
        QVERIFY2(result.output.contains(expected), qPrintable(result.output));
    }

    void runsSteps()
    {
        const Run result =
            run({"--do"_s, "settle; picture=one.png; size=700x500; picture=two.png"_s});
        QVERIFY2(result.code == 0, qPrintable(result.output));
        QVERIFY(!QImage(m_directory.filePath("one.png"_s)).isNull());
        QCOMPARE(QImage(m_directory.filePath("two.png"_s)).size(), QSize(700, 500));
    }

    // The stories that the pictures of the documents come from.
    void tellsItsStories_data()
    {
        const Rows<QString> row("language");
        row.of("en");
        row.of("zh");
    }

    void tellsItsStories()
    {
        QFETCH(QString, language);
        QFile::remove(m_directory.filePath("tour.features"_s));
        const Run result = run({"--size"_s, "1000x760"_s, "--language"_s, language, "--do"_s,
                                OBFT_STORIES "/tour-%1.steps"_s.arg(language)});
        QVERIFY2(result.code == 0, qPrintable(result.output));
        QVERIFY(!QImage(m_directory.filePath("tour-applied-%1.png"_s.arg(language))).isNull());
    }

    void leavesWithAnExitCode_data()
    {
        // arguments: divided by bars
        const Rows<QString, ExitCode> row("arguments", "code");
        row("version", "--version", ExitCode::Ok);
        row("wrong option", "--bogus", ExitCode::Usage);
        row("no such file", "--xml|/nowhere.xml", ExitCode::NoFile);
        row("no such camera", "--camera|no-such-camera", ExitCode::NoCamera);
        row("step that fails", "--do|press=NoSuchButton", ExitCode::Failed);
        row("picture into nowhere", "--screenshot|/nowhere/a.png", ExitCode::Failed);
        row("first read too slow", "--faults|latency * 400|--timeout|1|--screenshot|slow.png",
            ExitCode::Failed);
    }

    void leavesWithAnExitCode()
    {
        QFETCH(QString, arguments);
        QFETCH(ExitCode, code);
        const Run result = run(arguments.split(QLatin1Char('|')));
        QVERIFY2(result.code == int(code), qPrintable(result.output));
        QVERIFY(!result.output.isEmpty());
    }

    void survivesFaults_data()
    {
        const Rows<QString> row("plan");
        for (const char* plan : {"error * 0x80000001 always", "mode * 9",
                                 "text * unterminated; range * min=10 max=1 inc=0; entries * "
                                 "4000000000; long-name *; long-text *",
                                 "range * value=nan min=nan max=nan inc=-5; vanish * after 400",
                                 "disconnect after 300"})
            row.of(plan);
    }

    void survivesFaults()
    {
        QFETCH(QString, plan);
        const Run result = run({"--faults"_s, plan, "--screenshot"_s, "faults.png"_s});
        QVERIFY2(result.code == 0, qPrintable(result.output));
        const bool lost = plan.startsWith(QLatin1String("disconnect"));
        QCOMPARE(result.output.contains(QLatin1String("the camera is back")), lost);
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
