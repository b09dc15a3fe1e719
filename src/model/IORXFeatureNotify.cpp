// SPDX-License-Identifier: Apache-2.0
#include "model/IORXFeatureNotify.h"

void IORXFeatureNotify::itemVisibleChanged(qint64, ORXPropertyTreeItem*, bool) {}
void IORXFeatureNotify::itemExpanded(qint64, ORXPropertyTreeItem*, bool) {}
void IORXFeatureNotify::itemValueChanged(qint64, ORXPropertyTreeItem*, int, bool) {}
void IORXFeatureNotify::itemSpecialInfoChanged(qint64, ORXPropertyTreeItem*, int) {}
