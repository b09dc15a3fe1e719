// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

// Owner of a reference-counted object of the node-map library; gives its reference back.
struct GObjectDeleter
{
    void operator()(void* object) const;
};
template <typename T>
using GObjectPointer = std::unique_ptr<T, GObjectDeleter>;
