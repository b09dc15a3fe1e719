// SPDX-License-Identifier: Apache-2.0
// The settings file of a software colour correction matrix, which the host writes. A file with a
// fault must stay as it was.
#include "FuzzInput.h"
#include "ccm/ORXRWCCMValue.h"

#include <QStandardPaths>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput::beQuiet();
    QStandardPaths::setTestModeEnabled(true);
    const QString name = QStringLiteral("fuzz");
    const QString path = ORXRWCCMValue::fileOf(name);
    FuzzInput::put(path, data, size);
    ORXRWCCMValue file;
    if (file.createSetting(name)) {
        const ORXRWCCMValue::Content before = file.content();
        ORXRWCCMValue again;
        if (!file.writeEnable(!before.enabled) || !again.createSetting(name) ||
            again.content().values != before.values || again.content().enabled == before.enabled)
            std::abort();
        QFile::remove(path);
        return 0;
    }
    QFile kept(path);
    if (file.fault().isEmpty() || !kept.open(QIODevice::ReadOnly) ||
        kept.readAll() != FuzzInput::bytes(data, size))
        std::abort();
    kept.remove();
    return 0;
}
