// SPDX-License-Identifier: Apache-2.0
#include "reading/SelectorKeeper.h"

#include "device/OBDeviceControl.h"
#include "device/StopRequest.h"

std::optional<quint32> readEntryNumber(const QString& enumeration)
{
    _ZDCC_ENUMVALUE_T value = {};
    if (!OBDeviceControl::GetEnumNodeValue(enumeration, &value))
        return std::nullopt;
    return value.value;
}

SelectorKeeper::SelectorKeeper(const QString& selector)
    : m_selector(selector)
    , m_before(readEntryNumber(selector))
    , m_now(m_before)
{
}

SelectorKeeper::~SelectorKeeper()
{
    const StopRequest::PuttingBack puttingBack;
    if (m_before)
        select(*m_before, nullptr);
}

bool SelectorKeeper::select(quint32 entry, int* error)
{
    if (m_now == entry)
        return true;
    if (StopRequest::isHere())
        return false;
    // After a refused write nobody knows where it stands.
    m_now.reset();
    if (!OBDeviceControl::SetEnumNodeValue(m_selector, entry, error))
        return false;
    m_now = entry;
    return true;
}
