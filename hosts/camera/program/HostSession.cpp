// SPDX-License-Identifier: Apache-2.0
#include "program/HostSession.h"

#include "cameras/Camera.h"
#include "cameras/CameraError.h"
#include "description/DescriptionNodes.h"
#include "description/DescriptionText.h"
#include "steps/StepRunner.h"
#include "steps/WindowPicture.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <QApplication>
#include <QTextStream>

#include <algorithm>
#include <chrono>
#include <cstring>

namespace {

constexpr int kTickMs = 100;
constexpr std::chrono::milliseconds kQuiet{500}; // without a new question: the first read is over
constexpr int kWindowX = 60;
constexpr int kWindowY = 60;

_OB_FT_DEVICEINFO_ deviceInfo(const DeviceRecord& record)
{
    _OB_FT_DEVICEINFO_ info{};
    info.deviceType = record.type;
    const QByteArray name = QString::fromStdString(record.name).toLocal8Bit();
    std::memcpy(
        info.deviceName, name.constData(),
        std::min<std::size_t>(static_cast<std::size_t>(name.size()), sizeof info.deviceName - 1));
    return info;
}

void say(const QString& line)
{
    QTextStream(stdout) << line << '\n';
}

void complain(const QString& line)
{
    QTextStream(stderr) << "camera-host: " << line << '\n';
}

} // namespace

HostSession::HostSession(Camera& camera, const HostOptions& options, bool unattended)
    : m_camera(camera)
    , m_options(options)
    , m_unattended(unattended)
    , m_callbacks(camera)
{
    m_callbacks.setActionHandler([this](int action) { onAction(action); });
    connect(&m_tick, &QTimer::timeout, this, &HostSession::onTick);
}

HostSession::~HostSession()
{
    if (m_reconnecting.valid())
        m_reconnecting.wait();
    if (!m_windowOpen)
        return;
    m_reopening = true; // closing hides the window; that is no news
    OB_FT_Close();
    OB_FT_Release();
}

void HostSession::start()
{
    m_sinceStart.start();
    openWindow();
    if (m_options.stepsAtOnce) {
        m_firstReadMs = 0; // nobody waits for it
        runSteps();
    }
    m_tick.start(kTickMs);
}

void HostSession::openWindow()
{
    std::string translations = DescriptionText::toUtf8(m_options.translations);
    OB_FT_Init(m_camera.descriptionXml().c_str(),
               m_options.translations.isEmpty() ? nullptr : translations.data(), nullptr);
    _OB_FT_DEVICEINFO_ info = deviceInfo(m_camera.deviceRecord());
    OB_FT_SetDeviceInfo(&info);
    OB_FT_SetCallBackFunc(HostCallbacks::getFeature, HostCallbacks::setFeature,
                          HostCallbacks::getMode, HostCallbacks::invalidate, HostCallbacks::action,
                          &m_callbacks);
    OB_FT_SetWidgetSize(m_options.size.width(), m_options.size.height());
    OB_FT_SetWidgetPosition(kWindowX, kWindowY);
    OB_FT_Start(nullptr, m_options.language);
    m_windowOpen = true;
}

void HostSession::onAction(int action)
{
    if (action != OB_FT_ACTION_WINDOW_HIDDEN || m_reopening)
        return;
    // The window is in the middle of its own event: leave when it has returned.
    QTimer::singleShot(0, this, [this] { finish(QString()); });
}

void HostSession::onTick()
{
    watchConnection();
    watchFirstRead();
}

void HostSession::watchConnection()
{
    if (m_reconnecting.valid()) {
        if (m_reconnecting.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
            m_cameraIsBack = m_reconnecting.get() == CameraError::Ok;
    } else if (!m_camera.isConnected()) {
        // A search for the camera takes its time; the window stays alive meanwhile.
        m_reconnecting = std::async(std::launch::async, [this] { return m_camera.reconnect(); });
    }
    // A dialog or menu runs an event loop inside the window's code: the window must stay till then.
    if (!m_cameraIsBack || QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return;
    m_cameraIsBack = false;
    complain(QStringLiteral("the camera is back"));
    m_reopening = true;
    OB_FT_Close();
    OB_FT_Release();
    openWindow();
    m_reopening = false;
}

void HostSession::watchFirstRead()
{
    if (m_firstReadMs >= 0)
        return;
    const auto quiet = m_callbacks.calls().timeSinceNews();
    const bool late = m_sinceStart.elapsed() > m_options.timeoutSeconds * 1000LL;
    // A description without features asks for nothing.
    const bool nothing = m_callbacks.calls().names() == 0 && m_sinceStart.elapsed() > 2000;
    if (quiet < kQuiet && !late && !nothing)
        return;
    m_firstReadMs = m_sinceStart.elapsed() - quiet.count();
    if (!m_unattended)
        return;
    if (late) {
        report();
        finish(
            QStringLiteral("the first read did not end within %1 s").arg(m_options.timeoutSeconds));
        return;
    }
    runSteps();
}

void HostSession::runSteps()
{
    m_steps = std::make_unique<StepRunner>(
        m_options.steps, [this] { return m_callbacks.calls().timeSinceNews() >= kQuiet; });
    connect(m_steps.get(), &StepRunner::finished, this, [this](const QString& error) {
        report();
        finish(error);
    });
    m_steps->start();
}

void HostSession::finish(const QString& error)
{
    QString wrong = error;
    if (!m_options.picture.isEmpty() && m_unattended && m_windowOpen) {
        QString pictureError;
        if (WindowPicture::save(m_options.picture, &pictureError))
            say(QStringLiteral("picture: %1").arg(m_options.picture));
        else if (wrong.isEmpty())
            wrong = pictureError;
    }
    if (!wrong.isEmpty())
        complain(wrong);
    m_tick.stop();
    QCoreApplication::exit(static_cast<int>(wrong.isEmpty() ? ExitCode::Ok : ExitCode::Failed));
}

void HostSession::report() const
{
    const DescriptionNodes nodes(m_camera.descriptionXml());
    const CallCounter& calls = m_callbacks.calls();
    say(QStringLiteral("camera: %1").arg(QString::fromStdString(m_camera.deviceRecord().name)));
    if (!nodes.isValid())
        say(QStringLiteral("description: does not parse"));
    say(QStringLiteral("features: %1 in the description, %2 nodes asked for")
            .arg(nodes.reachableFeatures().size())
            .arg(calls.names()));
    say(QStringLiteral("calls: %1 reads, %2 access modes, %3 writes, %4 answered with an error")
            .arg(calls.count(CallCounter::Read))
            .arg(calls.count(CallCounter::Mode))
            .arg(calls.count(CallCounter::Write))
            .arg(calls.errors()));
    if (!m_options.stepsAtOnce)
        say(QStringLiteral("first read: %1 ms").arg(m_firstReadMs));
    if (!m_options.verbose)
        return;
    for (const CallCounter::Refusal& refusal : calls.refusals())
        say(QStringLiteral("error: %1: %2 (%3)")
                .arg(QString::fromStdString(refusal.name),
                     QLatin1String(CameraError::text(refusal.code)),
                     QString::number(static_cast<unsigned>(refusal.code), 16)));
}
