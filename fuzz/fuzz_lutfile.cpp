// SPDX-License-Identifier: Apache-2.0
// A look-up table in a text file, as the user imports it; what was read is written and read again.
#include "FuzzInput.h"
#include "lut/LUTTextFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput::beQuiet();
    constexpr int kMaxIndex = 1023;
    constexpr int kMaxValue = 4095;
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("lut.txt"));
    FuzzInput::put(path, data, size);
    LUTPoints points;
    if (LUTTextFile::read(path, kMaxIndex, kMaxValue, kMaxIndex, &points) !=
        LUTTextFile::ReadResult::Read)
        return 0;
    LUTPoints again;
    if (!LUTTextFile::write(path, points) ||
        LUTTextFile::read(path, kMaxIndex, kMaxValue, kMaxIndex, &again) !=
            LUTTextFile::ReadResult::Read ||
        again != points)
        std::abort();
    return 0;
}
