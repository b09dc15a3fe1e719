// SPDX-License-Identifier: Apache-2.0
#include "reading/FeatureDecider.h"

#include "device/OBDeviceControl.h"

bool FeatureDecider::IsFeatureValueLarge0(const QString& name) const
{
    const FeatureNodePtr node = m_nodes.node(name);
    if (node && node->tag == FeatureTag::Boolean) {
        bool value = false;
        return OBDeviceControl::GetBoolNodeValue(name, &value) && value;
    }
    _ZDCC_INTVALUE_EX_T value = {};
    return OBDeviceControl::GetIntegerNodeValue(name, &value) && value.value != 0;
}

bool FeatureDecider::isLarge0(const QString& name)
{
    const auto known = m_answers.constFind(name);
    if (known != m_answers.constEnd())
        return *known;
    const bool answer = IsFeatureValueLarge0(name);
    m_answers.insert(name, answer);
    return answer;
}
