// An XML handler that can collect the character data of an element, for readers whose
// elements hold short texts.
#pragma once

#include <grafel/tessel/xml/Handler.h>

#include <string>
#include <string_view>

namespace Tessel::Xml {

/// Collects character data on request. wantData() in startElement starts collecting; the data
/// of the element, and of any element inside it, is appended through onCharacterData until the
/// next end tag, where endElement calls onEndElement and then stops collecting. Subclasses
/// override startElement, onEndElement or endElement, and onCharacterData to decode data
/// as it arrives instead of keeping it.
class SimpleDataHandler : public Handler {
public:
    SimpleDataHandler(const SimpleDataHandler& other) = default;
    SimpleDataHandler& operator=(const SimpleDataHandler& other) = default;

    /// Calls onEndElement, then stops collecting.
    void endElement(int namespaceId, int nameId) override;
    /// Passes the text to onCharacterData while data is wanted.
    void characterData(const char* text, int length) override;
    /// Stops collecting: a skipped element has no data.
    void endIgnoreElement() override;

    /// Empties the collected data and starts collecting.
    void wantData();
    /// Whether data is being collected.
    bool wantsData() const noexcept { return wanted_; }
    /// The data collected so far, as UTF-8. It stays after collecting stops, until the next
    /// wantData().
    const std::string& data() const noexcept { return data_; }

    /// The element ends, before collecting stops; data() holds its text. Does nothing by
    /// default.
    virtual void onEndElement(int namespaceId, int nameId);
    /// A piece of wanted character data; appends it by default.
    virtual void onCharacterData(const char* text, int length);

protected:
    SimpleDataHandler() = default;

    /// Appends to the collected data.
    void appendTextData(const char* text, unsigned length);
    /// Makes `text` the collected data, as an element read in a run would have left it.
    void replaceTextData(std::string_view text);
    /// Strips XML white space (blank, tab, line feed, carriage return) from both ends of the
    /// collected data.
    void trimTextData();

private:
    std::string data_;
    bool wanted_ = false;
};

} // namespace Tessel::Xml
