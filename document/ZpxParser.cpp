#include <grafel/document/ZpxParser.h>

#include <grafel/arbor/DomException.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/tessel/xml/Handler.h>

#include <exception>

namespace Grafel {

bool ZpxParser::parseSave(const char* data, int length, bool isFinal) {
    try {
        return parse(data, length, isFinal);
    } catch (const Arbor::DomException&) {
        if (Tessel::Xml::Handler* h = handler()) h->cleanup();
        return false;
    } catch (const std::exception& e) {
        // A failed allocation (or a size the library refused) mid-load must not leave a
        // half-built tree behind an escaped exception: the load fails like a refused document.
        Tessel::Xml::Handler* h = handler();
        if (!h) return false;
        h->cleanup();
        if (auto* reader = dynamic_cast<ZpxParserHandler*>(h)) reader->reportFailure(e);
        return false;
    }
}

} // namespace Grafel
