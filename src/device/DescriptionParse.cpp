// SPDX-License-Identifier: Apache-2.0
#include "device/DescriptionParse.h"

#include "device/LoadingLane.h"

#include <QDebug>

#include <cstring>

DescriptionParse::DescriptionParse(const char* xml, const Then& then)
{
    if (!xml)
        return;
    m_parsed = LoadingLane::run([xml, then] {
        XmlDocument document;
        document.setContent(xml, std::strlen(xml));
        if (then)
            then(document);
        return document;
    });
}

DescriptionParse::~DescriptionParse()
{
    if (m_parsed.valid())
        m_parsed.wait();
}

void DescriptionParse::finish(XmlDocument& document)
{
    if (!m_parsed.valid())
        return;
    document = m_parsed.get();
    if (!document.documentElement())
        qCritical("%s", "Create XML pDeviceXml DomDocument Failed");
}
