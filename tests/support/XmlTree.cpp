#include "support/XmlTree.h"

#include <expat.h>

namespace TestSupport {

const char* XmlNode::attribute(const char* key) const {
    for (const auto& [k, v] : attributes)
        if (k == key) return v.c_str();
    return nullptr;
}

const XmlNode* XmlNode::child(const char* tag) const {
    for (const auto& c : children)
        if (c->name == tag) return c.get();
    return nullptr;
}

std::vector<const XmlNode*> XmlNode::all(const char* tag) const {
    std::vector<const XmlNode*> out;
    for (const auto& c : children)
        if (c->name == tag) out.push_back(c.get());
    return out;
}

namespace {

struct Building {
    XmlTree& tree;
    XML_Parser parser;
    std::vector<XmlNode*> open;
};

void XMLCALL onStart(void* data, const XML_Char* name, const XML_Char** attributes) {
    auto& b = *static_cast<Building*>(data);
    auto node = std::make_unique<XmlNode>();
    node->name = name;
    node->line = XML_GetCurrentLineNumber(b.parser);
    for (const XML_Char** a = attributes; *a; a += 2) node->attributes.emplace_back(a[0], a[1]);
    XmlNode* raw = node.get();
    if (b.open.empty())
        b.tree.root = std::move(node);
    else
        b.open.back()->children.push_back(std::move(node));
    b.open.push_back(raw);
}

void XMLCALL onEnd(void* data, const XML_Char*) {
    static_cast<Building*>(data)->open.pop_back();
}

void XMLCALL onText(void* data, const XML_Char* text, int length) {
    auto& b = *static_cast<Building*>(data);
    if (!b.open.empty()) b.open.back()->text.append(text, static_cast<std::size_t>(length));
}

void XMLCALL onDoctype(void* data, const XML_Char* name, const XML_Char* systemId, const XML_Char*,
                       int) {
    XmlTree& tree = static_cast<Building*>(data)->tree;
    tree.doctype = name;
    tree.systemId = systemId ? systemId : "";
}

} // namespace

std::string parseXmlTree(std::string_view text, XmlTree& tree) {
    std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate("UTF-8"),
                                                                   XML_ParserFree);
    Building building{tree, parser.get(), {}};
    XML_SetUserData(parser.get(), &building);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
    XML_SetCharacterDataHandler(parser.get(), onText);
    XML_SetStartDoctypeDeclHandler(parser.get(), onDoctype);
    if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), 1) == XML_STATUS_OK)
        return "";
    return "line " + std::to_string(XML_GetCurrentLineNumber(parser.get())) +
           ": not well-formed: " + XML_ErrorString(XML_GetErrorCode(parser.get()));
}

} // namespace TestSupport
