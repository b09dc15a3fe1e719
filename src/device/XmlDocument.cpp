// SPDX-License-Identifier: Apache-2.0
#include "device/XmlDocument.h"

#include "device/XmlLimits.h"

#include <atomic>

namespace {

// An element has the text that it begins with as its own value, without a node for it: half of all
// nodes would be such texts.
constexpr unsigned kParsing = pugi::parse_default | pugi::parse_embed_pcdata;

bool isText(pugi::xml_node node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

pugi::xml_node elementFrom(pugi::xml_node node)
{
    while (node && node.type() != pugi::node_element)
        node = node.next_sibling();
    return node;
}

} // namespace

bool XmlDocument::setContent(const char* utf8, std::size_t bytes)
{
    static std::atomic<quint64> s_contents{0};
    m_contentNumber = ++s_contents;
    m_content = nullptr;
    m_bLacksRoot = false;
    if (!XmlLimits::acceptable(utf8, bytes))
        return false;
    const auto content = std::make_shared<pugi::xml_document>();
    const pugi::xml_parse_result result =
        content->load_buffer(utf8, bytes, kParsing, pugi::encoding_utf8);
    const pugi::xml_node root = content->document_element();
    if (result && root && !XmlText::nextElement(root)) {
        m_content = content;
        return true;
    }
    // A text without any tag is no XML.
    m_bLacksRoot = result.status == pugi::status_no_document_element &&
                   std::string_view(utf8, bytes).find('<') != std::string_view::npos;
    return false;
}

namespace XmlText {

bool isOnePiece(pugi::xml_node element)
{
    const pugi::xml_node only = element.first_child();
    return !only || (!*element.value() && isText(only) && !only.next_sibling());
}

// The nesting is bounded: deeper documents are refused before they are parsed.
QString of(pugi::xml_node element)
{
    QString text = QString::fromUtf8(element.value());
    for (const pugi::xml_node child : element)
        text += isText(child) ? QString::fromUtf8(child.value()) : of(child);
    return text;
}

std::string_view trimmed(pugi::xml_node element)
{
    constexpr std::string_view kBlanks = " \t\n\v\f\r";
    if (!isOnePiece(element))
        return {};
    const std::string_view text =
        *element.value() ? element.value() : element.first_child().value();
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

QString attribute(pugi::xml_node element, const char* name)
{
    return QString::fromUtf8(element.attribute(name).value());
}

pugi::xml_node firstElement(pugi::xml_node parent)
{
    return elementFrom(parent.first_child());
}

pugi::xml_node nextElement(pugi::xml_node element)
{
    return elementFrom(element.next_sibling());
}

} // namespace XmlText
