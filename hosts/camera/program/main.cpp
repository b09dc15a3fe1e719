// SPDX-License-Identifier: Apache-2.0
// camera-host: opens a camera and shows its features.
#include "cameras/RealCamera.h"
#include "cameras/SimulatedCamera.h"
#include "demo/DemoCamera.h"
#include "faults/FaultyCamera.h"
#include "program/HostOptions.h"
#include "program/HostSession.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include <memory>

namespace {

int leave(ExitCode code)
{
    return static_cast<int>(code);
}

void complain(const QString& line)
{
    QTextStream(stderr) << "camera-host: " << line << '\n';
}

QStringList argumentList(int argc, char** argv)
{
    QStringList list;
    for (int i = 0; i < argc; ++i)
        list.append(QString::fromLocal8Bit(argv[i]));
    return list;
}

bool hasDisplay(const QStringList& arguments)
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
           arguments.contains(QLatin1String("-platform"));
}

int listCameras()
{
    const auto cameras = RealCamera::list();
    QTextStream out(stdout);
    if (cameras.empty())
        out << "no camera answered\n";
    for (const RealCamera::Found& camera : cameras) {
        out << QString::fromStdString(camera.id) << "  " << QString::fromStdString(camera.address)
            << "  " << QString::fromStdString(camera.vendor) << ' '
            << QString::fromStdString(camera.model) << "  " << QString::fromStdString(camera.serial)
            << "  " << QString::fromStdString(camera.protocol) << '\n';
    }
    return leave(ExitCode::Ok);
}

// Null when the camera cannot be opened; the reason was shown then.
std::unique_ptr<Camera> openCamera(const HostOptions& options)
{
    if (!options.camera.isEmpty()) {
        std::string error;
        auto camera = RealCamera::open(options.camera.toStdString(), &error);
        if (!camera)
            complain(QStringLiteral("cannot open camera %1: %2")
                         .arg(options.camera, QString::fromStdString(error)));
        return camera;
    }
    if (options.description.isEmpty())
        return std::make_unique<DemoCamera>();
    auto camera = std::make_unique<SimulatedCamera>(options.description);
    if (!camera->hasNodeMap())
        complain(QStringLiteral("the description does not parse; the window gets it as it is"));
    return camera;
}

} // namespace

int main(int argc, char** argv)
{
    HostOptions options;
    QStringList arguments = argumentList(argc, argv);
    const bool displayed = hasDisplay(arguments);
    if (!displayed)
        qputenv("QT_QPA_PLATFORM", "offscreen");

    // Options that end the program at once must not need a display.
    const bool early = arguments.contains(QLatin1String("--help")) ||
                       arguments.contains(QLatin1String("-h")) ||
                       arguments.contains(QLatin1String("--version"));
    std::unique_ptr<QCoreApplication> application;
    if (early)
        application = std::make_unique<QCoreApplication>(argc, argv);
    else
        application = std::make_unique<QApplication>(argc, argv);

    const auto outcome = HostOptions::parse(QCoreApplication::arguments(), &options);
    if (!outcome.run) {
        if (outcome.code == ExitCode::Ok)
            QTextStream(stdout) << outcome.message << '\n';
        else
            complain(outcome.message);
        return leave(outcome.code);
    }
    if (options.listCameras)
        return listCameras();
    if (!options.verbose)
        QLoggingCategory::setFilterRules(QStringLiteral("*.info=false\n*.debug=false"));
    if (!displayed) {
        if (options.picture.isEmpty())
            options.picture = QStringLiteral("camera-host.png");
        complain(QStringLiteral("no display; drawing off screen into %1").arg(options.picture));
    }

    const std::unique_ptr<Camera> camera = openCamera(options);
    if (!camera)
        return leave(ExitCode::NoCamera);
    FaultyCamera faulty(*camera, options.faults);

    QApplication::setQuitOnLastWindowClosed(false);
    const bool unattended = !options.picture.isEmpty() || !options.steps.steps.empty();
    HostSession session(faulty, options, unattended);
    session.start();
    return QCoreApplication::exec();
}
