// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

class FeatureNodeMap;

// Which features the description wants to be read again by themselves, and how often. Walks along
// references take linear time and survive circles.
namespace FeaturePolling {

int pollingTime(const FeatureNodeMap& nodes, const QString& name); // milliseconds, 0 for none
bool isNoCache(const FeatureNodeMap& nodes, const QString& name);
// Of the named features those that are polled, with their intervals, multiples of 50 ms.
QMap<QString, int> intervals(const FeatureNodeMap& nodes, const QStringList& names);

} // namespace FeaturePolling
