// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "device/XmlDocument.h"
#include "model/FeatureDescriptionIndex.h"
#include "model/FeatureTreeBuilder.h"
#include "model/ORXPropertyTreeItem.h"

#include <functional>
#include <stdexcept>

// Fills the index from the description, with the items of these names in the tree.
inline void fillIndex(FeatureDescriptionIndex& index, const XmlDocument& document,
                      const std::function<QStringList()>& itemNames)
{
    index.GenerateDomElementMap(document.documentElement());
    index.setItemNames(itemNames());
    index.ResetFeaturesInvalidatorMap();
    index.GenerateFeaturePValueList();
    index.GenerateFeaturePairList();
    index.GenerateFeaturesTLParamsLocked();
    index.GeneratePSelectedList();
    index.GenerateFeatureNoCacheList();
}

// A description turned into index and items, without widgets.
class LoadedDescription
{
public:
    explicit LoadedDescription(const QByteArray& xml)
    {
        XmlDocument document;
        if (!document.setContent(xml))
            throw std::invalid_argument("description does not parse");
        fillIndex(index, document, [this] {
            builder.createItems(&root, index.nodes(), nullptr);
            return builder.AllTreeItemsMap().keys();
        });
    }
    ORXPropertyTreeItem* item(const char* name) const
    {
        return builder.AllTreeItemsMap().value(QString::fromLatin1(name), nullptr);
    }
    FeatureNodePtr node(const char* name) const
    {
        return index.GetDomElementNode(QString::fromLatin1(name));
    }

    ORXPropertyTreeItem root{nullptr, ORXPropertyTreeItem::FeatureTreePage};
    FeatureDescriptionIndex index;
    FeatureTreeBuilder builder;
};
