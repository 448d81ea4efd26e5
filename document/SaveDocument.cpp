#include <grafel/document/SaveDocument.h>

#include <grafel/document/PlotDocument.h>
#include <grafel/document/detail/ZpxIndent.h>

#include <ostream>
#include <sstream>

namespace Grafel {

bool saveDocument(const PlotDocument& document, std::ostream& out, const SaveOptions& options) {
    // The writers are not const, but writing leaves the document as it was.
    auto& writable = const_cast<PlotDocument&>(document);
    // The whole text is made first, so that a writer that throws leaves nothing half written.
    std::ostringstream text;
    text.copyfmt(out);
    text.exceptions(std::ios::goodbit);
    switch (options.format) {
    case SaveFormat::Zpx:
        writable.putXml(text);
        break;
    case SaveFormat::Cmd:
        writable.putCmd(text, false);
        break;
    case SaveFormat::Replot:
        writable.putCmd(text, true);
        break;
    }
    if (options.format == SaveFormat::Zpx && options.indent)
        out << detail::indentZpx(text.view());
    else
        out << text.view();
    return static_cast<bool>(out);
}

} // namespace Grafel
