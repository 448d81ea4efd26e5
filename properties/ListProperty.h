// Descriptors of the list family: elements with many properties of which few are set keep their
// explicit values in an attribute list (AttributeListElement), and the descriptor holds only the
// name, the default and the text forms.
#pragma once

#include <grafel/arbor/DomException.h>
#include <grafel/properties/PlotElement.h>
#include <grafel/properties/Property.h>
#include <grafel/properties/ValueTraits.h>

#include <ostream>
#include <type_traits>

namespace Grafel {

/// Runs `parse` on `utf8`, first replacing malformed sequences by U+FFFD, so that every parser
/// sees well-formed text.
bool parseSanitized(const char* utf8, bool (*parse)(void* out, const char* text), void* out);

/// A descriptor of the list family for values of `Trait`, of kind `K`. Its member operations
/// are empty: the list element stores and resolves the values itself. The member family
/// derives from it and fills them in.
template <class Trait, Kind K> class ListPropertyImpl : public Property {
public:
    using TraitType = Trait;
    using Value = typename Trait::Value;
    using VariantType = typename Trait::VariantType;
    static constexpr Kind kind = K;

    ListPropertyImpl(const Value& defaultValue, int id)
        : Property(id), defaultTyped_(defaultValue) {
        default_ = Trait::toVariant(defaultValue);
    }

    bool isInherited() const override { return K == Kind::Inherited; }
    bool isMandatory() const override { return K == Kind::Mandatory; }
    Arbor::Variant defaultValue() const override { return default_; }

    void setFromString(PlotElement* element, const char* utf8) const override {
        Value value = defaultTyped_;
        const bool ok = parseSanitized(
            utf8,
            [](void* out, const char* text) {
                return typename Trait::Parser()(*static_cast<Value*>(out), text);
            },
            &value);
        if (!ok) {
            refuseValueString(element, name_, utf8);
        }
        element->setAttribute(name_, Trait::toVariant(value));
    }

    bool refreshInherited(PlotElement*, const std::vector<PlotElement*>&) const override {
        return false;
    }
    void normalizeAgainst(PlotElement*, PlotElement*) const override {}

    std::ostream& putXmlValue(std::ostream& out, const Arbor::Variant& value) const override {
        if (value.is<VariantType>()) putXml(out, Trait::fromVariant(value));
        return out;
    }
    std::ostream& putXmlMember(std::ostream& out, PlotElement*) const override { return out; }
    void putCmdPrefixed(CmdOStream& out, Arbor::Token prefix,
                        const Arbor::Variant& value) const override {
        if (!value.is<VariantType>()) return;
        out.beginItem();
        out << "plot::" << prefix << "::" << name_ << '=';
        Trait::PutCmd::put(out, Trait::fromVariant(value));
        out.endItem();
    }
    void putCmdValue(CmdOStream& out, const Arbor::Variant& value) const override {
        if (value.is<VariantType>()) putCmd(out, Trait::fromVariant(value));
    }
    void putCmdMember(CmdOStream&, PlotElement*) const override {}
    bool isSet(const PlotElement*) const override { return false; }
    bool tryGet(const PlotElement*, Arbor::Variant&) const override { return false; }
    bool checkValue(PlotElement* element, const Arbor::Variant& value) const override {
        if (value.is<VariantType>() && isValidValue(element, Trait::fromVariant(value)))
            return true;
        reportIllegalValue(element, name_);
        return false;
    }
    bool mayRemove(const PlotElement*) const override { return K != Kind::Mandatory; }
    Arbor::Variant getValue(const PlotElement*) const override { return Arbor::Variant(); }
    bool isEnabled(const PlotElement*) const override { return true; }
    void setProperty(PlotElement*, const Arbor::Variant&) const override {}
    void storeRaw(PlotElement*, const Arbor::Variant&) const override {}
    void removeRaw(PlotElement*) const override {}
    bool afterChange(PlotElement*, Arbor::Element*) const override { return false; }

    /// Whether a value of the right class may be stored; a constrained type narrows it.
    virtual bool isValidValue(const PlotElement*, const Value&) const { return true; }
    /// Adjusts a value just stored in a member.
    virtual void normalizeValue(Value&) const {}

    const Value& typedDefault() const { return defaultTyped_; }

protected:
    /// ` name="value"`; nothing for a null token, which has no text that would read back.
    void putXml(std::ostream& out, const Value& value) const {
        if constexpr (std::is_same_v<Value, Arbor::Token>)
            if (value.isNull()) return;
        out << ' ' << name_ << "=\"";
        Trait::PutXml::put(out, value);
        out << '"';
    }
    /// An item "name=value".
    void putCmd(CmdOStream& out, const Value& value) const {
        out.beginItem();
        out << name_ << '=';
        Trait::PutCmd::put(out, value);
        out.endItem();
    }
    /// Value equality in the value's own sense (a NaN equals nothing), when `v` is of this
    /// trait's class.
    static bool equalsValue(const Arbor::Variant& v, const Value& value) {
        return v.is<VariantType>() && Trait::fromVariant(v) == value;
    }

    Value defaultTyped_;
};

template <class Trait> using MandatoryListPropertyImpl = ListPropertyImpl<Trait, Kind::Mandatory>;
template <class Trait> using OptionalListPropertyImpl = ListPropertyImpl<Trait, Kind::Optional>;
template <class Trait> using InheritedListPropertyImpl = ListPropertyImpl<Trait, Kind::Inherited>;

} // namespace Grafel
