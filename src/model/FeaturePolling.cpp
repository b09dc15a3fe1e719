// SPDX-License-Identifier: Apache-2.0
#include "model/FeaturePolling.h"

#include "model/PollingWalk.h"

#include <QDebug>

namespace {

constexpr int kPollingGridMs = 50;
constexpr int kNoCacheIntervalMs = 2000;

PollingWalk::Look pollingTimeIn(const FeatureReference& reference)
{
    if (reference.kind != FeatureReference::PollingTime)
        return {};
    return {true, qMax(0, reference.text.toInt())};
}

PollingWalk::Look noCacheIn(const FeatureReference& reference)
{
    const bool noCache =
        reference.kind == FeatureReference::Cachable && reference.text == QLatin1String("NoCache");
    return {noCache, noCache ? 1 : 0};
}

// t brought to the nearest multiple of 50 ms, half upwards, 50 at the least.
int onPollingGrid(int milliseconds)
{
    const qint64 steps = (static_cast<qint64>(milliseconds) + kPollingGridMs / 2) / kPollingGridMs;
    return static_cast<int>(qMax<qint64>(1, qMin<qint64>(steps, 1000000)) * kPollingGridMs);
}

} // namespace

int FeaturePolling::pollingTime(const FeatureNodeMap& nodes, const QString& name)
{
    return PollingWalk(nodes, pollingTimeIn).follow(name);
}

bool FeaturePolling::isNoCache(const FeatureNodeMap& nodes, const QString& name)
{
    return PollingWalk(nodes, noCacheIn).follow(name) > 0;
}

QMap<QString, int> FeaturePolling::intervals(const FeatureNodeMap& nodes, const QStringList& names)
{
    QMap<QString, int> result;
    PollingWalk times(nodes, pollingTimeIn);
    PollingWalk caching(nodes, noCacheIn);
    for (const QString& name : names) {
        const int time = times.follow(name);
        if (time > 0)
            result.insert(name, onPollingGrid(time));
        else if (caching.follow(name) > 0)
            result.insert(name, kNoCacheIntervalMs);
    }
    const QString& circle = times.circleAt();
    if (!circle.isNull())
        qCritical().noquote() << QStringLiteral(
                                     "Feature description: node %1 refers to itself in a circle")
                                     .arg(circle);
    return result;
}
