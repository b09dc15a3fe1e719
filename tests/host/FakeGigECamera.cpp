// SPDX-License-Identifier: Apache-2.0
#include "host/FakeGigECamera.h"

#include "cameras/RealCamera.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QStandardPaths>

namespace {

constexpr int kStartMs = 15000;
constexpr int kLockMs = 90000;

QString cameraProgram()
{
    return QStandardPaths::findExecutable(QStringLiteral("arv-fake-gv-camera-0.8"));
}

QString toolProgram()
{
    return QStandardPaths::findExecutable(QStringLiteral("arv-tool-0.8"));
}

} // namespace

FakeGigECamera::FakeGigECamera(const QString& descriptionFile)
    : m_lock(QDir(QDir::tempPath()).filePath(QStringLiteral("gige-loopback.lock")))
    , m_serial(QStringLiteral("T%1").arg(QCoreApplication::applicationPid()))
    , m_descriptionFile(descriptionFile)
{
    m_lock.setStaleLockTime(0); // held for as long as the process lives
}

FakeGigECamera::~FakeGigECamera()
{
    kill();
}

QString FakeGigECamera::reasonToSkip()
{
    if (cameraProgram().isEmpty())
        return QStringLiteral("arv-fake-gv-camera-0.8 is not installed (package aravis-tools)");
    if (toolProgram().isEmpty())
        return QStringLiteral("arv-tool-0.8 is not installed (package aravis-tools-cli)");
    return QString();
}

bool FakeGigECamera::start()
{
    if (!m_lock.isLocked() && !m_lock.tryLock(kLockMs))
        return false;
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    QStringList arguments = {QStringLiteral("-i"), address(), QStringLiteral("-s"), m_serial};
    if (!m_descriptionFile.isEmpty())
        arguments << QStringLiteral("-g") << m_descriptionFile;
    m_process.start(cameraProgram(), arguments);
    if (!m_process.waitForStarted())
        return false;
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < kStartMs && m_process.state() == QProcess::Running) {
        if (!readIndependently(QStringLiteral("Width")).isEmpty())
            return true;
    }
    return false;
}

std::unique_ptr<Camera> FakeGigECamera::open()
{
    std::string error = "does not answer";
    std::unique_ptr<Camera> camera;
    if (start())
        camera = RealCamera::open(address().toStdString(), &error);
    if (!camera)
        qWarning("fake camera: %s", error.c_str());
    return camera;
}

void FakeGigECamera::kill()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

QString FakeGigECamera::readIndependently(const QString& feature)
{
    ChildProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(toolProgram(),
               {QStringLiteral("-a"), address(), QStringLiteral("control"), feature});
    if (!tool.waitForFinished())
        return QString();
    // "Width = 512 min:1 max:2048"
    static const QRegularExpression form(QStringLiteral("^(\\w+) = (\\S+)"));
    const auto match = form.match(QString::fromUtf8(tool.readAll()));
    return match.captured(1) == feature ? match.captured(2) : QString();
}
