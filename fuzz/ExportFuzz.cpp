// The writers of every document that loads, from ZPX bytes or, when these are no ZPX, from Zpa
// bytes: they must neither crash nor hang, whatever the tree holds, and what the JavaView
// writers produce must be well-formed XML.
#include "FuzzLoad.h"

#include <grafel/output/JVDWriter.h>
#include <grafel/output/JVXWriter.h>

#include <expat.h>

#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

using namespace GrafelFuzz;

namespace {

/// Whether `text` parses as XML. The DOCTYPE names an external DTD, which is never fetched.
bool wellFormed(const std::string& text) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    if (!parser) return true; // no memory for the check, nothing learned
    const bool ok =
        XML_Parse(parser, text.data(), static_cast<int>(text.size()), XML_TRUE) == XML_STATUS_OK;
    XML_ParserFree(parser);
    return ok;
}

/// One JavaView file of the document at `at`; a JavaViewExportError is a clean refusal.
void exportAt(Grafel::JavaViewWriter& writer, double at) {
    std::ostringstream out;
    try {
        writer.write(&out, at);
    } catch (const Grafel::JavaViewExportError&) {
        return;
    }
    const std::string text = out.str();
    if (!wellFormed(text)) {
        std::fprintf(stderr, "written:\n%s\n", text.c_str());
        fail("a JavaView file is not well-formed XML");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Grafel::PlotDocument document;
    int cause = 0;
    if (!loadZpx(document, data, size) && !loadZpa(document, data, size, cause)) return 0;

    for (const bool replot : {false, true}) {
        std::ostringstream out;
        document.putCmd(out, replot);
    }

    Grafel::JVXWriter model(&document);
    Grafel::JVDWriter display(&document);
    model.setFixedDate("fuzz");
    display.setFixedDate("fuzz");
    // Without a time, and for an animation its begin, middle and end (what frames would be
    // written at) and a time outside it, which the writers clamp.
    std::vector<double> times{Grafel::JavaViewWriter::noTime};
    double begin = 0, end = 0;
    if (model.animationRange(begin, end) && std::isfinite(begin) && std::isfinite(end))
        times.insert(times.end(), {begin, begin + (end - begin) / 2, end, end + 1});
    for (const double at : times) {
        exportAt(model, at);
        exportAt(display, at);
    }
    return 0;
}
