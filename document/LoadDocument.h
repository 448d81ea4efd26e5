// Loading a plot document in one call: from a file, a stream or memory, in ZPX or Zpa, with
// every report handed back as a Diagnostic.
#pragma once

#include <grafel/document/Diagnostic.h>

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <unordered_map>
#include <vector>

namespace Arbor {
class Node;
}

namespace Grafel {

class PlotDocument;

/// How a load is asked for.
struct LoadOptions {
    /// Leave out the attribute id of every element (ZPX).
    bool dropIds = false;
    /// Keep the position of each element's start tag in LoadResult::positions (ZPX).
    bool recordPositions = false;
};

/// The form of an input, known by its first line: Zpa starts with its magic word, anything
/// else is read as ZPX.
enum class InputFormat { Zpx, Zpa };

/// A line and column of the input, from 1; 0 when unknown.
struct SourcePosition {
    long line = 0;
    long column = 0;
};

/// What a load answers.
struct LoadResult {
    bool loaded = false;
    InputFormat format = InputFormat::Zpx;
    /// Every report, in the order made. A failed load has at least one.
    std::vector<Diagnostic> diagnostics;
    /// With LoadOptions::recordPositions: the start tag of each element read. The keys are
    /// only good while the document keeps those elements.
    std::unordered_map<const Arbor::Node*, SourcePosition> positions;

    bool ok() const noexcept { return loaded; }
    explicit operator bool() const noexcept { return loaded; }
    /// The recorded position of `node`, or {0, 0}.
    SourcePosition positionOf(const Arbor::Node* node) const;
};

/// Reads a document into `document`, replacing its tree. A failed load leaves the fresh,
/// empty Canvas that the readers leave. Reports also go, as before, to the error handler
/// installed on the document; a report sink installed on it is replaced for the duration.
LoadResult loadDocument(PlotDocument& document, const std::filesystem::path& file,
                        const LoadOptions& options = {});
/// The same from a stream, read in pieces from its position to its end.
LoadResult loadDocument(PlotDocument& document, std::istream& in, const LoadOptions& options = {});
/// The same from `size` bytes at `data`.
LoadResult loadDocument(PlotDocument& document, const char* data, std::size_t size,
                        const LoadOptions& options = {});

} // namespace Grafel
