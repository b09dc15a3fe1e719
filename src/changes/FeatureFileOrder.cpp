// SPDX-License-Identifier: Apache-2.0
#include "changes/FeatureFileOrder.h"

#include "changes/ExactValue.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace {

// A selector stands somewhere: at an entry, a number, or on one of two sides.
bool canSelect(FeatureTag tag)
{
    return tag == FeatureTag::Enumeration || tag == FeatureTag::Integer ||
           tag == FeatureTag::IntReg || tag == FeatureTag::Boolean;
}

// What is reached from `start`, in the order in which the last of each one's successors was left:
// successors before what leads to them, once each, also in circles.
QStringList leftLast(const QHash<QString, QStringList>& graph, const QString& start)
{
    QStringList result;
    QSet<QString> seen = {start};
    QVector<std::pair<QString, int>> path = {{start, 0}};
    while (!path.isEmpty()) {
        const QStringList next = graph.value(path.last().first);
        if (path.last().second < next.size()) {
            const QString& name = next.at(path.last().second++);
            if (!seen.contains(name)) {
                seen.insert(name);
                path.append({name, 0});
            }
            continue;
        }
        result.append(path.takeLast().first);
    }
    result.removeLast(); // the start itself
    return result;
}

} // namespace

FeatureFileOrder::Selectors::Selectors(const FeatureNodeMap& nodes)
{
    for (const FeatureNodePtr& element : nodes.featureElements()) {
        const FeatureNodePtr node = nodes.node(element->name);
        if (node != element || !canSelect(node->tag))
            continue;
        for (const QString& feature : node->texts(FeatureReference::PSelected)) {
            m_selectedBy[feature].append(node->name);
            m_selectors[node->name].append(feature);
        }
    }
}

QStringList FeatureFileOrder::Selectors::of(const QString& feature) const
{
    return leftLast(m_selectedBy, feature);
}

QStringList FeatureFileOrder::Selectors::selectedBy(const QString& selector) const
{
    return leftLast(m_selectors, selector);
}

QStringList FeatureFileOrder::Selectors::allConcerned() const
{
    QStringList names = m_selectors.keys() + m_selectedBy.keys();
    names.removeDuplicates();
    return names;
}

QVector<FeatureFileGroup> FeatureFileOrder::groups(const FeatureNodeMap& nodes,
                                                   const QStringList& names)
{
    const QSet<QString> wanted(names.begin(), names.end());
    const Selectors selectors(nodes);
    QVector<FeatureFileGroup> result;
    QHash<QString, int> places; // of a group, by its selectors
    QSet<QString> onTheWay;
    for (const FeatureNodePtr& element : nodes.featureElements()) {
        const FeatureNodePtr node = nodes.node(element->name);
        if (node != element || !wanted.contains(node->name) || !ExactValue::hasValue(node->tag) ||
            node->streamable.compare(QLatin1String("Yes"), Qt::CaseInsensitive) != 0)
            continue;
        FeatureFileGroup group;
        group.selectors = selectors.of(node->name);
        const QString key = group.selectors.join(QLatin1Char('\n'));
        // Plain features stand between groups, where the description has them.
        const bool isPlain = group.selectors.isEmpty();
        const int place = isPlain ? (result.isEmpty() || !result.last().selectors.isEmpty()
                                         ? -1
                                         : int(result.size()) - 1)
                                  : places.value(key, -1);
        if (place < 0) {
            places.insert(key, int(result.size()));
            result.append(group);
        }
        result[place < 0 ? result.size() - 1 : place].features.append(node->name);
        for (const QString& selector : qAsConst(group.selectors))
            onTheWay.insert(selector);
    }
    for (FeatureFileGroup& group : result) {
        const auto isOnTheWay = [&](const QString& name) { return onTheWay.contains(name); };
        group.features.erase(
            std::remove_if(group.features.begin(), group.features.end(), isOnTheWay),
            group.features.end());
    }
    const auto isEmpty = [](const FeatureFileGroup& group) { return group.features.isEmpty(); };
    result.erase(std::remove_if(result.begin(), result.end(), isEmpty), result.end());
    return result;
}
