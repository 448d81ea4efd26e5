// An animation as a series of model files, one a frame, numbered from 1 before the last dot of
// the name.
#include <grafel/output/JVXWriter.h>

#include <cfloat>
#include <cmath>
#include <fstream>
#include <new>
#include <string>
#include <unistd.h>

namespace Grafel {

namespace {

// "a.jvx" gives "a.N.jvx" and "a" gives "a.N"; the last dot may be one of a directory.
std::string frameFileName(const std::string& fileName, std::string::size_type lastDot, int frame) {
    if (lastDot == std::string::npos) return fileName + '.' + std::to_string(frame);
    return fileName.substr(0, lastDot) + '.' + std::to_string(frame) + fileName.substr(lastDot);
}

} // namespace

bool JVXWriter::overwriteFrameFile(const char*, bool& overwriteAll) {
    overwriteAll = true;
    return true;
}

void JVXWriter::writeFrames(int framesPerUnit, const char* fileName) {
    std::string base;
    try {
        base = fileName ? fileName : "";
        base.reserve(base.size() + 12);
    } catch (const std::bad_alloc&) {
        throw JavaViewExportError("out of memory");
    }
    const std::string::size_type lastDot = base.rfind('.');
    // No frames a unit (or fewer) is one step to the end.
    const double step = framesPerUnit > 0 ? 1.0 / framesPerUnit : INFINITY;

    double t, end;
    if (!animationRange(t, end)) throw JavaViewExportError("not an animation");
    const double last = end - DBL_EPSILON;
    // The frame files close on the way out; the writer must not keep pointing at one.
    struct KeepStream {
        std::ostream*& stream;
        std::ostream* const kept;
        ~KeepStream() { stream = kept; }
    } keep{stream, stream};
    bool finished = false, overwriteAll = false;
    for (int frame = 1;; ++frame) {
        std::string name;
        try {
            name = frameFileName(base, lastDot, frame);
        } catch (const std::bad_alloc&) {
            throw JavaViewExportError("out of memory");
        }
        if (!overwriteAll && ::access(name.c_str(), F_OK) == 0 &&
            !overwriteFrameFile(name.c_str(), overwriteAll))
            return;
        std::ofstream file(name, std::ios_base::out | std::ios_base::binary);
        if (!file) throw JavaViewExportError("Can not open output file.");
        write(&file, t);
        // Written so that a NaN bound ends the series rather than running on.
        if (finished || !(t < last)) return;
        const double next = t + step;
        // A step lost in rounding goes straight to the end, so that the series always ends.
        if (!(next <= last) || !(next > t)) {
            t = end;
            finished = true;
        } else {
            t = next;
        }
    }
}

} // namespace Grafel
