// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureNode.h"

QStringList FeatureNode::texts(FeatureReference::Kind kind) const
{
    QStringList result;
    for (const FeatureReference& reference : references) {
        if (reference.kind == kind)
            result.append(reference.text);
    }
    return result;
}

QString FeatureNode::firstText(FeatureReference::Kind kind) const
{
    for (const FeatureReference& reference : references) {
        if (reference.kind == kind)
            return reference.text;
    }
    return {};
}
