// SPDX-License-Identifier: Apache-2.0
#include "styledctl/ZELTheme.h"

ZELTheme* ZELTheme::instance()
{
    static ZELTheme theme;
    return &theme;
}
