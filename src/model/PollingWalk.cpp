// SPDX-License-Identifier: Apache-2.0
#include "model/PollingWalk.h"

namespace {

constexpr int kOnPath = -1;

bool leadsOn(const FeatureReference& reference)
{
    return reference.kind == FeatureReference::PValue ||
           reference.kind == FeatureReference::PVariable;
}

} // namespace

// Steps of our own instead of a recursion: a description may chain references without end.
int PollingWalk::follow(const QString& name)
{
    if (!m_found.contains(name))
        begin(name);
    while (!m_path.isEmpty())
        goOn();
    return m_found.value(name);
}

void PollingWalk::begin(const QString& name)
{
    m_found.insert(name, kOnPath);
    m_path.append({name, m_nodes.node(name), 0});
}

// From the last node of the path to the next one below it, or back.
void PollingWalk::goOn()
{
    Step& step = m_path.last();
    int found = 0;
    while (step.node && found == 0 && step.next < step.node->references.size()) {
        const FeatureReference& reference = step.node->references.at(step.next);
        if (!leadsOn(reference)) {
            const Look look = m_judge(reference);
            found = look.found;
            if (look.endsNode)
                break;
        } else {
            const auto below = m_found.constFind(reference.text);
            if (below == m_found.constEnd()) {
                begin(reference.text);
                return; // and back to the same reference
            }
            if (*below > 0)
                found = *below;
            else if (*below == kOnPath && m_circleAt.isNull())
                m_circleAt = reference.text;
        }
        ++step.next;
    }
    m_found.insert(step.name, found);
    m_path.removeLast();
}
