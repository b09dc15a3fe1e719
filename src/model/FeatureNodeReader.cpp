// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureNodeReader.h"

#include "basetools/ORXInterface.h"

namespace {

constexpr char kName[] = "Name";
constexpr char kNameSpace[] = "NameSpace";

// A table by the bytes of an element's name.
template <typename Value>
using ByName = std::unordered_map<std::string_view, Value>;

// Child elements whose text is a field of the record. The first of "ImposedAccessMode" and
// "AccessMode" counts; of every other element the last one does.
struct NodeField
{
    QString FeatureNode::*text;
    bool trimmed;
    bool firstCounts;
};

const ByName<NodeField>& nodeFields()
{
    static const ByName<NodeField> fields = {
        {"DisplayName", {&FeatureNode::displayName, false, false}},
        {"Description", {&FeatureNode::description, false, false}},
        {"Visibility", {&FeatureNode::visibility, true, false}},
        {"Streamable", {&FeatureNode::streamable, true, false}},
        {"Representation", {&FeatureNode::representation, true, false}},
        {"Unit", {&FeatureNode::unit, true, false}},
        {"ImposedAccessMode", {&FeatureNode::accessMode, true, true}},
        {"AccessMode", {&FeatureNode::accessMode, true, true}},
        {"pIsImplemented", {&FeatureNode::pIsImplemented, true, false}},
        {"pIsAvailable", {&FeatureNode::pIsAvailable, true, false}},
        {"pIsLocked", {&FeatureNode::pIsLocked, true, false}},
    };
    return fields;
}

const ByName<FeatureReference::Kind>& referenceKinds()
{
    static const ByName<FeatureReference::Kind> kinds = {
        {"pValue", FeatureReference::PValue},
        {"pVariable", FeatureReference::PVariable},
        {"pInvalidator", FeatureReference::PInvalidator},
        {"pMin", FeatureReference::PMin},
        {"pMax", FeatureReference::PMax},
        {"pInc", FeatureReference::PInc},
        {"pIsLocked", FeatureReference::PIsLocked},
        {"pIsImplemented", FeatureReference::PIsImplemented},
        {"pIsAvailable", FeatureReference::PIsAvailable},
        {"pSelected", FeatureReference::PSelected},
        {"pFeature", FeatureReference::PFeature},
        {"PollingTime", FeatureReference::PollingTime},
        {"Cachable", FeatureReference::Cachable},
    };
    return kinds;
}

const ByName<QString FeatureEnumEntry::*>& entryFields()
{
    static const ByName<QString FeatureEnumEntry::*> fields = {
        {"DisplayName", &FeatureEnumEntry::displayName},
        {"Value", &FeatureEnumEntry::valueText},
        {"Visibility", &FeatureEnumEntry::visibility},
        {"pIsImplemented", &FeatureEnumEntry::pIsImplemented},
        {"pIsAvailable", &FeatureEnumEntry::pIsAvailable},
        {"pIsLocked", &FeatureEnumEntry::pIsLocked},
    };
    return fields;
}

} // namespace

QString FeatureNodeReader::kept(std::string_view utf8)
{
    if (utf8.empty())
        return QStringLiteral("");
    const auto [place, isNew] = m_texts.try_emplace(utf8);
    if (isNew)
        place->second = XmlText::toString(utf8).trimmed();
    return place->second;
}

// Trimmed text of an element. What holds a single text, as nearly all elements do, is kept.
QString FeatureNodeReader::keptText(pugi::xml_node element)
{
    return XmlText::isOnePiece(element) ? kept(XmlText::trimmed(element))
                                        : XmlText::of(element).trimmed();
}

QString FeatureNodeReader::keptAttribute(pugi::xml_node element, const char* name)
{
    return kept(element.attribute(name).value());
}

FeatureEnumEntry FeatureNodeReader::readEntry(pugi::xml_node element)
{
    FeatureEnumEntry entry;
    entry.name = keptAttribute(element, kName);
    entry.nameSpace = keptAttribute(element, kNameSpace);
    for (pugi::xml_node child = XmlText::firstElement(element); child;
         child = XmlText::nextElement(child)) {
        const auto field = entryFields().find(child.name());
        if (field != entryFields().end())
            entry.*field->second = keptText(child);
    }
    entry.value = ORXInterface::string2Int(entry.valueText);
    return entry;
}

QStringList FeatureNodeReader::invalidatorsBefore(pugi::xml_node element)
{
    QStringList result;
    constexpr char kInvalidator[] = "pInvalidator";
    for (pugi::xml_node sibling = element.previous_sibling(kInvalidator); sibling;
         sibling = sibling.previous_sibling(kInvalidator))
        result.append(keptText(sibling));
    return result;
}

void FeatureNodeReader::readChild(pugi::xml_node child, FeatureNode& node)
{
    const std::string_view tag = child.name();
    const auto kind = referenceKinds().find(tag);
    if (kind != referenceKinds().end())
        node.references.append({kind->second, keptText(child)});
    const auto field = nodeFields().find(tag);
    if (field == nodeFields().end())
        return;
    QString& target = node.*field->second.text;
    if (field->second.firstCounts && !target.isEmpty())
        return;
    target = field->second.trimmed ? keptText(child) : XmlText::of(child);
}

FeatureNodePtr FeatureNodeReader::read(pugi::xml_node element)
{
    constexpr std::string_view kEntry = "EnumEntry";
    auto node = std::make_shared<FeatureNode>();
    node->name = keptAttribute(element, kName);
    node->tagName = kept(element.name());
    node->tag = featureTag(node->tagName);
    node->nameSpace = keptAttribute(element, kNameSpace);
    for (pugi::xml_node child = XmlText::firstElement(element); child;
         child = XmlText::nextElement(child)) {
        if (child.name() == kEntry)
            node->entries.append(readEntry(child));
        else
            readChild(child, *node);
    }
    if (node->tagName == QLatin1String("StructEntry"))
        node->precedingInvalidators = invalidatorsBefore(element);
    return node;
}
