// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"
#include "model/FeatureTag.h"

#include <memory>

// A new, empty value of the class that belongs to the tag.
std::unique_ptr<CTreeItemValue> makeItemValue(FeatureTag tag);
