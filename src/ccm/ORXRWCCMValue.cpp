// SPDX-License-Identifier: Apache-2.0
#include "ccm/ORXRWCCMValue.h"

#include "basetools/ORXInterface.h"
#include "device/OBDeviceControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QTemporaryFile>
#include <QUrl>
#include <QVariant>

#include <limits>

namespace {

constexpr qint64 kMaxBytes = 65536; // the file holds ten lines
constexpr int kMaxNameLength = 120;
const QLatin1String kEnable("Common/CCMEnable");

QString folder()
{
    return ORXInterface::userDataPath() + QStringLiteral("/CCMList");
}

QString coefficientKey(int index)
{
    return QStringLiteral("Common/CCMValue%1").arg(index);
}

// Nothing when the text is neither true nor false.
const bool* truth(const QString& text)
{
    static const bool kTrue = true;
    static const bool kFalse = false;
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        return &kTrue;
    if (text == QLatin1String("false") || text == QLatin1String("0"))
        return &kFalse;
    return nullptr;
}

// The text with the switch in it; everything else, comments included, stays as the host wrote it.
QByteArray withEnable(const QByteArray& text, bool on)
{
    QByteArray entry = on ? "CCMEnable=true" : "CCMEnable=false";
    if (text.contains("\r\n"))
        entry += '\r';
    QList<QByteArray> lines = text.split('\n');
    int header = -1;
    bool inSection = false;
    bool found = false;
    for (int i = 0; i < lines.size(); ++i) {
        const QByteArray line = lines.at(i).trimmed();
        if (line.startsWith('[')) {
            inSection = line == "[Common]";
            header = inSection ? i : header;
        } else if (inSection && line.left(line.indexOf('=')).trimmed() == "CCMEnable") {
            lines[i] = entry;
            found = true;
        }
    }
    if (!found && header >= 0)
        lines.insert(header + 1, entry);
    else if (!found)
        return text + (text.isEmpty() || text.endsWith('\n') ? "" : "\n") + "[Common]\n" + entry +
               '\n';
    return lines.join('\n');
}

// To QSettings a line may go on behind its end, in an open quotation or after a backslash, and ends
// at a carriage return. In such a file the switch could not be found by lines.
bool isWholeLine(const QByteArray& line)
{
    bool quoted = false;
    bool escaped = false;
    for (const char sign : line) {
        if (sign == '\r')
            return false;
        quoted ^= sign == '"' && !escaped;
        escaped = sign == '\\' && !escaped;
    }
    return !quoted && !escaped;
}

bool isSettingsLine(const QByteArray& line)
{
    if (line.startsWith(';'))
        return !line.contains('\r');
    if (!isWholeLine(line))
        return false;
    return line.isEmpty() || line.startsWith('#') ||
           (line.startsWith('[') ? line.endsWith(']') : line.indexOf('=') > 0);
}

} // namespace

ORXRWCCMValue::Coefficients ORXRWCCMValue::identity()
{
    return {kOne, 0, 0, 0, kOne, 0, 0, 0, kOne};
}

QString ORXRWCCMValue::cameraName(const QString& serialNumber, const QString& deviceId)
{
    QString name;
    for (const QString& text : {serialNumber, deviceId, OBDeviceControl::GetDeviceName()}) {
        if (name.isEmpty())
            name = text.trimmed();
    }
    name = QString::fromLatin1(QUrl::toPercentEncoding(name)).left(kMaxNameLength);
    return name.isEmpty() ? QStringLiteral("camera") : name;
}

QString ORXRWCCMValue::cameraName()
{
    const auto ask = [](const char* feature) {
        QString text;
        OBDeviceControl::GetStringNodeValue(QString::fromLatin1(feature), text, nullptr, nullptr,
                                            true);
        return text.trimmed();
    };
    const QString serialNumber = ask(kSerialNumber);
    return cameraName(serialNumber, serialNumber.isEmpty() ? ask(kDeviceId) : QString());
}

