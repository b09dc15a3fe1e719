// SPDX-License-Identifier: Apache-2.0
// The favourites file, which any program may have written, is read, saved and read again.
#include "FuzzInput.h"
#include "device/FavoritesFile.h"

namespace {

// The file stands under the user's temporary directory: one of our own.
void ownTemporaryDirectory()
{
    static const QTemporaryDir folder;
    qputenv("TMPDIR", folder.path().toLocal8Bit());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput::beQuiet();
    ownTemporaryDirectory();
    FuzzInput::put(FavoritesFile::path(), data, size);
    FavoritesFile::save(FavoritesFile::load());
    FavoritesFile::load();
    return 0;
}
