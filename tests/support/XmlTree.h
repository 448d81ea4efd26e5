// Written files read back into a plain tree of elements, for the structure checks of the
// exporters' output.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace TestSupport {

/// An element of a parsed file: its attributes in order, its text run together, its children,
/// and the line it starts on.
struct XmlNode {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::string text;
    std::vector<std::unique_ptr<XmlNode>> children;
    long line = 0;

    /// The value of attribute `key`; null when it is absent.
    const char* attribute(const char* key) const;
    /// The first child named `tag`; null when there is none.
    const XmlNode* child(const char* tag) const;
    /// Every child named `tag`, in order.
    std::vector<const XmlNode*> all(const char* tag) const;
};

/// A parsed file: its outermost element and its document type.
struct XmlTree {
    std::unique_ptr<XmlNode> root;
    std::string doctype, systemId;
};

/// Reads `text` into `tree`; empty, or "line N: not well-formed: <why>".
std::string parseXmlTree(std::string_view text, XmlTree& tree);

} // namespace TestSupport
