// One attribute of a start tag as the XML parser hands it to its handler.
#pragma once

namespace Tessel::Xml {

/// An attribute whose name the handler has already mapped to two numbers.
struct Attribute {
    int namespaceId;
    int nameId;
    /// The value as NUL-terminated UTF-8, with entities and references resolved; valid only
    /// during the startElement call that receives it.
    const char* value;
};

} // namespace Tessel::Xml
