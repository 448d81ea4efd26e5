#include <grafel/foundation/Points.h>

#include <cstdio>
#include <ostream>

namespace Grafel {

std::ostream& operator<<(std::ostream& out, const P2& p) {
    return out << p.x << ' ' << p.y;
}

std::ostream& operator<<(std::ostream& out, const P3& p) {
    return out << p.x << ' ' << p.y << ' ' << p.z;
}

std::ostream& putXmlValue(std::ostream& out, const P2& p) {
    return out << p;
}

std::ostream& putXmlValue(std::ostream& out, const P3& p) {
    return out << p;
}

std::ostream& putCmdValue(std::ostream& out, const P2& p) {
    return out << '[' << p.x << ',' << p.y << ']';
}

std::ostream& putCmdValue(std::ostream& out, const P3& p) {
    return out << '[' << p.x << ',' << p.y << ',' << p.z << ']';
}

bool parseValue(const char* text, P2& out) {
    double x, y;
    if (!text || std::sscanf(text, " %lf %lf ", &x, &y) != 2) return false;
    out = P2(x, y);
    return true;
}

bool parseValue(const char* text, P3& out) {
    double x, y, z;
    if (!text || std::sscanf(text, " %lf %lf %lf ", &x, &y, &z) != 3) return false;
    out = P3(x, y, z);
    return true;
}

} // namespace Grafel
