// The extra checks of "grafel check --strict": what loads but is probably a mistake.
#pragma once

#include <cstddef>

namespace Grafel {
class PlotDocument;
struct LoadResult;
} // namespace Grafel

namespace GrafelTool {

class ReportScope;

/// Warns, one line each at the element's start tag where it is known, about words outside a
/// property's vocabulary, object types that the catalogue does not know, and numbers that are
/// not finite. Answers the number of warnings.
std::size_t strictCheck(Grafel::PlotDocument& document, const Grafel::LoadResult& loaded,
                        ReportScope& reports);

} // namespace GrafelTool
