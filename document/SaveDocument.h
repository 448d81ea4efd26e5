// Saving a plot document in one call: the ZPX text, for machines or indented for people, or the
// command text that builds the plot.
#pragma once

#include <iosfwd>

namespace Grafel {

class PlotDocument;

enum class SaveFormat {
    Zpx,    ///< the XML form
    Cmd,    ///< command text that builds the plot
    Replot, ///< command text that replots an existing plot
};

struct SaveOptions {
    SaveFormat format = SaveFormat::Zpx;
    /// ZPX only: each child element on its own line, two blanks a level deeper than its
    /// parent. Elements that keep text (texts, point and array data) are written as they are,
    /// so the indented text loads to the same document as the plain one.
    bool indent = false;
};

/// Writes `document` to `out` with the stream's number settings (precision, exactNumbers).
/// Without indent the bytes are exactly those of putXml() or putCmd(). Answers whether the
/// stream took everything (false once it has failed); exceptions of the writers pass on, and
/// nothing is then written.
bool saveDocument(const PlotDocument& document, std::ostream& out, const SaveOptions& options = {});

} // namespace Grafel
