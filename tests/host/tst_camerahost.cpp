// SPDX-License-Identifier: Apache-2.0
#include "DemoCamera.h"
#include "ExitCode.h"
#include "FakeGigECamera.h"
#include "support/TestMain.h"

#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

// The host program end to end, as its user starts it.
class TestCameraHost : public GuardedTest
{
    Q_OBJECT
private slots:
    void drawsOffScreenWithoutADisplay();
    void showsADescription_data();
    void showsADescription();
    void runsSteps();
    void leavesWithAnExitCode_data();
    void leavesWithAnExitCode();
    void survivesFaults_data();
    void survivesFaults();
    void showsARealCamera();

private:
    struct Run
    {
        int code;
        QString output; // both channels
    };
    Run run(const QStringList& arguments, bool display = true);

    QTemporaryDir m_directory;
};

TestCameraHost::Run TestCameraHost::run(const QStringList& arguments, bool display)
{
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    if (display)
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    else
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    program.setProcessEnvironment(environment);
    program.setWorkingDirectory(m_directory.path());
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QStringLiteral(OBFT_CAMERA_HOST), arguments);
    if (!program.waitForFinished(90000)) {
        program.kill();
        program.waitForFinished();
        return {-1, QStringLiteral("did not end")};
    }
    const bool crashed = program.exitStatus() == QProcess::CrashExit;
    return {crashed ? -2 : program.exitCode(), QString::fromUtf8(program.readAll())};
}

void TestCameraHost::drawsOffScreenWithoutADisplay()
{
    const Run result = run({QStringLiteral("--size"), QStringLiteral("900x600")}, false);
    QVERIFY2(result.code == 0, qPrintable(result.output));
    QVERIFY(result.output.contains(QLatin1String("no display; drawing off screen")));
    static const QRegularExpression count(QStringLiteral("features: (\\d+) in the description"));
    QVERIFY(count.match(result.output).captured(1).toInt() >= 300);
    QCOMPARE(QImage(m_directory.filePath(QStringLiteral("camera-host.png"))).size(),
             QSize(900, 600));
}

void TestCameraHost::showsADescription_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("expected");
    const QByteArray demo = DemoCamera::description();
    QTest::newRow("sound") << demo << QStringLiteral("picture: ");
    QTest::newRow("cut off") << demo.left(5000) << QStringLiteral("does not parse");
    QTest::newRow("no XML") << QByteArray("hello") << QStringLiteral("does not parse");
}

void TestCameraHost::showsADescription()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, expected);
    QFile file(m_directory.filePath(QStringLiteral("camera.xml")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(xml);
    file.close();
    const Run result = run({QStringLiteral("--xml"), file.fileName(),
                            QStringLiteral("--screenshot"), QStringLiteral("window.png")});
    QVERIFY2(result.code == 0, qPrintable(result.output));
    QVERIFY2(result.output.contains(expected), qPrintable(result.output));
}

void TestCameraHost::runsSteps()
{
    const Run result =
        run({QStringLiteral("--do"),
             QStringLiteral("settle; picture=one.png; size=700x500; picture=two.png")});
    QVERIFY2(result.code == 0, qPrintable(result.output));
    QVERIFY(!QImage(m_directory.filePath(QStringLiteral("one.png"))).isNull());
    QCOMPARE(QImage(m_directory.filePath(QStringLiteral("two.png"))).size(), QSize(700, 500));
}

void TestCameraHost::leavesWithAnExitCode_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    const auto row = [](const char* name, const char* arguments, ExitCode code) {
        QTest::newRow(name) << QString::fromLatin1(arguments).split(QLatin1Char('|')) << int(code);
    };
    row("version", "--version", ExitCode::Ok);
    row("wrong option", "--bogus", ExitCode::Usage);
    row("no such file", "--xml|/nowhere.xml", ExitCode::NoFile);
    row("no such camera", "--camera|no-such-camera", ExitCode::NoCamera);
    row("step that fails", "--do|press=NoSuchButton", ExitCode::Failed);
    row("picture into nowhere", "--screenshot|/nowhere/a.png", ExitCode::Failed);
    row("first read too slow", "--faults|latency * 400|--timeout|1|--screenshot|slow.png",
        ExitCode::Failed);
}

void TestCameraHost::leavesWithAnExitCode()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    const Run result = run(arguments);
    QVERIFY2(result.code == code, qPrintable(result.output));
    QVERIFY(!result.output.isEmpty());
}

void TestCameraHost::survivesFaults_data()
{
    QTest::addColumn<QString>("plan");
    for (const char* plan :
         {"error * 0x80000001 always", "mode * 9",
          "text * unterminated; range * min=10 max=1 inc=0; entries * 4000000000; long-name *; "
          "long-text *",
          "range * value=nan min=nan max=nan inc=-5; vanish * after 400", "disconnect after 300"})
        QTest::newRow(plan) << QString::fromLatin1(plan);
}

void TestCameraHost::survivesFaults()
{
    QFETCH(QString, plan);
    const Run result = run({QStringLiteral("--faults"), plan, QStringLiteral("--screenshot"),
                            QStringLiteral("faults.png")});
    QVERIFY2(result.code == 0, qPrintable(result.output));
    const bool lost = plan.startsWith(QLatin1String("disconnect"));
    QCOMPARE(result.output.contains(QLatin1String("the camera is back")), lost);
}

void TestCameraHost::showsARealCamera()
{
    const QString skip = FakeGigECamera::reasonToSkip();
    if (!skip.isEmpty())
        QSKIP(qPrintable(skip));
    FakeGigECamera camera;
    QVERIFY(camera.start());
    const Run list = run({QStringLiteral("--list")});
    QVERIFY2(list.output.contains(camera.serial()), qPrintable(list.output));
    const Run result = run({QStringLiteral("--camera"), camera.serial(),
                            QStringLiteral("--screenshot"), QStringLiteral("real.png")});
    QVERIFY2(result.code == 0, qPrintable(result.output));
    QVERIFY2(result.output.contains(QLatin1String("camera: Fake")), qPrintable(result.output));
}

OBFT_TEST_MAIN(TestCameraHost)
#include "tst_camerahost.moc"
