// SPDX-License-Identifier: Apache-2.0
// The window on a camera that takes its time for every call: what is read first, what an edit waits
// for, what closing waits for, and whether the window stays alive. An argument runs one part only:
// edit, sight, close or gaps.
#include "slowcamera/Measures.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdio>
#include <cstring>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsSet("QT_QPA_PLATFORM")
                                   ? qgetenv("QT_QPA_PLATFORM")
                                   : QByteArray("offscreen"));
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    struct Part
    {
        const char* name;
        void (*measure)();
    };
    static const Part kParts[] = {{"edit", Measures::editDuringFirstRead},
                                  {"sight", Measures::rowsInSight},
                                  {"close", Measures::closingEverythingBusy},
                                  {"gaps", Measures::gapsOfTheEventLoop}};
    for (const Part& part : kParts) {
        if (argc < 2 || std::strcmp(argv[1], part.name) == 0)
            part.measure();
    }
    return 0;
}
