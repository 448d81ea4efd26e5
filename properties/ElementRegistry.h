// Which element class stands behind each tag: every concrete class registers a maker under the
// id of its tag, and a document creates elements through this table.
#pragma once

#include <grafel/foundation/Tokens.h>

namespace Arbor {
class Document;
}

namespace Grafel {

class PlotElement;

/// Makes a new element of one class for a document; the caller takes the first reference.
using ElementMaker = PlotElement* (*)(Arbor::Document* document);

/// Registers the class of the tag with id `tokenId`. Safe from static initialisers: the table
/// is filled with zeros before any of them runs.
void registerElementClass(int tokenId, ElementMaker maker) noexcept;

/// The maker for the tag with that id, or null.
ElementMaker elementMaker(int tokenId) noexcept;

} // namespace Grafel
