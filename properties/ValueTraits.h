// The value kinds a property can hold: for each, its variant class, how its text is read, and
// how it is written as an XML attribute and as command text.
#pragma once

#include <grafel/foundation/CmdOStream.h>
#include <grafel/foundation/ScalarText.h>
#include <grafel/foundation/ValueVariants.h>
#include <grafel/foundation/WideText.h>

#include <ostream>
#include <type_traits>

namespace Grafel {

/// Reads a value from attribute text with the value's own text form. Given wide text, it reads
/// the UTF-8 form of it.
template <class T> struct TextParser {
    bool operator()(T& out, const char* utf8) const { return parseValue(utf8, out); }
    bool operator()(T& out, const wchar_t* text) const;
};

/// A UTF-8 string: every text is a value.
struct Utf8StringParser {
    bool operator()(Tessel::FixedStringBase<char>& out, const char* utf8) const {
        out = Tessel::FixedStringBase<char>(utf8 ? utf8 : "");
        return true;
    }
    bool operator()(Tessel::FixedStringBase<char>& out, const wchar_t* text) const;
};

/// A wide string: every text is a value.
struct MStringParser {
    bool operator()(Tessel::FixedStringBase<wchar_t>& out, const char* utf8) const {
        out = utf8ToFixedMString(utf8);
        return true;
    }
    bool operator()(Tessel::FixedStringBase<wchar_t>& out, const wchar_t* text) const {
        out = Tessel::FixedStringBase<wchar_t>(text ? text : L"");
        return true;
    }
};

/// Writes the XML attribute text of a value.
template <class T> struct GenericPutXml {
    static void put(std::ostream& out, const T& value) { putXmlValue(out, value); }
};

/// Writes the command text of a value. Numbers and colours go through the CmdOStream, which
/// collects them with the text around them; the other kinds are written to its stream.
template <class T> struct GenericPutCmd {
    static void put(CmdOStream& out, const T& value) {
        if constexpr (std::is_same_v<T, double>)
            out << value;
        else if constexpr (std::is_same_v<T, RGBA>)
            putCmdForm(out, value);
        else
            putCmdValue(out.stream(), value);
    }
};

/// Writes a length held in millimetres in the stream's output unit.
struct SizePutCmd {
    static void put(CmdOStream& out, double value) { out.putSize(value); }
};

/// Binds a value type to its variant class, its reader and its two writers. Stateless.
template <class VariantT, class ValueT, class ParserT, class PutXmlT, class PutCmdT>
struct PropertyValueTrait {
    using VariantType = VariantT;
    using Value = ValueT;
    using Parser = ParserT;
    using PutXml = PutXmlT;
    using PutCmd = PutCmdT;

    /// The value of a variant of this class (by value or by reference, as the variant gives it).
    static decltype(auto) fromVariant(const Arbor::Variant& v) {
        return static_cast<const VariantT&>(v).val();
    }
    static VariantT toVariant(const Value& v) { return VariantT(v); }
};

using BoolParser = TextParser<bool>;
using DoubleParser = TextParser<double>;
using LongParser = TextParser<long>;
using TokenParser = TextParser<Arbor::Token>;
using ColorParser = TextParser<RGBA>;
using P2Parser = TextParser<P2>;
using P3Parser = TextParser<P3>;
using FontStyleParser = TextParser<FontStyle>;
using BoolPutXml = GenericPutXml<bool>;
using TokenPutXml = GenericPutXml<Arbor::Token>;
using StringPutXml = GenericPutXml<Tessel::FixedStringBase<char>>;
using MStringPutXml = GenericPutXml<Tessel::FixedStringBase<wchar_t>>;
using BoolPutCmd = GenericPutCmd<bool>;
using TokenPutCmd = GenericPutCmd<Arbor::Token>;
using RGBAPutCmd = GenericPutCmd<RGBA>;
using P2PutCmd = GenericPutCmd<P2>;
using P3PutCmd = GenericPutCmd<P3>;
using FontStylePutCmd = GenericPutCmd<FontStyle>;
using StringPutCmd = GenericPutCmd<Tessel::FixedStringBase<char>>;
using MStringPutCmd = GenericPutCmd<Tessel::FixedStringBase<wchar_t>>;

// The eleven value kinds of the property tables.
using BoolTrait = PropertyValueTrait<Arbor::BoolVariant, bool, BoolParser, BoolPutXml, BoolPutCmd>;
using DoubleTrait = PropertyValueTrait<Arbor::DoubleVariant, double, DoubleParser,
                                       GenericPutXml<double>, GenericPutCmd<double>>;
using SizeTrait = PropertyValueTrait<Arbor::DoubleVariant, double, DoubleParser,
                                     GenericPutXml<double>, SizePutCmd>;
using LongTrait = PropertyValueTrait<Arbor::LongVariant, long, LongParser, GenericPutXml<long>,
                                     GenericPutCmd<long>>;
using TokenTrait =
    PropertyValueTrait<Arbor::TokenVariant, Arbor::Token, TokenParser, TokenPutXml, TokenPutCmd>;
using ColorTrait =
    PropertyValueTrait<RGBAVariant, RGBA, ColorParser, GenericPutXml<RGBA>, RGBAPutCmd>;
using P2Trait = PropertyValueTrait<P2Variant, P2, P2Parser, GenericPutXml<P2>, P2PutCmd>;
using P3Trait = PropertyValueTrait<P3Variant, P3, P3Parser, GenericPutXml<P3>, P3PutCmd>;
using FontTrait = PropertyValueTrait<FontStyleVariant, FontStyle, FontStyleParser,
                                     GenericPutXml<FontStyle>, FontStylePutCmd>;
using StringTrait = PropertyValueTrait<Arbor::FixedStringVariant, Tessel::FixedStringBase<char>,
                                       Utf8StringParser, StringPutXml, StringPutCmd>;
using MStringTrait =
    PropertyValueTrait<Arbor::FixedUStringVariant, Tessel::FixedStringBase<wchar_t>, MStringParser,
                       MStringPutXml, MStringPutCmd>;

} // namespace Grafel
