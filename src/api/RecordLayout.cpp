// SPDX-License-Identifier: Apache-2.0
// Hosts are built against the records as they stand: where each field lies may never change.
#include "OBFeatureTree/OBFeatureTree.h"

#include <cstddef>

static_assert(sizeof(_ZDCC_INTVALUE_EX_T) == 96 && offsetof(_ZDCC_INTVALUE_EX_T, value) == 0 &&
              offsetof(_ZDCC_INTVALUE_EX_T, maximum) == 8 &&
              offsetof(_ZDCC_INTVALUE_EX_T, minimum) == 16 &&
              offsetof(_ZDCC_INTVALUE_EX_T, increment) == 24 &&
              offsetof(_ZDCC_INTVALUE_EX_T, reserved) == 32);
static_assert(sizeof(_ZDCC_FLOATVALUE_T) == 28 && offsetof(_ZDCC_FLOATVALUE_T, value) == 0 &&
              offsetof(_ZDCC_FLOATVALUE_T, maximum) == 4 &&
              offsetof(_ZDCC_FLOATVALUE_T, minimum) == 8 &&
              offsetof(_ZDCC_FLOATVALUE_T, reserved) == 12);
static_assert(sizeof(_ZDCC_ENUMVALUE_T) == 280 && offsetof(_ZDCC_ENUMVALUE_T, value) == 0 &&
              offsetof(_ZDCC_ENUMVALUE_T, supportedCount) == 4 &&
              offsetof(_ZDCC_ENUMVALUE_T, supported) == 8 &&
              offsetof(_ZDCC_ENUMVALUE_T, reserved) == 264);
static_assert(sizeof(_ZDCC_STRINGVALUE_T) == 272 && offsetof(_ZDCC_STRINGVALUE_T, value) == 0 &&
              offsetof(_ZDCC_STRINGVALUE_T, maximumLength) == 256 &&
              offsetof(_ZDCC_STRINGVALUE_T, reserved) == 264);
static_assert(sizeof(_OB_FT_DEVICEINFO_) == 148 && offsetof(_OB_FT_DEVICEINFO_, deviceType) == 0 &&
              offsetof(_OB_FT_DEVICEINFO_, deviceName) == 4 &&
              offsetof(_OB_FT_DEVICEINFO_, reserved) == 132);
static_assert(OB_FT_TYPE_INTEGER == 2 && OB_FT_TYPE_BOOLEAN == 3 && OB_FT_TYPE_COMMAND == 4 &&
              OB_FT_TYPE_FLOAT == 5 && OB_FT_TYPE_STRING == 6 && OB_FT_TYPE_ENUMERATION == 9);
static_assert(OB_FT_ACCESS_NOT_IMPLEMENTED == 0 && OB_FT_ACCESS_NOT_AVAILABLE == 1 &&
              OB_FT_ACCESS_WRITE_ONLY == 2 && OB_FT_ACCESS_READ_ONLY == 3 &&
              OB_FT_ACCESS_READ_WRITE == 4 && OB_FT_ACTION_WINDOW_HIDDEN == 1);
