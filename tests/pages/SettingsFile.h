// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "basetools/ORXInterface.h"
#include "ccm/ORXRWCCMValue.h"
#include "support/Literals.h"

#include <QDir>
#include <QFile>
#include <QTest>

// The color correction settings of a camera, as the host writes and reads them.
struct SettingsFile
{
    void store(const QByteArray& content) const
    {
        QDir().mkpath(folder());
        QFile file(ORXRWCCMValue::fileOf(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray stored() const
    {
        QFile file(ORXRWCCMValue::fileOf(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    static QString folder() { return ORXInterface::userDataPath() + "/CCMList"_s; }
    static void removeAll()
    {
        QFile::remove(folder());
        QDir(folder()).removeRecursively();
    }

    QString name; // of the camera
};
