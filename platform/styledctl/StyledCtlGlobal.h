// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#if defined(STYLEDCTL_LIBRARY)
#define STYLEDCTL_EXPORT Q_DECL_EXPORT
#else
#define STYLEDCTL_EXPORT Q_DECL_IMPORT
#endif
