// Text that the parser hands to a handler straight from its input, without the underlying C
// parser reading it first: the bulk text of elements such as rasters of numbers.
#pragma once

#include <string>
#include <vector>

namespace Tessel::Xml {

/// What a Handler implements as well when it takes the text of some elements as it stands in the
/// input; the parser looks for it when a document starts. The handler still receives the text
/// through characterData(), as the same bytes in pieces that end where the parser's own pieces
/// would, so the document, the positions and the failures are the same either way. Only text of
/// printable ASCII, tabs and line feeds, in a document encoded in UTF-8 or US-ASCII, is taken so;
/// the text from the first other byte on (markup, references, ']', carriage returns, other
/// characters) reaches the handler in the ordinary way.
class PlainTextReader {
public:
    /// Names of elements, as written without a prefix, whose text the handler may take plain.
    virtual std::vector<std::string> plainTextNames() const = 0;
    /// Whether the text of the element that has just started, with these numbers, may come
    /// plain. Asked between events, right after its startElement.
    virtual bool takesPlainText(int namespaceId, int nameId) = 0;

protected:
    ~PlainTextReader() = default;
};

} // namespace Tessel::Xml
