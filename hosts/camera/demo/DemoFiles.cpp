// SPDX-License-Identifier: Apache-2.0
// Files inside the demo camera. A file has a size but no contents: reading gives the buffer as it
// is.
#include "demo/DemoBehaviours.h"
#include "demo/DemoContext.h"

#include <algorithm>
#include <array>

namespace DemoBehaviours {

namespace {

enum Operation : std::int64_t { Open, Close, Read, Write, Delete };
enum Status : std::int64_t { Success, Failure, FileNotOpen };
enum OpenMode : std::int64_t { ForReading = 0 };

constexpr std::int64_t kMaxFileBytes = 65536;

struct Result
{
    Status status;
    std::int64_t bytes;
};

Result setOpen(DemoContext& demo, std::int64_t file, bool open)
{
    const bool isOpen = demo.integerAt("FileStatusReg", file) != 0;
    if (isOpen == open)
        return {Failure, 0};
    demo.setIntegerAt("FileStatusReg", file, open ? 1 : 0);
    return {Success, 0};
}

Result openFile(DemoContext& demo, std::int64_t file)
{
    return setOpen(demo, file, true);
}

Result closeFile(DemoContext& demo, std::int64_t file)
{
    return setOpen(demo, file, false);
}

Result readFile(DemoContext& demo, std::int64_t file)
{
    if (demo.integerAt("FileStatusReg", file) == 0)
        return {FileNotOpen, 0};
    const std::int64_t left = std::max<std::int64_t>(
        demo.integerAt("FileSizeReg", file) - demo.integerAt("FileAccessOffsetReg", file), 0);
    return {Success, std::min(left, demo.integerAt("FileAccessLengthReg", file))};
}

Result writeFile(DemoContext& demo, std::int64_t file)
{
    if (demo.integerAt("FileStatusReg", file) == 0)
        return {FileNotOpen, 0};
    const std::int64_t bytes = demo.integerAt("FileAccessLengthReg", file);
    const std::int64_t end = demo.integerAt("FileAccessOffsetReg", file) + bytes;
    if (demo.integerAt("FileOpenModeReg", file) == ForReading || end > kMaxFileBytes)
        return {Failure, 0};
    demo.setIntegerAt("FileSizeReg", file, std::max(end, demo.integerAt("FileSizeReg", file)));
    return {Success, bytes};
}

Result deleteFile(DemoContext& demo, std::int64_t file)
{
    if (demo.integerAt("FileStatusReg", file) != 0)
        return {Failure, 0};
    demo.setIntegerAt("FileSizeReg", file, 0);
    return {Success, 0};
}

// By operation.
constexpr std::array<Result (*)(DemoContext&, std::int64_t), 5> kOperations{
    openFile, closeFile, readFile, writeFile, deleteFile};

} // namespace

void files(DemoContext& demo)
{
    demo.behaviours().afterWrite("FileOperationExecute", [&demo] {
        const std::int64_t file = demo.integer("FileSelector");
        const auto operation = static_cast<std::size_t>(demo.integer("FileOperationSelector"));
        const Result result = kOperations[operation % kOperations.size()](demo, file);
        demo.setIntegerAt("FileOperationStatusReg", file, result.status);
        demo.setIntegerAt("FileOperationResultReg", file, result.bytes);
    });
}

} // namespace DemoBehaviours
