// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#if defined(BASETOOLS_LIBRARY)
#define BASETOOLS_EXPORT Q_DECL_EXPORT
#else
#define BASETOOLS_EXPORT Q_DECL_IMPORT
#endif
