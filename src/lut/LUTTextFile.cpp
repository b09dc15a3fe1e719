// SPDX-License-Identifier: Apache-2.0
#include "lut/LUTTextFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

// More than any number takes; a longer line is not read any further.
constexpr int kLongestLine = 64;

// An integer from 0 to `maximum`, with blanks around it and nothing else.
bool parse(const QByteArray& line, int maximum, qint32* number)
{
    const QByteArray text = line.trimmed();
    if (text.isEmpty() || line.size() >= kLongestLine)
        return false;
    qint64 value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9')
            return false;
        value = value * 10 + (digit - '0');
        if (value > maximum)
            return false;
    }
    *number = static_cast<qint32>(value);
    return true;
}

void passByteOrderMark(QFile& file)
{
    const QByteArray mark("\xEF\xBB\xBF");
    if (file.peek(mark.size()) == mark)
        file.seek(mark.size());
}

} // namespace

namespace LUTTextFile {

bool write(const QString& path, const LUTPoints& points)
{
    QByteArray bytes;
    for (const LUTPoint& point : points) {
        bytes += QByteArray::number(point.index) + "\r\n";
        bytes += QByteArray::number(point.value) + "\r\n";
    }
    QSaveFile file(path);
    // commit() alone does not notice when the last bytes do not reach the disk. On failure only the
    // new file is removed.
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) &&
           file.write(bytes) == bytes.size() && file.flush() && file.commit();
}

ReadResult read(const QString& path, int maxIndex, int maxValue, int mostPoints, LUTPoints* points)
{
    QFile file(path);
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return ReadResult::NotOpened;
    passByteOrderMark(file);
    LUTPoints pairs;
    while (!file.atEnd()) {
        LUTPoint pair;
        if (pairs.size() > mostPoints ||
            !parse(file.readLine(kLongestLine), maxIndex, &pair.index) ||
            !parse(file.readLine(kLongestLine), maxValue, &pair.value))
            return ReadResult::BadFormat;
        pairs.append(pair);
    }
    if (pairs.isEmpty())
        return ReadResult::BadFormat;
    *points = pairs;
    return ReadResult::Read;
}

} // namespace LUTTextFile
