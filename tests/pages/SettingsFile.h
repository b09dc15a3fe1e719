// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "basetools/ORXInterface.h"
#include "ccm/ORXRWCCMValue.h"
#include "support/Files.h"
#include "support/Literals.h"

#include <QDir>
#include <QTest>

// The color correction settings of a camera, as the host writes and reads them.
struct SettingsFile
{
    void store(const QByteArray& content) const
    {
        QVERIFY(storeFile(ORXRWCCMValue::fileOf(name), content));
    }
    QByteArray stored() const { return bytesOf(ORXRWCCMValue::fileOf(name)); }
    static QString folder() { return ORXInterface::userDataPath() + "/CCMList"_s; }
    static void removeAll()
    {
        QFile::remove(folder());
        QDir(folder()).removeRecursively();
    }

    QString name; // of the camera
};
