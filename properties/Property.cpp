#include <grafel/properties/Property.h>

#include <grafel/foundation/Tokens.h>
#include <grafel/properties/ListProperty.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/tessel/FlexBuff.h>
#include <grafel/tessel/Utf.h>

#include <cstring>

namespace Grafel {

Property::Property(int id) : name_(getToken(id)) {}

Property::~Property() = default;

void Property::refuseValueString(PlotElement* element, Arbor::Token name, const char* text) {
    ElementDocument* doc = element->plotDocument();
    ElementDocument::ReportContext outer;
    if (doc)
        outer =
            doc->exchangeReportContext({element->nodeName().text(), name.text(), text ? text : ""});
    try {
        element->refuse(Arbor::DomException::SyntaxErr, "illegal value string [attribute '%s']\n",
                        name.text());
    } catch (...) {
        if (doc) doc->exchangeReportContext(outer);
        throw;
    }
}

void Property::reportIllegalValue(PlotElement* element, Arbor::Token name) {
    element->domError("illegal value [attribute '%s']\n", name.text());
}

void Property::fireChange(PlotElement* element, Arbor::Token name) {
    element->fireAfterPropertyChange(name);
}

bool parseSanitized(const char* utf8, bool (*parse)(void* out, const char* text), void* out) {
    if (!utf8) utf8 = "";
    const long length = long(std::strlen(utf8));
    if (Tessel::validUtf8Length(utf8, length) == length) return parse(out, utf8);
    // Malformed text takes the way through wide text, where each bad sequence becomes U+FFFD.
    Tessel::FlexBuff<wchar_t> wide;
    Tessel::utf8ToUtf16(utf8, length, wide);
    Tessel::FlexBuff<char> clean;
    Tessel::utf16ToUtf8(wide.data(), -1, clean);
    return parse(out, clean.data());
}

} // namespace Grafel
