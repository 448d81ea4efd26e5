// What the fuzz targets share: loading bytes with either reader, writing a document, and the
// checks that every target makes of a document after a load.
#pragma once

#include <grafel/document/PlotDocument.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace GrafelFuzz {

/// Stops the run with a message on standard error; libFuzzer keeps the input that led here.
[[noreturn]] void fail(const char* what);

/// Checks `condition`, else fail(what).
inline void require(bool condition, const char* what) {
    if (!condition) fail(what);
}

/// Loads ZPX bytes into `document`, handed to the reader in pieces of at most `piece` bytes
/// (0: all at once). Every report is formatted, so that its arguments are read, and dropped.
bool loadZpx(Grafel::PlotDocument& document, const std::uint8_t* data, std::size_t size,
             std::size_t piece = 0);

/// Loads Zpa bytes into `document`; `cause` receives the reader's cause of failure (0 on
/// success).
bool loadZpa(Grafel::PlotDocument& document, const std::uint8_t* data, std::size_t size,
             int& cause);

/// The document as ZPX text.
std::string zpx(Grafel::PlotDocument& document);

/// Whether the document holds what a failed load leaves: a Canvas without children and
/// without a value set.
bool isFreshCanvas(Grafel::PlotDocument& document);

/// Whether the document has one document element, a Canvas, and no batch left open.
bool isValid(Grafel::PlotDocument& document);

/// Writes the document, loads what was written, writes that again: it must load and give the
/// same bytes.
void requireStableZpx(Grafel::PlotDocument& document);

} // namespace GrafelFuzz
