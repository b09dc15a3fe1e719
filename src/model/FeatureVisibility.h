// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

struct FeatureNode;

// Who sees a feature, by the description alone. Any thread.
namespace FeatureVisibility {

// "Invisible", as an item says that it shows to nobody.
QString invisible();

// What the description says of the node: its own word, "Beginner" without one, "Invisible" for a
// node that is no feature.
QString of(const FeatureNode& node);

// Whether a user of the level (0: Guru, 1: Beginner, others see nothing) sees it; an empty word is
// seen by all.
bool isShownAt(const QString& visibility, int level);

} // namespace FeatureVisibility
