// SPDX-License-Identifier: Apache-2.0
#include "device/DescriptionParse.h"

#include <QDebug>

#include <cstring>

DescriptionParse::DescriptionParse(const char* xml)
{
    if (!xml)
        return;
    m_parsed = std::async(std::launch::async | std::launch::deferred, [xml] {
        XmlDocument document;
        document.setContent(xml, std::strlen(xml));
        return document;
    });
}

void DescriptionParse::finish(XmlDocument& document)
{
    if (!m_parsed.valid())
        return;
    document = m_parsed.get();
    if (!document.documentElement())
        qCritical("%s", "Create XML pDeviceXml DomDocument Failed");
}
