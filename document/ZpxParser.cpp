#include <grafel/document/ZpxParser.h>

#include <grafel/arbor/DomException.h>
#include <grafel/tessel/xml/Handler.h>

namespace Grafel {

bool ZpxParser::parseSave(const char* data, int length, bool isFinal) {
    try {
        return parse(data, length, isFinal);
    } catch (const Arbor::DomException&) {
        if (Tessel::Xml::Handler* h = handler()) h->cleanup();
        return false;
    }
}

} // namespace Grafel
