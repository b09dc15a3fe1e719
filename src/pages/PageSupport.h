// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

class IORXFeatureWidget;
class ORXFeatureTree;
class QString;
class QVariant;

// What all curated pages have in common. GUI thread.
namespace PageSupport {

// Lets the page's view fill the page.
void fillWithView(IORXFeatureWidget* page);

// The camera's whole tree, null when it has none.
ORXFeatureTree* treeOf(qint64 cameraId);

// Writes through the camera's whole tree; true when there is none, since nothing can fail then.
bool writeThroughTree(qint64 cameraId, const QString& tagName, const QString& nodeName,
                      const QVariant& value);

} // namespace PageSupport
