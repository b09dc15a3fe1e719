// SPDX-License-Identifier: Apache-2.0
// A file of feature values, as the user opens it; what was read is written and read again.
#include "FuzzInput.h"
#include "changes/FeatureFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput::beQuiet();
    const FeatureFile file = FeatureFile::parse(FuzzInput::bytes(data, size));
    for (const FeatureFile::Fault& fault : file.faults) {
        if (fault.text().isEmpty())
            std::abort();
    }
    if (!file.faults.isEmpty())
        return 0;
    const FeatureFile again = FeatureFile::parse(file.toBytes({file.model}));
    if (!again.faults.isEmpty() || again.lines.size() != file.lines.size())
        std::abort();
    for (int i = 0; i < file.lines.size(); ++i) {
        if (again.lines.at(i).name != file.lines.at(i).name ||
            again.lines.at(i).value != file.lines.at(i).value)
            std::abort();
    }
    return 0;
}
