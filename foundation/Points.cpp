#include <grafel/foundation/Points.h>

#include <grafel/foundation/TextRun.h>

#include <cstdio>
#include <ostream>

namespace Grafel {

std::ostream& operator<<(std::ostream& out, const P2& p) {
    TextRun run(out);
    run << p.x << ' ' << p.y;
    run.flush();
    return out;
}

std::ostream& operator<<(std::ostream& out, const P3& p) {
    TextRun run(out);
    run << p.x << ' ' << p.y << ' ' << p.z;
    run.flush();
    return out;
}

std::ostream& putXmlValue(std::ostream& out, const P2& p) {
    return out << p;
}

std::ostream& putXmlValue(std::ostream& out, const P3& p) {
    return out << p;
}

std::ostream& putCmdValue(std::ostream& out, const P2& p) {
    TextRun run(out);
    run << '[' << p.x << ',' << p.y << ']';
    run.flush();
    return out;
}

std::ostream& putCmdValue(std::ostream& out, const P3& p) {
    TextRun run(out);
    run << '[' << p.x << ',' << p.y << ',' << p.z << ']';
    run.flush();
    return out;
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
