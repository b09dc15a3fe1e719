// SPDX-License-Identifier: Apache-2.0
// A table of translated feature names, as the host or the resource folder gives it.
#include "FuzzInput.h"
#include "device/TranslationTable.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput::beQuiet();
    XmlDocument document;
    if (!document.setContent(FuzzInput::bytes(data, size)))
        return 0;
    TranslationTable::Items table;
    TranslationTable::addDocument(document, table);
    for (auto it = table.cbegin(); it != table.cend(); ++it) {
        if (!it.value())
            std::abort();
    }
    return 0;
}
