// The element classes with no descriptor table and a single attribute of their own (Expr's
// Opt, VExpr's Val): how that attribute is reached, held once for all of them.
#pragma once

#include <grafel/arbor/DomException.h>
#include <grafel/arbor/Variant.h>
#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// An element on Outer (its ElementClass) whose only attribute is Attr::name(), kept in
/// value_ as an Attr::Value and carried by an Attr::Holder variant. Any other name is an
/// illegal attribute; the attribute cannot be removed, and nothing is inherited. Attr also
/// gives the value a new element starts with, none(), and the attribute's static descriptor,
/// descriptor(). The derived class reads the attribute's text (setAttributeString) and writes
/// its XML form.
template <class Outer, class Attr> class SoleAttributeElement : public Outer {
public:
    SoleAttributeElement(const SoleAttributeElement& other) = default;

    /// The value as an Attr::Holder; any other name reports and throws DomException 15.
    Arbor::Variant getAttribute(Arbor::Token name) const override {
        checkName(name);
        return typename Attr::Holder(value_);
    }
    /// True for the attribute only.
    bool hasAttribute(Arbor::Token name) const override { return name == Attr::name(); }
    bool hasProperty(Arbor::Token name) const override { return name == Attr::name(); }
    /// The same as getAttribute().
    Arbor::Variant getProperty(Arbor::Token name) const override { return getAttribute(name); }
    /// The same as setAttribute(): nothing is inherited.
    void setProperty(Arbor::Token name, const Arbor::Variant& value) override {
        this->setAttribute(name, value);
    }
    bool isPropertyEnabled(Arbor::Token name) const override { return name == Attr::name(); }
    /// The static descriptor of the attribute, null for any other name.
    Property* propertyInfo(Arbor::Token name) const override {
        return name == Attr::name() ? Attr::descriptor() : nullptr;
    }
    /// Fires for a change on this element; never goes on to the children.
    bool afterAttributeChange(Arbor::Element* source, Arbor::Token name) override {
        if (source == this) this->fireAfterPropertyChange(name);
        return false;
    }

protected:
    explicit SoleAttributeElement(Arbor::Document* document)
        : Outer(document), value_(Attr::none()) {}

    /// Reports and throws DomException 15 unless `name` is the attribute's.
    void checkName(Arbor::Token name) const {
        if (name != Attr::name()) {
            this->refuse(Arbor::DomException::InvalidAccessErr, "illegal attribute '%s'\n",
                         name.text());
        }
    }

    /// The attribute with an Attr::Holder.
    bool maySetAttribute(Arbor::Token name, const Arbor::Variant& value) override {
        return name == Attr::name() && value.is<typename Attr::Holder>();
    }
    /// The attribute names the element's role, or stands for its absence by none(): it cannot
    /// be removed.
    bool mayRemoveAttribute(Arbor::Token) override { return false; }
    void setAttributeRaw(Arbor::Token name, const Arbor::Variant& value) override {
        if (const auto* held = value.as<typename Attr::Holder>(); held && name == Attr::name())
            value_ = held->val();
    }
    void removeAttributeRaw(Arbor::Token) override {}

    typename Attr::Value value_;
};

} // namespace Grafel
