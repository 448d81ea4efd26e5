#include <grafel/foundation/CmdString.h>

#include <grafel/tessel/FlexBuff.h>
#include <grafel/tessel/Utf.h>

#include <ostream>

namespace Grafel {

namespace {

/// The letter of the escape for `c`, or 0 when `c` stands as it is.
char escapeLetter(char c) noexcept {
    switch (c) {
    case '\b':
        return 'b';
    case '\t':
        return 't';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '"':
        return '"';
    case '\\':
        return '\\';
    default:
        return 0;
    }
}

} // namespace

void putCmdString(std::ostream& out, const wchar_t* text) {
    if (!text) return;
    Tessel::FlexBuff<char> utf8;
    const long length = Tessel::utf16ToUtf8(text, -1, utf8);
    const char* run = utf8.data();
    const char* end = run + length;
    // Plain runs go out in one write each; only the bytes that need an escape break them.
    for (const char* p = run; p != end; ++p) {
        const char letter = escapeLetter(*p);
        if (!letter) continue;
        out.write(run, p - run);
        const char escape[2] = {'\\', letter};
        out.write(escape, 2);
        run = p + 1;
    }
    out.write(run, end - run);
}

} // namespace Grafel
