#include <grafel/tessel/xml/SimpleDataHandler.h>

namespace Tessel::Xml {
namespace {

inline bool isXmlSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

} // namespace

void SimpleDataHandler::endElement(int namespaceId, int nameId) {
    onEndElement(namespaceId, nameId);
    wanted_ = false;
}

void SimpleDataHandler::characterData(const char* text, int length) {
    if (wanted_) onCharacterData(text, length);
}

void SimpleDataHandler::endIgnoreElement() {
    wanted_ = false;
}

void SimpleDataHandler::wantData() {
    data_.clear();
    wanted_ = true;
}

void SimpleDataHandler::onEndElement(int, int) {}

void SimpleDataHandler::onCharacterData(const char* text, int length) {
    if (length > 0) appendTextData(text, static_cast<unsigned>(length));
}

void SimpleDataHandler::appendTextData(const char* text, unsigned length) {
    data_.append(text, length);
}

void SimpleDataHandler::replaceTextData(std::string_view text) {
    data_.assign(text);
}

void SimpleDataHandler::trimTextData() {
    size_t end = data_.size();
    while (end > 0 && isXmlSpace(data_[end - 1])) --end;
    size_t begin = 0;
    while (begin < end && isXmlSpace(data_[begin])) ++begin;
    data_.erase(end);
    data_.erase(0, begin);
}

} // namespace Tessel::Xml
