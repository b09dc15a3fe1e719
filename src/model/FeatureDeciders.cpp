// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureDeciders.h"

#include <QSet>

namespace {

bool isFormula(const FeatureNode& node)
{
    return node.tagName == QLatin1String("SwissKnife") ||
           node.tagName == QLatin1String("IntSwissKnife");
}

} // namespace

// Steps of our own instead of a recursion: a description may chain references without end.
class FeatureDeciders::Walk
{
public:
    Walk(const FeatureDeciders& deciders, const QString& feature, const RowOf& rowOf)
        : m_deciders(deciders)
        , m_feature(feature)
        , m_rowOf(rowOf)
    {
    }

    void follow(const QString& name)
    {
        m_pending = {{name, true, kNobody}};
        while (!m_pending.isEmpty())
            look(m_pending.takeLast());
    }

    QVector<Decider> found() const
    {
        QVector<Decider> found;
        for (const Found& each : m_found) {
            if (!each.isReplaced)
                found.append(each.decider);
        }
        return found;
    }

private:
    static constexpr int kNobody = -1;

    struct Step
    {
        QString name;
        bool isValueItself;
        int hidden; // of m_found: the feature without a shown row that stands above, or kNobody
    };
    struct Found
    {
        Decider decider;
        bool isReplaced; // by a feature with a shown row
    };

    // Whether the way ends at a feature; `hidden` may become this one.
    bool take(const Step& step, int& hidden)
    {
        const Row row = step.name == m_feature ? Row::None : m_rowOf(step.name);
        if (row == Row::Shown) {
            m_found.append({{step.name, step.isValueItself}, false});
            if (hidden != kNobody)
                m_found[hidden].isReplaced = true;
        } else if (row == Row::Hidden && hidden == kNobody) {
            hidden = int(m_found.size());
            m_found.append({{step.name, step.isValueItself}, false});
        }
        return row == Row::Shown;
    }

    // Who shows a register is who the user can turn to. What else his value depends on does not
    // decide.
    void takeHolders(const Step& step, int hidden)
    {
        QStringList pending = {step.name};
        while (!pending.isEmpty()) {
            const QStringList holders = m_deciders.m_holders.value(pending.takeFirst());
            for (const QString& holder : holders) {
                if (holder == m_feature || m_visited.contains(holder) || m_passed.contains(holder))
                    continue;
                m_passed.insert(holder);
                if (m_rowOf(holder) == Row::None) {
                    pending.append(holder);
                    continue;
                }
                m_visited.insert(holder);
                int above = hidden;
                take({holder, step.isValueItself, hidden}, above);
            }
        }
    }

    void look(const Step& step)
    {
        if (m_visited.contains(step.name))
            return;
        m_visited.insert(step.name);
        int hidden = step.hidden;
        if (take(step, hidden))
            return;
        takeHolders(step, hidden);
        QVector<Step> next;
        if (const FeatureNodePtr node = m_deciders.m_nodes.node(step.name)) {
            for (const FeatureReference& reference : node->references) {
                const bool isVariable = reference.kind == FeatureReference::PVariable;
                if (isVariable || reference.kind == FeatureReference::PValue)
                    next.append({reference.text, step.isValueItself && !isVariable, hidden});
            }
        }
        for (int i = int(next.size()) - 1; i >= 0; --i)
            m_pending.append(next.at(i));
    }

    const FeatureDeciders& m_deciders;
    const QString& m_feature;
    const RowOf& m_rowOf;
    QVector<Step> m_pending; // the next one last
    QSet<QString> m_visited;
    QSet<QString> m_passed; // on the way from registers to who shows them
    QVector<Found> m_found;
};

FeatureDeciders::FeatureDeciders(const FeatureNodeMap& nodes)
    : m_nodes(nodes)
{
    QSet<QString> done;
    for (const FeatureNodePtr& feature : nodes.featureElements()) {
        const QString from = feature->firstText(FeatureReference::PValue);
        if (from.isEmpty() || done.contains(feature->name))
            continue;
        done.insert(feature->name);
        m_holders[from].append(feature->name);
    }
}

QVector<FeatureNodePtr> FeatureDeciders::valueRoad(const QString& feature) const
{
    QVector<FeatureNodePtr> road;
    QSet<QString> visited;
    QString name = feature;
    while (!name.isEmpty() && !visited.contains(name)) {
        visited.insert(name);
        const FeatureNodePtr node = m_nodes.node(name);
        if (!node)
            break;
        road.append(node);
        name = node->firstText(FeatureReference::PValue);
    }
    return road;
}

// What the feature itself names was asked by the pass. What else makes the camera refuse stands
// below it.
QStringList FeatureDeciders::startsOf(const QString& feature, ReadOnlyCause cause) const
{
    const FeatureNodePtr node = m_nodes.node(feature);
    if (!node || cause == ReadOnlyCause::None)
        return {};
    if (cause == ReadOnlyCause::Locked)
        return {node->pIsLocked};
    if (cause == ReadOnlyCause::NotAvailable)
        return {node->pIsAvailable};
    QStringList names; // for the access mode
    const QVector<FeatureNodePtr> below = valueRoad(feature).mid(1);
    for (const FeatureNodePtr& each : below) {
        if (!each->pIsLocked.isEmpty())
            names.append(each->pIsLocked);
    }
    return names;
}

QVector<FeatureDeciders::Decider> FeatureDeciders::of(const QString& feature, ReadOnlyCause cause,
                                                      const RowOf& rowOf) const
{
    Walk walk(*this, feature, rowOf);
    const QStringList starts = startsOf(feature, cause);
    for (const QString& name : starts)
        walk.follow(name);
    return walk.found();
}

bool FeatureDeciders::canEverBeWritten(const QString& feature) const
{
    const QVector<FeatureNodePtr> road = valueRoad(feature);
    for (const FeatureNodePtr& node : road) {
        if (node->accessMode == QLatin1String("RO") || isFormula(*node))
            return false;
    }
    return true;
}
