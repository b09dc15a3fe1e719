// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lut/LUTPoint.h"

class QString;

// Text files of look-up tables: for each point a line with its index and a line with its value,
// both decimal, ended by CR LF; no header. Free of state, any thread.
namespace LUTTextFile {

// Writes the file whole or not at all: a file that was there before stays when it fails.
bool write(const QString& path, const LUTPoints& points);

enum class ReadResult {
    Read,
    NotOpened, // no such regular file, or not readable
    BadFormat
};
// Reads pairs with indexes 0 to maxIndex and values 0 to maxValue, no more than mostPoints + 1 of
// them; `points` is changed on success only. Lines may end with LF alone, a UTF-8 byte-order mark
// is passed over; anything else that is not a number makes the file bad.
ReadResult read(const QString& path, int maxIndex, int maxValue, int mostPoints, LUTPoints* points);

} // namespace LUTTextFile
