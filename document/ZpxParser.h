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

    /// parse() of the next piece of text; a DomException or another std::exception (a failed
    /// allocation included) thrown while building the tree is caught, the handler's cleanup()
    /// runs and the answer is false. Only the latter is reported, through a ZpxParserHandler,
    /// as "out of memory" or "load failed: WHAT".
    bool parseSave(const char* data, int length, bool isFinal);
};

} // namespace Grafel
