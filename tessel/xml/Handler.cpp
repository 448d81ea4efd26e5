#include <grafel/tessel/xml/Handler.h>

namespace Tessel::Xml {

void Handler::startElement(int, int, const std::vector<Attribute>&) {}

void Handler::endElement(int, int) {}

void Handler::characterData(const char*, int) {}

bool Handler::elementName(const char*, const char*, int& namespaceId, int& nameId) {
    namespaceId = 0;
    nameId = 0;
    return true;
}

bool Handler::attributeName(const char*, const char*, int& namespaceId, int& nameId) {
    namespaceId = 0;
    nameId = 0;
    return true;
}

void Handler::cleanup() {}

void Handler::ignoreElement() {
    if (ignoreDepth_ == 0) ignoreDepth_ = 1;
}

bool Handler::ignoringElement() const {
    return ignoreDepth_ > 0;
}

void Handler::endIgnoreElement() {}

} // namespace Tessel::Xml
