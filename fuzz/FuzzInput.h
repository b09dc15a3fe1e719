// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QDir>
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

// Puts the input into a file, for readers that take a path.
inline void put(const QString& path, const std::uint8_t* data, std::size_t size)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes(data, size)) < 0)
        std::abort();
}

} // namespace FuzzInput
