// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureVisibility.h"

#include "model/FeatureNode.h"

namespace {

const QLatin1String kBeginner("Beginner");

} // namespace

QString FeatureVisibility::invisible()
{
    return QStringLiteral("Invisible");
}

QString FeatureVisibility::of(const FeatureNode& node)
{
    if (!node.tagName.isEmpty() && !isFeatureElement(node.tag))
        return invisible();
    return node.visibility.isEmpty() ? QString(kBeginner) : node.visibility;
}

bool FeatureVisibility::isShownAt(const QString& visibility, int level)
{
    if (visibility.isEmpty())
        return true;
    if (level == 1)
        return visibility == kBeginner;
    return level == 0 && (visibility == kBeginner || visibility == QLatin1String("Expert") ||
                          visibility == QLatin1String("Guru"));
}
