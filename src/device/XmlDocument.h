// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

#include <pugixml.hpp>

#include <memory>
#include <string_view>

// An XML text from outside, parsed. Its nodes, whose texts are UTF-8, live as long as one of the
// document's copies has them. Entities of a document are never resolved, and nothing of it is
// nested deeper than XmlLimits allows. One thread at a time; copies are independent of each other.
class XmlDocument
{
public:
    // Parses a text in UTF-8, with or without a byte order mark, whatever its declaration says of
    // the encoding. False, and an empty document, when it is beyond XmlLimits or has not exactly
    // one root.
    bool setContent(const char* utf8, std::size_t bytes);
    bool setContent(const QByteArray& utf8)
    {
        return setContent(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    }
    // Whether the last content was refused because it has no element at all.
    bool lacksRoot() const { return m_bLacksRoot; }
    // Another number for each content that any document of the process was given; 0 before.
    quint64 contentNumber() const { return m_contentNumber; }

    // Null when the document is empty. Lives as long as the content.
    pugi::xml_node documentElement() const
    {
        return m_content ? m_content->document_element() : pugi::xml_node();
    }

private:
    std::shared_ptr<const pugi::xml_document> m_content; // null: empty
    quint64 m_contentNumber = 0;
    bool m_bLacksRoot = false;
};

// Reading of elements. What is null gives an empty text.
namespace XmlText {

// All text inside an element, its child elements included.
QString of(pugi::xml_node element);
// The same without the blanks around it, as bytes of the document; empty when the text is in
// several pieces, which `of` puts together.
std::string_view trimmed(pugi::xml_node element);
bool isOnePiece(pugi::xml_node element);

QString attribute(pugi::xml_node element, const char* name);
inline QString toString(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
}
inline std::string_view name(pugi::xml_node element)
{
    return element.name();
}

// The first child that is an element, and the element behind one.
pugi::xml_node firstElement(pugi::xml_node parent);
pugi::xml_node nextElement(pugi::xml_node element);

} // namespace XmlText
