#include <grafel/properties/ValueTraits.h>

#include <grafel/tessel/FlexBuff.h>
#include <grafel/tessel/Utf.h>

namespace Grafel {

template <class T> bool TextParser<T>::operator()(T& out, const wchar_t* text) const {
    Tessel::FlexBuff<char> utf8;
    Tessel::utf16ToUtf8(text ? text : L"", -1, utf8);
    return parseValue(utf8.data(), out);
}

template struct TextParser<bool>;
template struct TextParser<double>;
template struct TextParser<long>;
template struct TextParser<Arbor::Token>;
template struct TextParser<RGBA>;
template struct TextParser<P2>;
template struct TextParser<P3>;
template struct TextParser<FontStyle>;

bool Utf8StringParser::operator()(Tessel::FixedStringBase<char>& out, const wchar_t* text) const {
    Tessel::FlexBuff<char> utf8;
    Tessel::utf16ToUtf8(text ? text : L"", -1, utf8);
    out = Tessel::FixedStringBase<char>(utf8.data());
    return true;
}

} // namespace Grafel
