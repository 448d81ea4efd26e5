#include <grafel/foundation/WideText.h>

#include <grafel/tessel/FlexBuff.h>
#include <grafel/tessel/Utf.h>

namespace Grafel {

Tessel::FixedStringBase<wchar_t> utf8ToFixedMString(const char* text) {
    Tessel::FlexBuff<wchar_t> wide;
    const long length = Tessel::utf8ToUtf16(text ? text : "", -1, wide);
    return Tessel::FixedStringBase<wchar_t>(wide.data(), static_cast<size_t>(length));
}

std::ostream& putCData(std::ostream& out, const Tessel::FixedStringBase<wchar_t>& text) {
    return Tessel::putCData(out, text.text());
}

} // namespace Grafel
