// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/FeatureNode.h"

class QDomElement;

// Takes the record of one node out of the DOM.
FeatureNodePtr readFeatureNode(const QDomElement& element);
