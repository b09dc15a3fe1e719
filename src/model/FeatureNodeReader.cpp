// SPDX-License-Identifier: Apache-2.0
#include "model/FeatureNodeReader.h"

#include "basetools/ORXInterface.h"

#include <QDomElement>
#include <QHash>

namespace {

const QString kName = QStringLiteral("Name");
const QString kNameSpace = QStringLiteral("NameSpace");

// Child elements whose text is a field of the record. The first of "ImposedAccessMode" and
// "AccessMode" counts; of every other element the last one does.
struct NodeField
{
    QString FeatureNode::*text;
    bool trimmed;
    bool firstCounts;
};

const QHash<QString, NodeField>& nodeFields()
{
    static const QHash<QString, NodeField> fields = {
        {QStringLiteral("DisplayName"), {&FeatureNode::displayName, false, false}},
        {QStringLiteral("Description"), {&FeatureNode::description, false, false}},
        {QStringLiteral("Visibility"), {&FeatureNode::visibility, true, false}},
        {QStringLiteral("Streamable"), {&FeatureNode::streamable, true, false}},
        {QStringLiteral("Representation"), {&FeatureNode::representation, true, false}},
        {QStringLiteral("Unit"), {&FeatureNode::unit, true, false}},
        {QStringLiteral("ImposedAccessMode"), {&FeatureNode::accessMode, true, true}},
        {QStringLiteral("AccessMode"), {&FeatureNode::accessMode, true, true}},
        {QStringLiteral("pIsImplemented"), {&FeatureNode::pIsImplemented, true, false}},
        {QStringLiteral("pIsAvailable"), {&FeatureNode::pIsAvailable, true, false}},
        {QStringLiteral("pIsLocked"), {&FeatureNode::pIsLocked, true, false}},
    };
    return fields;
}

const QHash<QString, FeatureReference::Kind>& referenceKinds()
{
    static const QHash<QString, FeatureReference::Kind> kinds = {
        {QStringLiteral("pValue"), FeatureReference::PValue},
        {QStringLiteral("pVariable"), FeatureReference::PVariable},
        {QStringLiteral("pInvalidator"), FeatureReference::PInvalidator},
        {QStringLiteral("pMin"), FeatureReference::PMin},
        {QStringLiteral("pMax"), FeatureReference::PMax},
        {QStringLiteral("pInc"), FeatureReference::PInc},
        {QStringLiteral("pIsLocked"), FeatureReference::PIsLocked},
        {QStringLiteral("pIsImplemented"), FeatureReference::PIsImplemented},
        {QStringLiteral("pIsAvailable"), FeatureReference::PIsAvailable},
        {QStringLiteral("pSelected"), FeatureReference::PSelected},
        {QStringLiteral("pFeature"), FeatureReference::PFeature},
        {QStringLiteral("PollingTime"), FeatureReference::PollingTime},
        {QStringLiteral("Cachable"), FeatureReference::Cachable},
    };
    return kinds;
}

const QHash<QString, QString FeatureEnumEntry::*>& entryFields()
{
    static const QHash<QString, QString FeatureEnumEntry::*> fields = {
        {QStringLiteral("DisplayName"), &FeatureEnumEntry::displayName},
        {QStringLiteral("Value"), &FeatureEnumEntry::valueText},
        {QStringLiteral("Visibility"), &FeatureEnumEntry::visibility},
        {QStringLiteral("pIsImplemented"), &FeatureEnumEntry::pIsImplemented},
        {QStringLiteral("pIsAvailable"), &FeatureEnumEntry::pIsAvailable},
        {QStringLiteral("pIsLocked"), &FeatureEnumEntry::pIsLocked},
    };
    return fields;
}

// Trimmed text of an element. What holds a single text, as nearly all elements do, is not copied.
QString textOf(const QDomElement& element)
{
    const QDomNode only = element.firstChild();
    if (only.nodeType() == QDomNode::TextNode && only.nextSibling().isNull())
        return only.nodeValue().trimmed();
    return element.text().trimmed();
}

} // namespace

QString FeatureNodeReader::kept(const QString& text)
{
    if (text.isEmpty())
        return QStringLiteral("");
    const auto known = m_texts.constFind(text);
    if (known != m_texts.constEnd())
        return *known;
    // A copy, since a text of the DOM would keep a hole in the memory that the DOM leaves.
    return *m_texts.insert(QString(text.constData(), text.size()));
}

FeatureEnumEntry FeatureNodeReader::readEntry(const QDomElement& element)
{
    FeatureEnumEntry entry;
    entry.name = kept(element.attribute(kName));
    entry.nameSpace = kept(element.attribute(kNameSpace));
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const auto field = entryFields().constFind(child.tagName());
        if (field != entryFields().constEnd())
            entry.*field.value() = kept(textOf(child));
    }
    entry.value = ORXInterface::string2Int(entry.valueText);
    return entry;
}

QStringList FeatureNodeReader::invalidatorsBefore(const QDomElement& element)
{
    QStringList result;
    const QString invalidator = QStringLiteral("pInvalidator");
    for (QDomElement sibling = element.previousSiblingElement(invalidator); !sibling.isNull();
         sibling = sibling.previousSiblingElement(invalidator))
        result.append(kept(textOf(sibling)));
    return result;
}

void FeatureNodeReader::readChild(const QDomElement& child, FeatureNode& node)
{
    const QString tag = child.tagName();
    const auto kind = referenceKinds().constFind(tag);
    if (kind != referenceKinds().constEnd())
        node.references.append({kind.value(), kept(textOf(child))});
    const auto field = nodeFields().constFind(tag);
    if (field == nodeFields().constEnd())
        return;
    QString& target = node.*field->text;
    if (field->firstCounts && !target.isEmpty())
        return;
    target = field->trimmed ? kept(textOf(child)) : child.text();
}

FeatureNodePtr FeatureNodeReader::read(const QDomElement& element)
{
    auto node = std::make_shared<FeatureNode>();
    node->name = kept(element.attribute(kName));
    node->tagName = kept(element.tagName());
    node->tag = featureTag(node->tagName);
    node->nameSpace = kept(element.attribute(kNameSpace));
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        if (child.tagName() == QLatin1String("EnumEntry"))
            node->entries.append(readEntry(child));
        else
            readChild(child, *node);
    }
    if (node->tagName == QLatin1String("StructEntry"))
        node->precedingInvalidators = invalidatorsBefore(element);
    return node;
}
