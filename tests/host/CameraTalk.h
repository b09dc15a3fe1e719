// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cameras/Camera.h"
#include "cameras/ManualClock.h"
#include "description/DescriptionNodes.h"

#include <QString>

#include <chrono>

// What is said to a camera and what it answers, as one text that a test compares. Its steps are
// divided by "; ":
//
//   Width: 640                  reads; also Width.min, .max, .inc, .entries (how many), .bytes
//   Width=640; Start()          write, execute
//   Width=1: NotWritable        any step may end with an error of CameraError
//   Width? rw                   access mode: ni, na, wo, ro, rw or a number
//   (float)Width: WrongType     by another type than the description's
//   reconnect(); isConnected: 1; invalidate()
//   200ms                       the clock goes on
//   took 25ms                   what the clock went on by itself, since the step before such a step
class CameraTalk
{
public:
    // Neither is owned; without a clock its steps are not understood.
    explicit CameraTalk(Camera& camera, ManualClock* clock = nullptr);

    // Does the steps of the text; the same text when the camera answers what stands there.
    QString again(const QString& text);

    // The OB_FT_TYPE_ code of the description's feature; 0 for what has no value.
    int typeOf(const QString& name) const;
    // A value by its own type as the text by which it can be written, or an error.
    QString value(const QString& name) { return read(typeOf(name), name, QString()); }
    // An error, empty for none.
    QString write(int type, const QString& name, const QString& value);

private:
    QString read(int type, const QString& name, const QString& part);
    QString mode(const QString& name);
    QString step(const QString& said);

    Camera& m_camera;
    ManualClock* m_clock;
    DescriptionNodes m_nodes;
    std::chrono::nanoseconds m_told{0};
};
