// The reader of ZPX text: the XML event parser with the one call a host uses to load a document
// through a ZpxParserHandler.
#pragma once

#include <grafel/tessel/xml/Parser.h>

namespace Grafel {

/// An XML parser whose parseSave() turns a refused document into a false answer and a
/// document that holds a fresh, empty Canvas.
class ZpxParser : public Tessel::Xml::Parser {
public:
    using Tessel::Xml::Parser::Parser;

    /// parse() of the next piece of text; a DomException thrown while building the tree is
    /// caught, the handler's cleanup() runs and the answer is false. Other exceptions pass.
    bool parseSave(const char* data, int length, bool isFinal);
};

} // namespace Grafel
