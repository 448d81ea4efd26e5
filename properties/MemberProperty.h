// Descriptors of the member family: each value lives in a member of its exact type in the
// element, with one bit in the element's 32-bit presence word. The member doubles as a cache of
// the effective value, so that a typed getter is one load.
#pragma once

#include <grafel/properties/AttributeListElement.h>
#include <grafel/properties/ListProperty.h>

#include <cstdint>

namespace Grafel {

/// A descriptor of the member family for class E, values of `Trait`, kind `K`. It holds the
/// bit, a pointer to E's presence word and a pointer to the value member; no per-element data.
template <class E, class Trait, Kind K> class PropertyImpl : public ListPropertyImpl<Trait, K> {
    using Base = ListPropertyImpl<Trait, K>;

public:
    using Value = typename Trait::Value;
    using VariantType = typename Trait::VariantType;
    using Base::name_;

    PropertyImpl(std::uint32_t bit, std::uint32_t E::*presence, Value E::*member,
                 const Value& defaultValue, int id)
        : Base(defaultValue, id), bit_(bit), presence_(presence), member_(member) {}

    bool refreshInherited(PlotElement* element,
                          const std::vector<PlotElement*>& chain) const override {
        if constexpr (K == Kind::Mandatory) {
            return false;
        } else {
            if (isSet(element)) return false;
            Value& member = self(element)->*member_;
            member = this->defaultTyped_;
            if constexpr (K == Kind::Inherited) {
                for (PlotElement* candidate : chain) {
                    // A list element's record is read in place, without a copy.
                    if (const AttributeListElement* list = candidate->asAttributeList()) {
                        const Arbor::Variant* v = list->findAttribute(name_);
                        if (!v) continue;
                        if (v->is<VariantType>()) member = Trait::fromVariant(*v);
                        break;
                    }
                    if (!candidate->hasAttribute(name_)) continue;
                    const Arbor::Variant v = candidate->getAttribute(name_);
                    if (v.is<VariantType>()) member = Trait::fromVariant(v);
                    break;
                }
            }
            this->fireChange(element, name_);
            return true;
        }
    }

    void normalizeAgainst(PlotElement* element, PlotElement* from) const override {
        if constexpr (K == Kind::Inherited) {
            if (isSet(element) && element->inheritingFrom(name_) == from &&
                Base::equalsValue(from->getProperty(name_), self(element)->*member_))
                element->removeAttribute(name_);
        }
    }

    std::ostream& putXmlMember(std::ostream& out, PlotElement* element) const override {
        this->putXml(out, self(element)->*member_);
        return out;
    }
    void putCmdMember(CmdOStream& out, PlotElement* element) const override {
        this->putCmd(out, self(element)->*member_);
    }
    bool isSet(const PlotElement* element) const override {
        return K == Kind::Mandatory || (self(element)->*presence_ & bit_) != 0;
    }
    bool tryGet(const PlotElement* element, Arbor::Variant& out) const override {
        if (!isSet(element)) return false;
        out = Trait::toVariant(self(element)->*member_);
        return true;
    }
    Arbor::Variant getValue(const PlotElement* element) const override {
        return Trait::toVariant(self(element)->*member_);
    }
    void setProperty(PlotElement* element, const Arbor::Variant& value) const override {
        if constexpr (K == Kind::Inherited) {
            PlotElement* from = element->inheritingFrom(name_);
            if (from && from->getProperty(name_) == value) {
                element->removeAttribute(name_);
                return;
            }
        }
        element->setAttribute(name_, value);
    }
    void storeRaw(PlotElement* element, const Arbor::Variant& value) const override {
        E* e = self(element);
        e->*presence_ |= bit_;
        e->*member_ = Trait::fromVariant(value);
        this->normalizeValue(e->*member_);
    }
    void removeRaw(PlotElement* element) const override {
        if constexpr (K != Kind::Mandatory) {
            E* e = self(element);
            e->*presence_ &= ~bit_;
            e->*member_ = this->defaultTyped_;
            if constexpr (K == Kind::Inherited) {
                if (PlotElement* from = element->inheritingFrom(name_)) {
                    const Arbor::Variant v = from->getProperty(name_);
                    if (v.is<VariantType>()) e->*member_ = Trait::fromVariant(v);
                }
            }
        }
    }
    bool afterChange(PlotElement* element, Arbor::Element* source) const override {
        if (element == source) {
            this->fireChange(element, name_);
            return true;
        }
        std::vector<PlotElement*> chain;
        element->getInheritanceChain(chain);
        return refreshInherited(element, chain);
    }

    std::uint32_t bit() const { return bit_; }

private:
    static E* self(PlotElement* element) { return static_cast<E*>(element); }
    static const E* self(const PlotElement* element) { return static_cast<const E*>(element); }

    std::uint32_t bit_;
    std::uint32_t E::*presence_;
    Value E::*member_;
};

template <class E, class Trait>
using MandatoryPropertyImpl = PropertyImpl<E, Trait, Kind::Mandatory>;
template <class E, class Trait> using OptionalPropertyImpl = PropertyImpl<E, Trait, Kind::Optional>;
template <class E, class Trait>
using InheritedPropertyImpl = PropertyImpl<E, Trait, Kind::Inherited>;

} // namespace Grafel
