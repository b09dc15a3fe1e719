// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureNodeReader.h"

#include "basetools/ORXInterface.h"

#include <array>
#include <initializer_list>
#include <vector>

namespace {

constexpr char kName[] = "Name";
constexpr char kNameSpace[] = "NameSpace";

// A table by an element's name. Most elements are in none, which the length alone says of many.
template <typename Value>
class ByName
{
public:
    struct Line
    {
        std::string_view name;
        Value value;
    };

    ByName(std::initializer_list<Line> lines)
    {
        for (const Line& line : lines)
            m_byLength.at(line.name.size()).push_back(line);
    }
    // Null when there is none.
    const Value* find(std::string_view name) const
    {
        if (name.size() >= m_byLength.size())
            return nullptr;
        for (const Line& line : m_byLength[name.size()]) {
            if (line.name == name)
                return &line.value;
        }
        return nullptr;
    }

private:
    static constexpr std::size_t kLengths = 32;
    std::array<std::vector<Line>, kLengths> m_byLength;
};

// What becomes of a child element: a reference that is followed, a text that is a field of the
// record, or both.
struct ChildElement
{
    static constexpr int kNoReference = -1;

    int reference = kNoReference; // FeatureReference::Kind
    QString FeatureNode::*text = nullptr;
    bool trimmed = true;
    // The first of "ImposedAccessMode" and "AccessMode" counts; of every other element the last one
    // does.
    bool firstCounts = false;
};

const ByName<ChildElement>& childElements()
{
    constexpr int kNone = ChildElement::kNoReference;
    static const ByName<ChildElement> elements = {
        {"DisplayName", {kNone, &FeatureNode::displayName, false}},
        {"Description", {kNone, &FeatureNode::description, false}},
        {"Visibility", {kNone, &FeatureNode::visibility}},
        {"Streamable", {kNone, &FeatureNode::streamable}},
        {"Representation", {kNone, &FeatureNode::representation}},
        {"Unit", {kNone, &FeatureNode::unit}},
        {"ImposedAccessMode", {kNone, &FeatureNode::accessMode, true, true}},
        {"AccessMode", {kNone, &FeatureNode::accessMode, true, true}},
        {"pIsImplemented", {FeatureReference::PIsImplemented, &FeatureNode::pIsImplemented}},
        {"pIsAvailable", {FeatureReference::PIsAvailable, &FeatureNode::pIsAvailable}},
        {"pIsLocked", {FeatureReference::PIsLocked, &FeatureNode::pIsLocked}},
        {"pValue", {FeatureReference::PValue}},
        {"pVariable", {FeatureReference::PVariable}},
        {"pInvalidator", {FeatureReference::PInvalidator}},
        {"pMin", {FeatureReference::PMin}},
        {"pMax", {FeatureReference::PMax}},
        {"pInc", {FeatureReference::PInc}},
        {"pSelected", {FeatureReference::PSelected}},
        {"pFeature", {FeatureReference::PFeature}},
        {"PollingTime", {FeatureReference::PollingTime}},
        {"Cachable", {FeatureReference::Cachable}},
    };
    return elements;
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
        if (const auto* field = entryFields().find(child.name()))
            entry.*(*field) = keptText(child);
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
    const ChildElement* kind = childElements().find(child.name());
    if (!kind)
        return;
    const QString text = kind->trimmed ? keptText(child) : XmlText::of(child);
    if (kind->reference != ChildElement::kNoReference)
        node.references.append({static_cast<FeatureReference::Kind>(kind->reference), text});
    if (kind->text && !(kind->firstCounts && !(node.*kind->text).isEmpty()))
        node.*kind->text = text;
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
