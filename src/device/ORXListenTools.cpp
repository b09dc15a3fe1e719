// SPDX-License-Identifier: Apache-2.0
#include "device/ORXListenTools.h"

#include "device/IORXListen.h"

#include <algorithm>

ORXListenTools* ORXListenTools::m_pInstance = nullptr;

ORXListenTools* ORXListenTools::instance()
{
    if (!m_pInstance)
        m_pInstance = new ORXListenTools;
    return m_pInstance;
}

void ORXListenTools::release()
{
    delete m_pInstance;
    m_pInstance = nullptr;
}

void ORXListenTools::addListener(IORXListen* listener, PriorityLevel level)
{
    const auto index = static_cast<std::size_t>(level);
    if (index >= m_listeners.size())
        return;
    std::vector<IORXListen*>& listeners = m_listeners[index];
    if (std::find(listeners.begin(), listeners.end(), listener) == listeners.end())
        listeners.push_back(listener);
}

void ORXListenTools::removeListener(IORXListen* listener)
{
    for (std::vector<IORXListen*>& listeners : m_listeners) {
        const auto found = std::find(listeners.begin(), listeners.end(), listener);
        if (found != listeners.end()) {
            listeners.erase(found);
            return;
        }
    }
}

void ORXListenTools::notifyListeners(int code, void* data)
{
    for (std::vector<IORXListen*>& listeners : m_listeners) {
        // The size is taken afresh on every step: listeners may come and go during the pass.
        for (std::size_t i = 0; i < listeners.size(); ++i)
            listeners[i]->notify(code, data);
    }
}

void ORXListenTools::notifySpecifiedListener(IORXListen* listener, int code, void* data)
{
    if (listener)
        listener->notify(code, data);
}
