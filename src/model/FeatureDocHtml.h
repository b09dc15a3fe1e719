// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/CTreeItemValue.h"

// The description panel's HTML of a feature. Written when it is to be shown: of thousands of
// features a user presses a few. Any thread.
namespace FeatureDocHtml {

// Name, explanation, attributes, value range and usable entries; empty before the first pass.
QString whole(const CTreeItemValue& value, const FeatureDocInputs& inputs, bool chinese);
inline QString whole(const CTreeItemValue& value, bool chinese)
{
    return whole(value, value.docInputs(), chinese);
}
// Name and explanation alone, which need no pass.
QString title(const CTreeItemValue& value, bool chinese);
// Value range or usable entries alone; empty before the first pass.
QString valueInfo(const CTreeItemValue& value, const FeatureDocInputs& inputs, bool chinese);

} // namespace FeatureDocHtml
