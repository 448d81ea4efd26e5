// Which element class stands behind each tag: every concrete class registers a maker under the
// id of its tag, and a document creates elements through this table.
#pragma once

#include <grafel/foundation/Tokens.h>

#include <typeinfo>

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

/// Records the C++ class that the class of the tag with id `tokenId` builds on, for references
/// generated from the registry. Safe from static initialisers, as registerElementClass.
void registerElementBase(int tokenId, const std::type_info& base) noexcept;

/// The base recorded for the tag with that id, or null.
const std::type_info* elementBase(int tokenId) noexcept;

} // namespace Grafel
