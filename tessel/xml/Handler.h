// The receiver of the events of the XML parser: element starts and ends, character data, and
// the mapping of names to numbers.
#pragma once

#include <grafel/tessel/xml/Attribute.h>

#include <vector>

namespace Tessel::Xml {

class Parser;

/// Base of every XML event handler. Each operation does nothing by default, and the name
/// mapper accepts every name with the numbers 0 and 0.
///
/// Ignoring: startElement may call ignoreElement(); the parser then delivers nothing more of
/// that element (no nested elements, no character data, no names to map) and, where the
/// element ends, calls endIgnoreElement() instead of endElement(). The depth of the skipped
/// elements lives in the handler (ignoreDepth_), so that ignoringElement() can be asked at any
/// time; the parser counts it up and down.
class Handler {
public:
    virtual ~Handler() = default;

    /// An element starts. The numbers are those the name mapper gave; `attributes` is valid only
    /// during the call and holds no namespace declarations.
    virtual void startElement(int namespaceId, int nameId,
                              const std::vector<Attribute>& attributes);
    /// An element ends; the numbers are those of its start.
    virtual void endElement(int namespaceId, int nameId);
    /// A piece of character data in UTF-8. One text may arrive in several pieces, split
    /// anywhere, even inside a character.
    virtual void characterData(const char* text, int length);
    /// Maps an element name (namespace URI, or "" for none, and local name) to two numbers.
    /// Asked once per distinct name per parser; false stops the parse as a failure.
    virtual bool elementName(const char* namespaceUri, const char* name, int& namespaceId,
                             int& nameId);
    /// Maps an attribute name, as elementName does. Attribute and element names are asked and
    /// remembered separately.
    virtual bool attributeName(const char* namespaceUri, const char* name, int& namespaceId,
                               int& nameId);
    /// Called once by the parser when a parse fails: a syntax error, a refused name, or an
    /// exception from this handler (before the exception is passed on).
    virtual void cleanup();
    /// Skips the rest of the element that is open now; meant to be called from startElement,
    /// where it skips the element just started. Does nothing while an element is skipped.
    virtual void ignoreElement();
    /// Whether an element is being skipped.
    virtual bool ignoringElement() const;
    /// Called at the end of the skipped element, in place of its endElement.
    virtual void endIgnoreElement();

protected:
    /// Number of elements open inside the skipped region, the skipped element included; 0 when
    /// nothing is skipped.
    int ignoreDepth_ = 0;

private:
    friend class Parser;
};

} // namespace Tessel::Xml
