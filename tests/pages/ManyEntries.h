// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "pages/MeddledCamera.h"
#include "support/DescriptionBuilder.h"
#include "support/Literals.h"

#include <OBFeatureTree/OBFeatureTree.h>

// Adds to the other camera two enumerations, "AaMany" and "AaManyGuru", of which each entry asks a
// feature of its own whether it is available.
class ManyEntries : public MeddledCamera
{
public:
    explicit ManyEntries(Camera& camera)
        : MeddledCamera(camera)
    {
        using namespace DescriptionBuilder;
        QString xml = QString::fromStdString(camera.descriptionXml());
        const int category = int(xml.indexOf("Name=\"DeviceControl\""_s));
        xml.insert(xml.indexOf("<pFeature>"_s, category),
                   child("pFeature"_s, "AaMany"_s) + child("pFeature"_s, "AaManyGuru"_s));
        for (const QString& name : {"AaMany"_s, "AaManyGuru"_s}) {
            QString inner = child("Visibility"_s, name == "AaMany"_s ? "Beginner"_s : "Guru"_s);
            for (int entry = 0; entry < 40; ++entry) {
                const QString decider = name + "Decider%1"_s.arg(entry);
                inner += node("EnumEntry"_s, "Entry%1"_s.arg(entry),
                              child("pIsAvailable"_s, decider) +
                                  child("Value"_s, QString::number(entry)));
                xml.insert(xml.lastIndexOf("</"_s), node("Integer"_s, decider));
            }
            xml.insert(xml.lastIndexOf("</"_s), node("Enumeration"_s, name, inner));
        }
        m_xml = xml.toStdString();
    }

    const std::string& descriptionXml() const override { return m_xml; }
    int read(int type, const std::string& name, void* record) override
    {
        const int result = MeddledCamera::read(type, name, record);
        if (name.rfind("AaMany", 0) != 0)
            return result;
        if (type == OB_FT_TYPE_ENUMERATION)
            *static_cast<_ZDCC_ENUMVALUE_T*>(record) = {};
        else
            static_cast<_ZDCC_INTVALUE_EX_T*>(record)->value = 1;
        return 0;
    }
    int accessMode(const std::string& name, int* mode) override
    {
        const int result = MeddledCamera::accessMode(name, mode);
        if (name.rfind("AaMany", 0) != 0)
            return result;
        *mode = OB_FT_ACCESS_READ_WRITE;
        return 0;
    }

private:
    std::string m_xml;
};
