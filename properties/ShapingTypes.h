// Properties that behave like their base in every respect but output: some never reach XML,
// some never reach command text (or only through the element's own putCmd), one writes its
// value as a unit word.
#pragma once

#include <grafel/foundation/Tokens.h>
#include <grafel/properties/TokenTypes.h>

#include <cmath>
#include <ostream>

namespace Grafel {

/// Writes nothing as XML, in either form.
template <class Base> class XmlSilent : public Base {
public:
    using Base::Base;
    std::ostream& putXmlValue(std::ostream& out, const Arbor::Variant&) const override {
        return out;
    }
    std::ostream& putXmlMember(std::ostream& out, PlotElement*) const override { return out; }
};

/// Writes nothing in the two command forms of a given variant (the style form and the plain
/// one); the form of an element's member stays, for elements that write it themselves.
template <class Base> class VariantCmdSilent : public Base {
public:
    using Base::Base;
    void putCmdPrefixed(CmdOStream&, Arbor::Token, const Arbor::Variant&) const override {}
    void putCmdValue(CmdOStream&, const Arbor::Variant&) const override {}
};

/// Writes nothing as command text, in any form.
template <class Base> class CmdSilent : public VariantCmdSilent<Base> {
public:
    using VariantCmdSilent<Base>::VariantCmdSilent;
    void putCmdMember(CmdOStream&, PlotElement*) const override {}
};

/// A double whose NaN means "not given": a NaN writes nothing in either XML form nor in the
/// plain command forms (value and member). The style form writes it as the base does.
template <class Base> class NaNSilent : public Base {
public:
    using Base::Base;
    std::ostream& putXmlValue(std::ostream& out, const Arbor::Variant& value) const override {
        return isNaN(value) ? out : Base::putXmlValue(out, value);
    }
    std::ostream& putXmlMember(std::ostream& out, PlotElement* element) const override {
        return isNaN(this->getValue(element)) ? out : Base::putXmlMember(out, element);
    }
    void putCmdValue(CmdOStream& out, const Arbor::Variant& value) const override {
        if (!isNaN(value)) Base::putCmdValue(out, value);
    }
    void putCmdMember(CmdOStream& out, PlotElement* element) const override {
        if (!isNaN(this->getValue(element))) Base::putCmdMember(out, element);
    }

private:
    static bool isNaN(const Arbor::Variant& value) {
        const auto* number = value.as<typename Base::VariantType>();
        return number && std::isnan(number->val());
    }
};

/// A unit token whose plain command form is a unit of the host language: "name=unit::mm" for
/// MM, "inch" for In, "pt" for anything else. The other forms are those of the base.
template <class Base> class UnitCmdForm : public Base {
public:
    using Base::Base;
    void putCmdValue(CmdOStream& out, const Arbor::Variant& value) const override {
        const auto* unit = value.as<Arbor::TokenVariant>();
        if (!unit) return;
        out.beginItem();
        out << this->name() << "=unit::" << unitWord(unit->val());
        out.endItem();
    }

private:
    static const char* unitWord(Arbor::Token unit) {
        if (unit == getToken(id_MM)) return "mm";
        if (unit == getToken(id_In)) return "inch";
        return "pt";
    }
};

/// `id`: a stored UTF-8 string that never reaches XML through the attribute writers.
template <class E, Kind K> using IdPropertyImpl = XmlSilent<StringProperty<E, K>>;
template <Kind K> using IdListPropertyImpl = XmlSilent<StringListProperty<K>>;

/// `Consistent`: written to XML, never to command text.
template <class E, Kind K> using ConsistentPropertyImpl = CmdSilent<BoolProperty<E, K>>;
template <Kind K> using ConsistentListPropertyImpl = CmdSilent<BoolListProperty<K>>;

/// `Type` of an object: written to XML, never to command text.
template <class E, Kind K> using TypePropertyImpl = CmdSilent<TokenProperty<E, K>>;
template <Kind K> using TypeListPropertyImpl = CmdSilent<TokenListProperty<K>>;

/// `AutoViewingBox`: a mask of flags, left out of the descriptor's command forms.
template <class E, Kind K> using AutoViewingBoxType = VariantCmdSilent<LongProperty<E, K>>;
template <Kind K> using AutoViewingBoxTypeL = VariantCmdSilent<LongListProperty<K>>;

/// `LegendColor`: any token, left out of the descriptor's command forms.
template <class E, Kind K> using LegendColorType = VariantCmdSilent<TokenProperty<E, K>>;
template <Kind K> using LegendColorTypeL = VariantCmdSilent<TokenListProperty<K>>;

/// The position of a scene on the page, which the scene writes itself.
template <class E, Kind K> using PositionType = VariantCmdSilent<DoubleProperty<E, K>>;
template <Kind K> using PositionTypeL = VariantCmdSilent<DoubleListProperty<K>>;

/// A time, NaN while not given.
template <class E, Kind K> using TimeOrNaNType = NaNSilent<DoubleProperty<E, K>>;
template <Kind K> using TimeOrNaNTypeL = NaNSilent<DoubleListProperty<K>>;

/// The output unit of a page: MM, In or Pt.
template <class E, Kind K>
using OutputUnitsType = UnitCmdForm<TokenVocabulary<TokenProperty<E, K>, Vocabulary::outputUnits>>;
template <Kind K>
using OutputUnitsTypeL =
    UnitCmdForm<TokenVocabulary<TokenListProperty<K>, Vocabulary::outputUnits>>;

} // namespace Grafel
