// SPDX-License-Identifier: Apache-2.0
#include "reading/FeatureDocText.h"

#include "device/StopRequest.h"
#include "model/CTreeItemValue.h"
#include "model/FeatureDocHtml.h"
#include "model/ORXPropertyTreeItem.h"
#include "reading/FeatureDecider.h"

namespace {

bool isChinese(const QString& language)
{
    return language == QLatin1String("CH");
}

} // namespace

FeatureDocText::FeatureDocText(FeatureDecider& decider)
    : m_decider(decider)
{
}

FeatureDocInputs FeatureDocText::inputsOf(const FeatureNodePtr& node, const QString& streamable,
                                          const ORXPropertyTreeItem* item)
{
    FeatureDocInputs inputs{node, item->visibilityString(), streamable, {}};
    inputs.usableEntries.reserve(int(node->entries.size()));
    for (const FeatureEnumEntry& entry : node->entries)
        inputs.usableEntries.append(m_decider.IsFeatureImplemented(entry.pIsImplemented) &&
                                    m_decider.IsFeatureAvailable(entry.pIsAvailable));
    return inputs;
}

bool FeatureDocText::update(const FeatureNodePtr& node, ORXPropertyTreeItem* item)
{
    const QString streamable = node->streamable.isEmpty() ? QStringLiteral("No") : node->streamable;
    const FeatureDocInputs inputs = inputsOf(node, streamable, item);
    // The camera may have been asked which entries it has.
    if (StopRequest::isHere())
        return false;
    item->value()->setDocInputs(inputs);
    return true;
}

QString FeatureDocText::GetFeatureTitleText(const CTreeItemValue& value, const QString& language)
{
    return FeatureDocHtml::title(value, isChinese(language));
}

QString FeatureDocText::GetFeatureDocText(const FeatureNodePtr& node, const QString& streamable,
                                          const ORXPropertyTreeItem* item, const QString& language)
{
    return FeatureDocHtml::whole(*item->value(), inputsOf(node, streamable, item),
                                 isChinese(language));
}

QString FeatureDocText::GetFeatureValueInfo(const FeatureNodePtr& node,
                                            const ORXPropertyTreeItem* item,
                                            const QString& language)
{
    return FeatureDocHtml::valueInfo(*item->value(), inputsOf(node, QString(), item),
                                     isChinese(language));
}
