// SPDX-License-Identifier: Apache-2.0
#include "changes/SelectorPositions.h"

#include "changes/ExactValue.h"
#include "device/StopRequest.h"

#include <algorithm>

SelectorPositions::SelectorPositions(const FeatureNodeMap& nodes,
                                     const FeatureFileOrder::Selectors& selectors)
    : m_nodes(nodes)
    , m_selectors(selectors)
{
}

SelectorPositions::~SelectorPositions()
{
    putBack();
}

int SelectorPositions::indexOf(const QString& selector) const
{
    const auto isIt = [&](const Moved& moved) { return moved.name == selector; };
    return static_cast<int>(std::find_if(m_moved.begin(), m_moved.end(), isIt) - m_moved.begin());
}

bool SelectorPositions::move(const QString& selector, const QString& value, int* error)
{
    const FeatureNodePtr node = m_nodes.node(selector);
    if (!node || StopRequest::isHere())
        return false;
    int index = indexOf(selector);
    if (index == m_moved.size()) {
        const ExactValue::Read stands = ExactValue::read(*node);
        if (!stands.known) {
            if (error)
                *error = stands.error;
            return false;
        }
        m_moved.append({selector, stands.text, stands.text});
    }
    if (ExactValue::areEqual(*node, m_moved.at(index).now, value))
        return true;
    putBackFrom(index + 1, m_selectors.selectedBy(selector));
    // After a refused write nobody knows where it stands.
    m_moved[index].now = QString();
    if (ExactValue::write(*node, value, error) != ExactValue::Written::Done)
        return false;
    m_moved[index].now = value;
    return true;
}

bool SelectorPositions::move(const QVector<SelectorSetting>& settings, int* error)
{
    return std::all_of(settings.begin(), settings.end(), [&](const SelectorSetting& setting) {
        return move(setting.selector, setting.value, error);
    });
}

QString SelectorPositions::before(const QString& selector) const
{
    const int index = indexOf(selector);
    return index < m_moved.size() ? m_moved.at(index).before : QString();
}

void SelectorPositions::stays(const QString& selector, const QString& value)
{
    const int index = indexOf(selector);
    if (index < m_moved.size()) {
        m_moved[index].before = value;
        m_moved[index].now = value;
    }
}

void SelectorPositions::putBack()
{
    while (!m_moved.isEmpty())
        putBack(m_moved.takeLast());
}

// Those among `names` that were moved later than the one before `index`.
void SelectorPositions::putBackFrom(int index, const QStringList& names)
{
    for (int i = int(m_moved.size()) - 1; i >= index; --i) {
        if (names.contains(m_moved.at(i).name))
            putBack(m_moved.takeAt(i));
    }
}

void SelectorPositions::putBack(const Moved& moved)
{
    const FeatureNodePtr node = m_nodes.node(moved.name);
    const StopRequest::PuttingBack puttingBack;
    if (!ExactValue::areEqual(*node, moved.now, moved.before))
        ExactValue::write(*node, moved.before, nullptr);
}
