// SPDX-License-Identifier: Apache-2.0
// A host that calls the library when its QApplication has gone, from its main() and from a static
// object, and opens the window of the next QApplication afterwards.
#include "OBFeatureTree/OBFeatureTree.h"
#include "support/DescriptionBuilder.h"
#include "support/FakeHost.h"
#include "support/Patience.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kOk = 0;
constexpr int kNotInitialised = -1;

#define EXPECT(condition)                                                                          \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            std::fprintf(stderr, "%s: failed: %s\n", __func__, #condition);                        \
            std::_Exit(1); /* from a static object's destructor, too */                            \
        }                                                                                          \
    } while (false)

struct Function
{
    const char* name;
    int (*call)();
};

// Those that need OB_FT_Init before them.
const Function kFunctions[] = {
    {"OB_FT_SetDeviceInfo",
     [] {
         _OB_FT_DEVICEINFO_ info = {};
         return OB_FT_SetDeviceInfo(&info);
     }},
    {"OB_FT_SetCallBackFunc",
     [] {
         return OB_FT_SetCallBackFunc(FakeHost::getFeature, FakeHost::setFeature, FakeHost::getMode,
                                      FakeHost::invalidate, FakeHost::action, nullptr);
     }},
    {"OB_FT_SetWidgetSize", [] { return OB_FT_SetWidgetSize(800, 600); }},
    {"OB_FT_SetTitleVisible", [] { return OB_FT_SetTitleVisible(1); }},
    {"OB_FT_SetWidgetPosition", [] { return OB_FT_SetWidgetPosition(1, 2); }},
    {"OB_FT_Start", [] { return OB_FT_Start(nullptr, 0); }},
    {"OB_FT_Close", [] { return OB_FT_Close(); }},
    {"OB_FT_UpdateFeatures", [] { return OB_FT_UpdateFeatures(); }},
};

QByteArray description()
{
    return DescriptionBuilder::generate(DescriptionBuilder::Size::ofFeatures(30));
}

// Critical lines since the last look at them. Never destroyed: looked at by a static object.
QStringList& criticalLines()
{
    static auto* const lines = new QStringList;
    return *lines;
}

void keepCriticalLines(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        criticalLines().append(text);
}

// Nothing is there to be called on: every call is refused, and logged once it means something.
void callEverything()
{
    EXPECT(!QCoreApplication::instance());
    criticalLines().clear();
    for (const Function& function : kFunctions)
        EXPECT(function.call() == kNotInitialised);
    EXPECT(OB_FT_Release() == kNotInitialised);
    EXPECT(criticalLines().isEmpty());
    EXPECT(OB_FT_Init(description().constData(), nullptr, nullptr) == kOk);
    for (const Function& function : kFunctions) {
        criticalLines().clear();
        EXPECT(function.call() == kOk);
        EXPECT(criticalLines().size() == 1);
        EXPECT(criticalLines().first().startsWith(QLatin1String(function.name)));
    }
    EXPECT(OB_FT_Release() == kOk);
    EXPECT(OB_FT_Start(nullptr, 0) == kNotInitialised);
}

void openAndRead(FakeHost& host)
{
    EXPECT(OB_FT_Init(description().constData(), nullptr, nullptr) == kOk);
    host.serve(description());
    host.installInWindow();
    EXPECT(OB_FT_SetWidgetSize(800, 600) == kOk);
    EXPECT(OB_FT_Start(nullptr, 0) == kOk);
    const auto isRead = [&host] { return host.count(QStringLiteral("get Feature00012")) > 0; };
    EXPECT(QTest::qWaitFor(isRead, kWindowPatienceMs));
    const auto hasRow = [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
            return window->isVisible() &&
                   window->findChild<QWidget*>(QStringLiteral("Feature00012"));
        });
    };
    EXPECT(QTest::qWaitFor(hasRow, kWindowPatienceMs));
    EXPECT(criticalLines().isEmpty());
}

// Destroyed after main() and everything in it.
struct LateCaller
{
    ~LateCaller() { callEverything(); }
} const s_lateCaller;

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    qInstallMessageHandler(keepCriticalLines);
    callEverything();
    for (const bool released : {true, false, true}) {
        FakeHost host;
        criticalLines().clear();
        {
            QApplication application(argc, argv);
            openAndRead(host);
            if (released)
                EXPECT(OB_FT_Release() == kOk);
        }
        const qint64 calls = host.callCount();
        callEverything();
        EXPECT(host.callCount() == calls);
    }
    std::puts("the library has outlived the applications");
    return 0;
}
