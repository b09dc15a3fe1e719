// SPDX-License-Identifier: Apache-2.0
#include "description/DescriptionReader.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

namespace {

using TextMember = std::string DescriptionNode::*;
using ListMember = std::vector<std::string> DescriptionNode::*;
using EntryMember = std::string DescriptionEntry::*;

const QHash<QString, TextMember>& textMembers()
{
    static const QHash<QString, TextMember> members{
        {QStringLiteral("DisplayName"), &DescriptionNode::displayName},
        {QStringLiteral("Description"), &DescriptionNode::description},
        {QStringLiteral("Visibility"), &DescriptionNode::visibility},
        {QStringLiteral("pPort"), &DescriptionNode::pPort},
        {QStringLiteral("AccessMode"), &DescriptionNode::accessMode},
        {QStringLiteral("pValue"), &DescriptionNode::pValue},
        {QStringLiteral("pMin"), &DescriptionNode::pMin},
        {QStringLiteral("pMax"), &DescriptionNode::pMax},
        {QStringLiteral("pInc"), &DescriptionNode::pInc},
        {QStringLiteral("pIsImplemented"), &DescriptionNode::pIsImplemented},
        {QStringLiteral("pIsAvailable"), &DescriptionNode::pIsAvailable},
        {QStringLiteral("pIsLocked"), &DescriptionNode::pIsLocked},
    };
    return members;
}

const QHash<QString, ListMember>& listMembers()
{
    static const QHash<QString, ListMember> members{
        {QStringLiteral("pValue"), &DescriptionNode::references},
        {QStringLiteral("pValueIndexed"), &DescriptionNode::references},
        {QStringLiteral("pValueDefault"), &DescriptionNode::references},
        {QStringLiteral("pVariable"), &DescriptionNode::references},
        {QStringLiteral("pIndex"), &DescriptionNode::references},
        {QStringLiteral("pAddress"), &DescriptionNode::references},
        {QStringLiteral("pCommandValue"), &DescriptionNode::references},
        {QStringLiteral("pLength"), &DescriptionNode::lengths},
        {QStringLiteral("pSelected"), &DescriptionNode::selected},
        {QStringLiteral("pFeature"), &DescriptionNode::features},
        {QStringLiteral("StartValue"), &DescriptionNode::startValues},
    };
    return members;
}

const QHash<QString, EntryMember>& entryMembers()
{
    static const QHash<QString, EntryMember> members{
        {QStringLiteral("pIsImplemented"), &DescriptionEntry::pIsImplemented},
        {QStringLiteral("pIsAvailable"), &DescriptionEntry::pIsAvailable},
        {QStringLiteral("pIsLocked"), &DescriptionEntry::pIsLocked},
    };
    return members;
}

// Decimal or with "0x"; 0 for anything else.
std::int64_t number(const std::string& text)
{
    const QString digits = QString::fromStdString(text);
    bool ok = false;
    const qint64 value = digits.toLongLong(&ok, 0);
    return ok ? value : static_cast<qint64>(digits.toULongLong(&ok, 0));
}

void append(std::vector<std::string>& to, const std::vector<std::string>& from)
{
    to.insert(to.end(), from.begin(), from.end());
}

void fillUp(std::string& text, const std::string& with)
{
    if (text.empty())
        text = with;
}

} // namespace

bool DescriptionReader::read(const std::string& xml)
{
    m_xml.setNamespaceProcessing(false);
    m_xml.addData(QByteArray::fromRawData(xml.data(), static_cast<int>(xml.size())));
    while (!m_xml.atEnd()) {
        switch (m_xml.readNext()) {
        case QXmlStreamReader::StartElement:
            startElement();
            break;
        case QXmlStreamReader::EndElement:
            endElement();
            break;
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::EntityReference:
            if (!m_levels.empty() && m_levels.back().role == Role::Part)
                m_levels.back().text += m_xml.text();
            break;
        default:
            break;
        }
    }
    if (!m_xml.hasError() && m_usable)
        return true;
    m_nodes.clear();
    return false;
}

DescriptionReader::Role DescriptionReader::roleOf(const QString& tag, bool named) const
{
    if (m_levels.empty())
        return Role::Wrapper;
    switch (m_levels.back().role) {
    case Role::Wrapper:
    case Role::Struct:
        if (tag == QLatin1String("StructReg"))
            return Role::Struct;
        if (named)
            return Role::Node;
        return m_levels.back().role == Role::Struct ? Role::Part : Role::Wrapper;
    case Role::Node:
        return tag == QLatin1String("EnumEntry") ? Role::Entry : Role::Part;
    case Role::Entry:
    case Role::Part:
        break;
    }
    return Role::Part;
}

