// SPDX-License-Identifier: Apache-2.0
// Opening, as the first thing that a process does: from OB_FT_Init to the first painted window,
// against the bare DOM parse of the same description and against a plain QTreeView over the same
// model. Each sample is a process started anew, in which the host has shown nothing yet, or a
// window with some text: Qt's own preparations for the first text are then behind it. A description
// may be given as a file.
#include "device/XmlDocument.h"
#include "model/FeatureDescriptionIndex.h"
#include "model/FeatureTreeBuilder.h"
#include "model/ORXPropertyTreeItem.h"
#include "model/ORXPropertyTreeModel.h"
#include "support/DescriptionBuilder.h"
#include "support/OpenedWindow.h"

#include <QApplication>
#include <QDomDocument>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

using DescriptionBuilder::Size;

constexpr int kSamples = 15;
constexpr QLatin1String kSample("--sample");

// Milliseconds since the start of what is measured, at the end of each step: those that pass, since
// the window is made by more than one thread.
using Steps = std::array<double, 5>;

class StepClock
{
public:
    void stamp() { m_steps[m_next++] = now() - m_start; }
    const Steps& steps() const { return m_steps; }

private:
    static double now()
    {
        timespec time{};
        clock_gettime(CLOCK_MONOTONIC, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    Steps m_steps{};
    size_t m_next = 0;
    double m_start = now();
};

enum class Host { ShowsNothing, ShowsAWindow };

class FirstPaint : public QObject
{
public:
    explicit FirstPaint(QWidget* watched) { watched->installEventFilter(this); }
    // Until the pass of the event loop ends in which the window, and with it all inside, is
    // painted.
    void wait()
    {
        while (!m_painted)
            QCoreApplication::processEvents();
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_painted = false;
};

void showHostsWindow()
{
    auto* window = new QLabel("A camera's picture stands here."_s); // as long as the process
    window->show();
    FirstPaint(window).wait();
}

// The middle of each step over several processes.
Steps middleOf(std::vector<Steps> samples)
{
    Steps middle{};
    for (size_t step = 0; step < middle.size(); ++step) {
        std::sort(samples.begin(), samples.end(),
                  [step](const Steps& a, const Steps& b) { return a[step] < b[step]; });
        middle[step] = samples[samples.size() / 2][step];
    }
    return middle;
}

Steps openWindow(const QByteArray& xml)
{
    auto* host = new FakeHost; // as long as the process, in which the window goes on reading
    host->serve(xml);
    _OB_FT_DEVICEINFO_ info = {};
    StepClock clock;
    OB_FT_Init(xml.constData(), nullptr, nullptr);
    clock.stamp();
    OB_FT_SetDeviceInfo(&info);
    host->installInWindow();
    clock.stamp();
    OB_FT_SetWidgetSize(900, 700);
    OB_FT_Start(nullptr, 0);
    clock.stamp();
    FirstPaint(ORXMainFeatureWidget::instance(nullptr)).wait();
    clock.stamp();
    return clock.steps();
}

Steps parseBare(const QByteArray& xml)
{
    StepClock clock;
    auto* document = new QDomDocument; // kept, as a window keeps its own
    document->setContent(xml);
    clock.stamp();
    return clock.steps();
}

// The model of the same features, built before the clock starts.
Steps openPlainView(const QByteArray& xml)
{
    XmlDocument document;
    document.setContent(xml);
    FeatureDescriptionIndex index;
    index.GenerateDomElementMap(document.documentElement());
    FeatureTreeBuilder builder;
    auto* root = new ORXPropertyTreeItem(nullptr, ORXPropertyTreeItem::FeatureTreePage);
    builder.createItems(root, index.nodes(), nullptr);
    ORXPropertyTreeModel model(ORXPropertyTreeItem::FeatureTreePage, nullptr);
    model.updateData(root);
    StepClock clock;
    QTreeView view;
    view.setModel(&model);
    view.expandAll();
    view.resize(900, 700);
    view.show();
    FirstPaint(view.viewport()).wait();
    clock.stamp();
    return clock.steps();
}

struct Measure
{
    const char* name;
    Steps (*take)(const QByteArray& xml);
};

constexpr Measure kParse = {"parse", parseBare};
constexpr Measure kWindow = {"window", openWindow};
constexpr Measure kPlainView = {"plain", openPlainView};

// In a process that is there for it: prints the steps.
int takeSample(int argc, char** argv)
{
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QStringList arguments = application.arguments();
    QFile file(arguments.at(4));
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    const QByteArray xml = file.readAll();
    if (arguments.at(3) == "second"_s)
        showHostsWindow();
    for (const Measure& measure : {kParse, kWindow, kPlainView}) {
        if (arguments.at(2) != QLatin1String(measure.name))
            continue;
        for (const double step : measure.take(xml))
            std::printf("%f ", step);
        std::fflush(stdout);
    }
    std::_Exit(0); // in the middle of reading
}

Steps inNewProcess(const Measure& measure, const QString& file, Host host)
{
    Steps steps{};
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {kSample, QString::fromLatin1(measure.name),
                   host == Host::ShowsAWindow ? "second"_s : "first"_s, file});
    process.waitForFinished(-1);
    const QList<QByteArray> words = process.readAllStandardOutput().split(' ');
    if (words.size() <= int(steps.size()))
        std::fprintf(stderr, "a sample is missing\n");
    for (size_t i = 0; i < steps.size(); ++i)
        steps[i] = words.value(int(i)).toDouble();
    return steps;
}

void printOpening(const char* what, const QString& file, Host host)
{
    // In turn, so that what slows the machine for a while slows all of them.
    std::vector<Steps> parses;
    std::vector<Steps> windows;
    std::vector<Steps> plains;
    for (int i = 0; i < kSamples; ++i) {
        parses.push_back(inNewProcess(kParse, file, host));
        windows.push_back(inNewProcess(kWindow, file, host));
        plains.push_back(inNewProcess(kPlainView, file, host));
    }
    const double parse = middleOf(parses)[0];
    const Steps window = middleOf(windows);
    const double plain = middleOf(plains)[0];
    const double shown = window[3] - window[1];
    std::printf(
        "%s, %lld KB, %s: OB_FT_Init %.1f ms, callbacks %.1f, start %.1f, painted %.1f: whole "
        "%.1f ms, bare DOM parse %.1f ms: %.2f; start until painted %.1f ms, plain tree "
        "view %.1f ms: %.2f\n",
        what, QFile(file).size() / 1000,
        host == Host::ShowsNothing ? "first window" : "second window", window[0],
        window[1] - window[0], window[2] - window[1], window[3] - window[2], window[3], parse,
        window[3] / parse, shown, plain, shown / plain);
    std::fflush(stdout);
}

void printOpenings(const char* what, const QString& file)
{
    for (const Host host : {Host::ShowsNothing, Host::ShowsAWindow})
        printOpening(what, file, host);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    if (argc == 5 && kSample == QLatin1String(argv[1]))
        return takeSample(argc, argv);
    QCoreApplication application(argc, argv);
    if (argc > 1) {
        const QString file = QString::fromLocal8Bit(argv[1]);
        if (!QFile::exists(file)) {
            std::fprintf(stderr, "there is no %s\n", argv[1]);
            return 1;
        }
        printOpenings(argv[1], file);
        return 0;
    }
    for (const int features : {700, 5000, 16000}) {
        QTemporaryFile file;
        file.open();
        file.write(DescriptionBuilder::generate(Size::ofFeatures(features)));
        file.close();
        printOpenings(QByteArray::number(features) + " features", file.fileName());
    }
    return 0;
}
