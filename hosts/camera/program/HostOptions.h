// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "faults/FaultPlan.h"
#include "program/ExitCode.h"
#include "steps/StepScript.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

// The command line of camera-host, read and checked.
struct HostOptions
{
    QByteArray description; // contents of --xml; empty for the demo camera or a real one
    QString camera;         // name or address of a real camera; empty for a simulated one
    QByteArray translations;
    FaultPlan faults;
    StepScript steps;
    bool stepsAtOnce = false; // not only after the first read
    QString picture;          // file name, empty for none
    QSize size{1280, 800};
    int language = 0;        // as OB_FT_Start takes it
    int timeoutSeconds = 60; // for the first read
    bool listCameras = false;
    bool verbose = false;

    // What to do after reading the command line.
    struct Outcome
    {
        bool run = false;             // go on; else leave with `code` after showing `message`
        ExitCode code = ExitCode::Ok; // Ok: the message is what was asked for (help, version)
        QString message;
    };

    // `arguments` begin with the name of the program. Reads the files they name.
    static Outcome parse(const QStringList& arguments, HostOptions* options);
};