void DescriptionReader::startElement()
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    const QString tag = m_xml.qualifiedName().toString();
    const std::string name = attributes.value(QLatin1String("Name")).toString().toStdString();
    m_usable = m_usable && m_levels.size() < kMaxNesting;
    if (m_levels.empty()) {
        m_usable = tag == QLatin1String("RegisterDescription");
        m_vendorName = attributes.value(QLatin1String("VendorName")).toString().toStdString();
        m_modelName = attributes.value(QLatin1String("ModelName")).toString().toStdString();
    }
    // A group may be named too, but it holds nodes and is none.
    const bool group = tag == QLatin1String("Group");
    const Role role = roleOf(tag, !name.empty() && !group);
    m_levels.push_back({role, tag, QString()});
    switch (role) {
    case Role::Struct:
        m_struct = DescriptionNode();
        m_inStruct = true;
        break;
    case Role::Node:
        m_node = DescriptionNode();
        m_node.name = name;
        m_node.tag = tag.toStdString();
        break;
    case Role::Entry:
        m_node.entries.push_back(DescriptionEntry());
        m_node.entries.back().name = name;
        m_inEntry = true;
        break;
    case Role::Wrapper:
    case Role::Part:
        break;
    }
}

void DescriptionReader::endElement()
{
    const Level level = m_levels.back();
    m_levels.pop_back();
    switch (level.role) {
    case Role::Struct:
        m_inStruct = false;
        break;
    case Role::Node:
        finishNode();
        break;
    case Role::Entry:
        m_inEntry = false;
        break;
    case Role::Part:
        takePart(level.tag, level.text.trimmed().toStdString());
        break;
    case Role::Wrapper:
        break;
    }
}

void DescriptionReader::takePart(const QString& tag, const std::string& text)
{
    if (m_inEntry) {
        DescriptionEntry& entry = m_node.entries.back();
        if (const EntryMember member = entryMembers().value(tag))
            entry.*member = text;
        else if (tag == QLatin1String("Value"))
            entry.value = number(text);
        return;
    }
    const bool ofStruct = std::none_of(m_levels.begin(), m_levels.end(),
                                       [](const Level& level) { return level.role == Role::Node; });
    DescriptionNode& node = ofStruct ? m_struct : m_node;
    if (const TextMember member = textMembers().value(tag))
        fillUp(node.*member, text);
    if (const ListMember member = listMembers().value(tag))
        (node.*member).push_back(text);
    else if (tag == QLatin1String("StartValues")) {
        const QStringList parts =
            QString::fromStdString(text).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString& part : parts)
            node.startValues.push_back(part.toStdString());
    } else if (tag == QLatin1String("Length"))
        node.length = std::max(node.length, number(text));
    else if (tag == QLatin1String("Address"))
        node.address += static_cast<std::uint64_t>(number(text));
    else if (tag == QLatin1String("Endianess"))
        node.bigEndian = text == "BigEndian";
    else if (tag == QLatin1String("ChunkID") || tag == QLatin1String("EventID"))
        node.isDataPort = true;
    else if (tag == QLatin1String("Streamable"))
        node.streamable = text == "Yes";
}

void DescriptionReader::finishNode()
{
    if (m_inStruct) {
        append(m_node.references, m_struct.references);
        append(m_node.lengths, m_struct.lengths);
        fillUp(m_node.pIsImplemented, m_struct.pIsImplemented);
        fillUp(m_node.pIsAvailable, m_struct.pIsAvailable);
        fillUp(m_node.pIsLocked, m_struct.pIsLocked);
        fillUp(m_node.pPort, m_struct.pPort);
        fillUp(m_node.accessMode, m_struct.accessMode);
        m_node.length = std::max(m_node.length, m_struct.length);
        m_node.address += m_struct.address;
        m_node.bigEndian = m_struct.bigEndian;
        m_node.streamable = m_node.streamable || m_struct.streamable;
    }
    append(m_node.references, m_node.lengths);
    m_nodes.push_back(std::move(m_node));
    m_node = DescriptionNode();
}
