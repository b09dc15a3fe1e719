// SPDX-License-Identifier: Apache-2.0
#include "host/CameraTalk.h"

#include "cameras/CameraError.h"
#include "support/Literals.h"

#include <OBFeatureTree/OBFeatureTree.h>

#include <QHash>
#include <QRegularExpression>

#include <cstring>

using namespace std::chrono;

namespace {

QString errorName(int code)
{
    // In the order of their codes.
    static const QStringList kNames =
        words("NodeNotFound WrongType NotReadable NotWritable OutOfRange InvalidText NotConnected "
              "Timeout Transfer BrokenDescription NoDescription Busy");
    return code == 0 ? QString()
                     : kNames.value(code - CameraError::NodeNotFound, "error %1"_s.arg(code));
}

const QHash<QString, int> kTypes = {{"Integer"_s, OB_FT_TYPE_INTEGER},
                                    {"IntReg"_s, OB_FT_TYPE_INTEGER},
                                    {"Boolean"_s, OB_FT_TYPE_BOOLEAN},
                                    {"Command"_s, OB_FT_TYPE_COMMAND},
                                    {"Float"_s, OB_FT_TYPE_FLOAT},
                                    {"Converter"_s, OB_FT_TYPE_FLOAT},
                                    {"String"_s, OB_FT_TYPE_STRING},
                                    {"StringReg"_s, OB_FT_TYPE_STRING},
                                    {"Enumeration"_s, OB_FT_TYPE_ENUMERATION}};

// What a record is full of before it is read.
constexpr int kLeft = 0x5A;

// To the last bit.
QString number(float value)
{
    const QString text = QString::number(double(value), 'g', 8);
    return text.toFloat() == value ? text : QString::number(double(value), 'g', 9);
}

} // namespace

CameraTalk::CameraTalk(Camera& camera, ManualClock* clock)
    : m_camera(camera)
    , m_clock(clock)
    , m_nodes(camera.descriptionXml())
    , m_told(clock ? clock->now() : 0ns)
{
}

int CameraTalk::typeOf(const QString& name) const
{
    const DescriptionNode* node = m_nodes.find(name.toStdString());
    return node ? kTypes.value(QString::fromStdString(node->tag)) : OB_FT_TYPE_INTEGER;
}

QString CameraTalk::read(int type, const QString& name, const QString& part)
{
    union {
        _ZDCC_INTVALUE_EX_T integer;
        _ZDCC_FLOATVALUE_T real;
        _ZDCC_ENUMVALUE_T entries;
        _ZDCC_STRINGVALUE_T text;
        unsigned char boolean;
    } record, before;
    std::memset(&record, kLeft, sizeof record);
    std::memset(&before, kLeft, sizeof before);
    if (const int error = m_camera.read(type, name.toStdString(), &record)) {
        const bool isAlone = std::memcmp(&record, &before, sizeof record) == 0;
        return errorName(error) + (isAlone ? QString() : " but the record is changed"_s);
    }
    switch (type) {
    case OB_FT_TYPE_FLOAT: {
        const auto& real = record.real;
        const float value = part == "min"_s   ? real.minimum
                            : part == "max"_s ? real.maximum
                                              : real.value;
        return number(value);
    }
    case OB_FT_TYPE_ENUMERATION:
        return QString::number(part.isEmpty() ? record.entries.value
                                              : record.entries.supportedCount);
    case OB_FT_TYPE_STRING: {
        const auto bytes = qstrnlen(record.text.value, sizeof record.text.value);
        return part.isEmpty() ? QString::fromUtf8(record.text.value, int(bytes))
                              : QString::number(bytes);
    }
    case OB_FT_TYPE_BOOLEAN:
        return QString::number(record.boolean);
    default: {
        const auto& integer = record.integer;
        const auto value = part == "min"_s   ? integer.minimum
                           : part == "max"_s ? integer.maximum
                           : part == "inc"_s ? integer.increment
                                             : integer.value;
        return QString::number(value);
    }
    }
}

QString CameraTalk::write(int type, const QString& name, const QString& value)
{
    return errorName(m_camera.write(type, name.toStdString(), value.toStdString()));
}

QString CameraTalk::mode(const QString& name)
{
    static const QStringList kModes = words("ni na wo ro rw");
    int mode = -1;
    const QString error = errorName(m_camera.accessMode(name.toStdString(), &mode));
    return kModes.value(mode, QString::number(mode)) + (error.isEmpty() ? error : ": "_s + error);
}

QString CameraTalk::step(const QString& said)
{
    static const QRegularExpression form(
        "^(?:\\((\\w+)\\))?(\\w*)(?:\\.(\\w+))?(\\?|=|\\(\\)|:|ms$| )(.*)$"_s,
        QRegularExpression::DotMatchesEverythingOption);
    const auto match = form.match(said);
    const QString name = match.captured(2);
    const QString sign = match.captured(4);
    const QString begin = said.left(match.capturedEnd(4));
    const QString value = match.captured(5).section(": "_s, 0, 0);
    const int type = match.captured(1).isEmpty() ? typeOf(name) : kTypes.value(match.captured(1));
    const auto withError = [](const QString& text, const QString& error) {
        return error.isEmpty() ? text : text + ": "_s + error;
    };
    if (sign == "?"_s)
        return begin + QLatin1Char(' ') + mode(name);
    if (said.startsWith("invalidate()"_s) || said.startsWith("reconnect()"_s))
        return withError(begin, errorName(name == "invalidate"_s ? m_camera.invalidate()
                                                                 : m_camera.reconnect()));
    if (name == "isConnected"_s)
        return begin + QLatin1Char(' ') + QString::number(int(m_camera.isConnected()));
    if (sign == ":"_s)
        return begin + QLatin1Char(' ') + read(type, name, match.captured(3));
    if (sign == "="_s)
        return withError(begin + value, write(type, name, value));
    if (sign == "()"_s)
        return withError(begin, write(OB_FT_TYPE_COMMAND, name, QString()));
    if (sign == "ms"_s && m_clock) {
        m_clock->advance(milliseconds(name.toLongLong()));
        m_told = m_clock->now();
        return said;
    }
    if (name == "took"_s && m_clock) {
        const auto took = duration_cast<milliseconds>(m_clock->now() - m_told);
        m_told = m_clock->now();
        return "took %1ms"_s.arg(took.count());
    }
    return "not understood: "_s + said;
}

QString CameraTalk::again(const QString& text)
{
    QStringList steps = text.split("; "_s);
    for (QString& each : steps)
        each = step(each);
    return steps.join("; "_s);
}
