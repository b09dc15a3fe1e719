// SPDX-License-Identifier: Apache-2.0
#include "program/HostOptions.h"

#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int kMinSide = 100;
constexpr int kMaxSide = 10000;

const char* const kExplanation =
    "Shows the features of a camera: of the demo camera inside this program, of a simulated camera "
    "with any feature description (--xml), or of a GigE Vision or USB3 Vision camera (--camera).\n"
    "\n"
    "Without a display the window is drawn off screen, saved as a picture, and the program ends.\n"
    "\n"
    "Exit codes: 0 success, 1 failure, 2 wrong options, 3 unreadable file, 4 no camera.";

HostOptions::Outcome refuse(ExitCode code, const QString& message)
{
    return {false, code, message};
}

bool readFile(const QString& name, QByteArray* contents, HostOptions::Outcome* outcome)
{
    QFile file(name);
    if (file.open(QIODevice::ReadOnly)) {
        *contents = file.readAll();
        if (!contents->isEmpty())
            return true;
        *outcome = refuse(ExitCode::NoFile, QStringLiteral("%1 is empty").arg(name));
        return false;
    }
    *outcome = refuse(ExitCode::NoFile,
                      QStringLiteral("cannot read %1: %2").arg(name, file.errorString()));
    return false;
}

// The text of the file of that name when there is one, else the argument itself.
bool readScript(const QString& fileOrText, QString* text, HostOptions::Outcome* outcome)
{
    *text = fileOrText;
    QByteArray contents;
    if (!QFileInfo(fileOrText).isFile())
        return true;
    if (!readFile(fileOrText, &contents, outcome))
        return false;
    *text = QString::fromUtf8(contents);
    return true;
}

bool parseSize(const QString& text, QSize* size)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const auto match = form.match(text);
    *size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    return match.hasMatch() && size->width() >= kMinSide && size->height() >= kMinSide &&
           size->width() <= kMaxSide && size->height() <= kMaxSide;
}

bool parseLanguage(const QString& text, int* language)
{
    if (text != QLatin1String("en") && text != QLatin1String("zh"))
        return false;
    *language = text == QLatin1String("zh") ? 1 : 0;
    return true;
}

} // namespace

HostOptions::Outcome HostOptions::parse(const QStringList& arguments, HostOptions* options)
{
    const QCommandLineOption xml(QStringLiteral("xml"),
                                 QStringLiteral("Simulate a camera with this description."),
                                 QStringLiteral("file"));
    const QCommandLineOption camera(
        QStringLiteral("camera"),
        QStringLiteral("Open a real camera by identifier, address, serial number or model."),
        QStringLiteral("name"));
    const QCommandLineOption list(QStringLiteral("list"),
                                  QStringLiteral("List the real cameras in reach and end."));
    const QCommandLineOption faults(
        QStringLiteral("faults"),
        QStringLiteral("Let the camera do wrong what the plan says: a file, or rules such as "
                       "\"latency * 5; error Gain 0x80000001\" (see FaultPlan.h)."),
        QStringLiteral("plan"));
    const QCommandLineOption language(QStringLiteral("language"),
                                      QStringLiteral("Language of the window, en or zh."),
                                      QStringLiteral("code"), QStringLiteral("en"));
    const QCommandLineOption size(QStringLiteral("size"),
                                  QStringLiteral("Size of the window, in pixels."),
                                  QStringLiteral("WxH"), QStringLiteral("1280x800"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QStringLiteral("Save a picture of the window after the first read, and end."),
        QStringLiteral("file"));
    const QCommandLineOption translations(
        QStringLiteral("translations"),
        QStringLiteral("Names and descriptions in a second language."), QStringLiteral("file"));
    const QCommandLineOption atOnce(
        QStringLiteral("at-once"),
        QStringLiteral("Begin the steps at once, in the middle of the first read."));
    const QCommandLineOption steps(
        QStringLiteral("do"),
        QStringLiteral("After the first read use the window in these steps, and end: a file, or "
                       "\"tab=1; select=Width; picture=width.png\" (see StepScript.h)."),
        QStringLiteral("steps"));
    const QCommandLineOption timeout(
        QStringLiteral("timeout"),
        QStringLiteral("Longest time to wait for the first read, in seconds."),
        QStringLiteral("seconds"), QStringLiteral("60"));
    const QCommandLineOption verbose(
        QStringLiteral("verbose"),
        QStringLiteral("Show all log lines and all errors of the camera."));

    QCommandLineParser parser;
    parser.setApplicationDescription(QLatin1String(kExplanation));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({xml, camera, list, faults, language, size, screenshot, translations, steps,
                       atOnce, timeout, verbose});
    if (!parser.parse(arguments))
        return refuse(ExitCode::Usage, parser.errorText());
    if (parser.isSet(help))
        return refuse(ExitCode::Ok, parser.helpText());
    if (parser.isSet(version))
        return refuse(ExitCode::Ok, QStringLiteral("camera-host 1.0.0"));
    if (!parser.positionalArguments().isEmpty())
        return refuse(
            ExitCode::Usage,
            QStringLiteral("\"%1\" is no option").arg(parser.positionalArguments().constFirst()));
    if (parser.isSet(xml) && parser.isSet(camera))
        return refuse(ExitCode::Usage, QStringLiteral("--xml and --camera exclude each other"));

    options->camera = parser.value(camera);
    options->listCameras = parser.isSet(list);
    options->picture = parser.value(screenshot);
    options->verbose = parser.isSet(verbose);
    if (parser.isSet(camera) && options->camera.isEmpty())
        return refuse(ExitCode::Usage, QStringLiteral("--camera needs a name or an address"));
    if (!parseLanguage(parser.value(language), &options->language))
        return refuse(
            ExitCode::Usage,
            QStringLiteral("--language is en or zh, not \"%1\"").arg(parser.value(language)));
    if (!parseSize(parser.value(size), &options->size))
        return refuse(ExitCode::Usage,
                      QStringLiteral("--size is WIDTHxHEIGHT, %1 to %2 each, not \"%3\"")
                          .arg(kMinSide)
                          .arg(kMaxSide)
                          .arg(parser.value(size)));
    bool ok = false;
    options->timeoutSeconds = parser.value(timeout).toInt(&ok);
    if (!ok || options->timeoutSeconds < 1)
        return refuse(ExitCode::Usage,
                      QStringLiteral("--timeout is a number of seconds, not \"%1\"")
                          .arg(parser.value(timeout)));

    Outcome outcome;
    QString text;
    QString wrong;
    if (!readScript(parser.value(faults), &text, &outcome))
        return outcome;
    const auto plan = FaultPlan::parse(text, &wrong);
    if (!plan)
        return refuse(ExitCode::Usage, QStringLiteral("--faults: %1").arg(wrong));
    options->faults = *plan;
    if (!readScript(parser.value(steps), &text, &outcome))
        return outcome;
    const auto script = StepScript::parse(text, &wrong);
    if (!script)
        return refuse(ExitCode::Usage, QStringLiteral("--do: %1").arg(wrong));
    options->steps = *script;
    options->stepsAtOnce = parser.isSet(atOnce);

    if (parser.isSet(xml) && !readFile(parser.value(xml), &options->description, &outcome))
        return outcome;
    if (parser.isSet(translations) &&
        !readFile(parser.value(translations), &options->translations, &outcome))
        return outcome;
    outcome.run = true;
    return outcome;
}
