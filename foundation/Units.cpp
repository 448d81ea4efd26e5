#include <grafel/foundation/Units.h>

#include <grafel/foundation/Tokens.h>

namespace Grafel {

namespace {

/// Units per millimetre. The factors are applied as they stand, with no rounding step, so that
/// 25.4 mm come out as exactly 72 pt.
double unitsPerMM(Arbor::Token unit) {
    if (unit == getToken(id_MM)) return 1.0;
    if (unit == getToken(id_In)) return 0.03937007874015748;
    return 2.834645669291339;
}

} // namespace

double mm2units(Arbor::Token unit, double mm) {
    return mm * unitsPerMM(unit);
}

double units2mm(Arbor::Token unit, double value) {
    return value / unitsPerMM(unit);
}

} // namespace Grafel
