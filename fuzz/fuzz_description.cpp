// SPDX-License-Identifier: Apache-2.0
// A camera's feature description, from the bytes of the host to tree and look-up tables.
#include "FuzzInput.h"
#include "model/FeatureDescriptionIndex.h"
#include "model/FeatureTreeBuilder.h"
#include "model/ORXPropertyTreeItem.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput::beQuiet();
    XmlDocument document;
    if (!document.setContent(FuzzInput::bytes(data, size)))
        return 0;
    FeatureDescriptionIndex index;
    FeatureTreeBuilder builder;
    ORXPropertyTreeItem root(nullptr, ORXPropertyTreeItem::FeatureTreePage);
    index.GenerateDomElementMap(document.documentElement());
    builder.createItems(&root, index.nodes(), nullptr);
    const QStringList names = builder.AllTreeItemsMap().keys();
    index.setItemNames(names);
    index.ResetFeaturesInvalidatorMap();
    index.GenerateFeaturePValueList();
    index.GenerateFeaturePairList();
    index.GenerateFeaturesTLParamsLocked();
    index.GeneratePSelectedList();
    index.GenerateFeatureNoCacheList();
    for (const QString& name : names) {
        // A list without the feature itself would leave a written value unread.
        if (index.GetFeatureInvalidatorList(name).count(name) != 1)
            std::abort();
    }
    return 0;
}
