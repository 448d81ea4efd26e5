// Conversion of output lengths, which the document keeps in millimetres, to and from the unit
// chosen by OutputUnits.
#pragma once

#include <grafel/arbor/Token.h>

namespace Grafel {

/// Millimetres in `unit`: MM leaves the value, In multiplies by 0.03937007874015748, and any
/// other token (Pt among them) multiplies by 2.834645669291339, giving points.
double mm2units(Arbor::Token unit, double mm);

/// The inverse: a length in `unit` back in millimetres, by division with the same factors.
double units2mm(Arbor::Token unit, double value);

} // namespace Grafel
