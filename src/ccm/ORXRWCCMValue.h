// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

#include <array>

// The settings file of a camera whose colour correction is done by the host's software:
// "CCMList_NAME.ini" in the folder "/CCMList" of the user's data. The host writes the coefficients,
// the library only whether the correction is on. A file that is not as it should be is never
// written. Any thread, one object in one thread at a time.
class ORXRWCCMValue
{
public:
    static constexpr int kCoefficients = 9;
    static constexpr int kOne = 1024; // the coefficients are fixed point, 1024 is 1.0
    // What names the camera, in this order.
    static constexpr char kSerialNumber[] = "DeviceSerialNumber";
    static constexpr char kDeviceId[] = "DeviceID";
    using Coefficients = std::array<int, kCoefficients>;

    struct Content
    {
        bool enabled = false;
        Coefficients values = identity(); // row by row
    };

    static Coefficients identity();
    // Name of a camera's file: its serial number, else its "DeviceID", else the name in its device
    // record, percent-encoded where a file name cannot take it.
    static QString cameraName(const QString& serialNumber, const QString& deviceId);
    // The same by what the host answers now. It may take its time: not on the GUI thread.
    static QString cameraName();
    static QString fileOf(const QString& name);
    static bool exists(const QString& name);

    // Makes folder and file when they are missing, and opens the file. False when that cannot be
    // done or the file holds something else; see fault().
    bool createSetting(const QString& name);
    // What the opened file says.
    const Content& content() const { return m_content; }
    // Writes "Common/CCMEnable" of the opened file; whole or not at all.
    bool writeEnable(bool on);

    QString fileName() const { return m_strFile; }
    // English, for the log; empty when nothing is wrong.
    QString fault() const { return m_strFault; }

private:
    bool makeFile();
    bool readText(QByteArray& text);
    bool looksLikeSettings(const QByteArray& text);
    bool readContent(const QByteArray& text);
    bool fail(const QString& fault);

    QString m_strFile;
    QString m_strFault;
    Content m_content;
};
