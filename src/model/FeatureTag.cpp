// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureTag.h"

#include <QHash>

#include <array>

namespace {

const std::array<QLatin1String, kFeatureTagCount> kNames = {
    QLatin1String("Category"),
    QLatin1String("Boolean"),
    QLatin1String("Command"),
    QLatin1String("Integer"),
    QLatin1String("IntReg"),
    QLatin1String("Enumeration"),
    QLatin1String("Float"),
    QLatin1String("Converter"),
    QLatin1String("StringReg"),
    QLatin1String("String"),
    QLatin1String("CustomTagNameDraw"),
    QLatin1String("CustomTagNameWatermark"),
    QLatin1String("CustomTagNameEvent"),
    QLatin1String("CustomTagNameCCM"),
    QLatin1String("CustomTagNamePalettesMode"),
    QLatin1String("CustomTagNameFlatFieldCorrection"),
    QLatin1String(""),
};

} // namespace

QLatin1String featureTagName(FeatureTag tag)
{
    return kNames[static_cast<std::size_t>(tag)];
}

FeatureTag featureTag(const QString& name)
{
    static const QHash<QString, FeatureTag> tags = [] {
        QHash<QString, FeatureTag> result;
        for (int i = 0; i < kFeatureTagCount - 1; ++i)
            result.insert(kNames[static_cast<std::size_t>(i)], static_cast<FeatureTag>(i));
        return result;
    }();
    return tags.value(name, FeatureTag::Other);
}

bool isFeatureElement(FeatureTag tag)
{
    return tag <= FeatureTag::String;
}
