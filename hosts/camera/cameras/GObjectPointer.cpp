// SPDX-License-Identifier: Apache-2.0
#include "cameras/GObjectPointer.h"

#include <glib-object.h>

void GObjectDeleter::operator()(void* object) const
{
    g_object_unref(object);
}
