// Must not compile: Lamp's base already has a member table, and Lamp declares a table of its
// own without naming that base. The test expects the message that says what to write.
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PropertyTypes.h>

namespace Grafel {

#define BASE_TABLE(P) P(Mandatory, DoubleProperty, LightIntensity, 1.0, 1.0)
#define LAMP_TABLE(P) P(Mandatory, P3Property, Position, (P3(1, 1, 1)), (P3(0, 10, 0)))

class Base : public PlotElement {
    GRAFEL_MEMBER_PROPERTIES(Base, BASE_TABLE)
};

class Lamp : public Base {
    GRAFEL_MEMBER_PROPERTIES(Lamp, LAMP_TABLE)
};

} // namespace Grafel