QString ORXRWCCMValue::fileOf(const QString& name)
{
    return folder() + QStringLiteral("/CCMList_%1.ini").arg(name);
}

bool ORXRWCCMValue::exists(const QString& name)
{
    return QFileInfo::exists(fileOf(name));
}

bool ORXRWCCMValue::fail(const QString& fault)
{
    m_strFault = fault;
    m_content = Content();
    return false;
}

bool ORXRWCCMValue::createSetting(const QString& name)
{
    m_strFile = fileOf(name);
    m_strFault.clear();
    m_content = Content();
    QByteArray text;
    return makeFile() && readText(text) && looksLikeSettings(text) && readContent(text);
}

bool ORXRWCCMValue::makeFile()
{
    if (QFileInfo::exists(m_strFile))
        return true;
    if (!QDir().mkpath(folder()))
        return fail(QStringLiteral("the folder cannot be made"));
    QFile file(m_strFile);
    // The host may make it at the same moment; what it wrote stays.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && !file.exists())
        return fail(QStringLiteral("the file cannot be made: ") + file.errorString());
    return true;
}

bool ORXRWCCMValue::readText(QByteArray& text)
{
    const QFileInfo info(m_strFile);
    if (!info.isFile())
        return fail(QStringLiteral("it is not a file"));
    if (info.size() > kMaxBytes)
        return fail(QStringLiteral("it is too large"));
    QFile file(m_strFile);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("it cannot be read: ") + file.errorString());
    text = file.readAll();
    return true;
}

// Faults that QSettings passes over in silence.
bool ORXRWCCMValue::looksLikeSettings(const QByteArray& text)
{
    if (text.contains('\0'))
        return fail(QStringLiteral("it is not a text"));
    const QList<QByteArray> lines = text.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        if (!isSettingsLine(lines.at(i).trimmed()))
            return fail(QStringLiteral("line %1 is no setting").arg(i + 1));
    }
    return true;
}

// From a copy that nobody has read before: QSettings takes a file of the same name, size and time
// for unchanged, which one that was written twice within a tick of the clock can be.
bool ORXRWCCMValue::readContent(const QByteArray& text)
{
    QTemporaryFile copy;
    if (!copy.open() || copy.write(text) != text.size() || !copy.flush())
        return fail(QStringLiteral("no copy of it can be made: ") + copy.errorString());
    const QSettings settings(copy.fileName(), QSettings::IniFormat);
    // QSettings reads the file at the first access only; before that, status() is always good.
    settings.allKeys();
    if (settings.status() != QSettings::NoError)
        return fail(QStringLiteral("it is no settings file"));
    Content content;
    if (settings.contains(kEnable)) {
        const bool* enabled = truth(settings.value(kEnable).toString());
        if (!enabled)
            return fail(QStringLiteral("CCMEnable is neither true nor false"));
        content.enabled = *enabled;
    }
    for (int i = 0; i < kCoefficients; ++i) {
        const QString key = coefficientKey(i);
        if (!settings.contains(key))
            continue;
        bool ok = false;
        content.values[static_cast<std::size_t>(i)] = settings.value(key).toString().toInt(&ok);
        if (!ok)
            return fail(QStringLiteral("CCMValue%1 is no 32-bit integer").arg(i));
    }
    m_content = content;
    return true;
}

bool ORXRWCCMValue::writeEnable(bool on)
{
    if (m_strFile.isEmpty() || !m_strFault.isEmpty())
        return false;
    QFile present(m_strFile);
    if (!present.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("it cannot be read: ") + present.errorString());
    const QByteArray text = withEnable(present.readAll(), on);
    // Not through QSettings: it does not notice when the last bytes do not reach the disk.
    QSaveFile file(m_strFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush() ||
        !file.commit())
        return fail(QStringLiteral("it cannot be written: ") + file.errorString());
    m_content.enabled = on;
    return true;
}
