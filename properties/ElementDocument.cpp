#include <grafel/properties/ElementDocument.h>

#include <grafel/properties/ElementRegistry.h>
#include <grafel/properties/PlotElement.h>

namespace Grafel {

ElementDocument::ElementDocument(const ElementDocument& other)
    : Arbor::Document(other), errorHandler_(other.errorHandler_) {}

ElementDocument& ElementDocument::operator=(const ElementDocument& other) {
    Arbor::Document::operator=(other);
    errorHandler_ = other.errorHandler_;
    return *this;
}

Arbor::Element* ElementDocument::createElement(Arbor::Token tagName) {
    return createPlotElement(tagName);
}

PlotElement* ElementDocument::createPlotElement(Arbor::Token tagName) {
    if (tagName.isNull()) return nullptr;
    ElementMaker maker = elementMaker(getTokenId(tagName.c_str()));
    return maker ? maker(this) : nullptr;
}

void ElementDocument::domError(const char* format, va_list args) {
    if (!errorHandler_) return;
    va_list copy;
    va_copy(copy, args);
    errorHandler_("Grafel error: ", copy);
    va_end(copy);
    va_copy(copy, args);
    errorHandler_(format, copy);
    va_end(copy);
}

} // namespace Grafel
