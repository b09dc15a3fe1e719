// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/XmlLimits.h"

#include <QByteArray>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// What the fuzz targets share.
namespace FuzzInput {

inline QByteArray bytes(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), static_cast<int>(size)};
}

// Bad input is expected here, and said in the log each time.
inline void beQuiet()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
}

// The input as an XML document, taken as the library takes those of the host; false when it is
// none.
inline bool parse(const std::uint8_t* data, std::size_t size, QDomDocument& document)
{
    const QByteArray xml = bytes(data, size);
    return XmlLimits::acceptable(xml.constData(), size) &&
           document.setContent(QString::fromUtf8(xml));
}

// Puts the input into a file, for readers that take a path.
inline void put(const QString& path, const std::uint8_t* data, std::size_t size)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes(data, size)) < 0)
        std::abort();
}

} // namespace FuzzInput
