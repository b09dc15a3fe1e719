// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "OBFeatureTree/OBFeatureTree.h"

#include <QByteArray>

// A feature of a host in memory, and how it answers get and set calls.
struct HostFeature
{
    int type = OB_FT_TYPE_INTEGER;
    int mode = OB_FT_ACCESS_READ_WRITE;
    qint64 integer = 0; // also boolean and enumeration
    qint64 minimum = 0;
    qint64 maximum = 1000000;
    qint64 increment = 1;
    float number = 0.0F;
    float numberMinimum = 0.0F;
    float numberMaximum = 100.0F;
    QByteArray text;
    qint64 maximumLength = 64;

    // The same with that access mode.
    HostFeature withMode(int accessMode) const;
    // Fills the record of the type; 0 or an error code.
    int readInto(int askedType, void* record) const;
    void write(const QByteArray& value);
};
