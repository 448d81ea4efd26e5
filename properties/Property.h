// The descriptor of one attribute of an element class: its name, kind, default, text forms and
// where the value lives. Elements hold no attribute logic of their own; they look the
// descriptor up by name and delegate to it.
#pragma once

#include <grafel/arbor/Element.h>
#include <grafel/arbor/Variant.h>
#include <grafel/foundation/CmdOStream.h>

#include <iosfwd>
#include <span>
#include <vector>

namespace Grafel {

class PlotElement;

/// Whether an attribute may be absent and where its value comes from when it is.
/// Mandatory: always present, cannot be removed, never inherits. Optional: present when set,
/// else the default. Inherited: present when set, else the value of the nearest element that
/// holds it by the element's inheritance rule, else the default.
enum class Kind { Mandatory, Optional, Inherited };

/// How the table that declared a descriptor names it in code, kept for references generated
/// from the tables: the family, the descriptor type and the typed getter, as written there.
struct PropertyOrigin {
    /// "member" (a member of the element) or "list" (an attribute list's record).
    const char* family = "";
    const char* descriptor = "";
    /// The typed getter, such as "getLineWidth".
    const char* getter = "";
};

/// Abstract descriptor. Descriptors are static, built once when their class table fills, and
/// hold no per-element data; the member family knows where in the element its value lives.
/// The operations are declared in table order.
class Property {
public:
    explicit Property(int id);
    Property(const Property&) = delete;
    Property& operator=(const Property&) = delete;
    virtual ~Property();

    virtual bool isInherited() const = 0;
    virtual bool isMandatory() const = 0;
    /// The default as a variant.
    virtual Arbor::Variant defaultValue() const = 0;
    /// Reads the value from UTF-8 text and sets it through the element's guarded setAttribute.
    /// Unreadable text reports "illegal value string" and throws DomException 12, with no change.
    virtual void setFromString(PlotElement* element, const char* utf8) const = 0;
    /// Re-derives an absent value from `chain` (best candidate first) or the default, and
    /// notifies; true when it did.
    virtual bool refreshInherited(PlotElement* element,
                                  const std::vector<PlotElement*>& chain) const = 0;
    /// Drops an explicit value that equals what `from` gives.
    virtual void normalizeAgainst(PlotElement* element, PlotElement* from) const = 0;
    /// ` name="value"` of a stored variant.
    virtual std::ostream& putXmlValue(std::ostream& out, const Arbor::Variant& value) const = 0;
    /// ` name="value"` of the element's member.
    virtual std::ostream& putXmlMember(std::ostream& out, PlotElement* element) const = 0;
    /// The style form: an item "plot::PREFIX::name=value".
    virtual void putCmdPrefixed(CmdOStream& out, Arbor::Token prefix,
                                const Arbor::Variant& value) const = 0;
    /// An item "name=value" of a stored variant.
    virtual void putCmdValue(CmdOStream& out, const Arbor::Variant& value) const = 0;
    /// An item "name=value" of the element's member.
    virtual void putCmdMember(CmdOStream& out, PlotElement* element) const = 0;
    /// Whether the element holds an explicit value.
    virtual bool isSet(const PlotElement* element) const = 0;
    /// The explicit value, when there is one.
    virtual bool tryGet(const PlotElement* element, Arbor::Variant& out) const = 0;
    /// The veto of maySetAttribute: the right variant class and a valid value; otherwise
    /// reports "illegal value" and answers false.
    virtual bool checkValue(PlotElement* element, const Arbor::Variant& value) const = 0;
    /// The veto of mayRemoveAttribute.
    virtual bool mayRemove(const PlotElement* element) const = 0;
    /// The effective value.
    virtual Arbor::Variant getValue(const PlotElement* element) const = 0;
    virtual bool isEnabled(const PlotElement* element) const = 0;
    /// Sets the value, taking inheritance into account.
    virtual void setProperty(PlotElement* element, const Arbor::Variant& value) const = 0;
    /// Stores a checked value (setAttributeRaw).
    virtual void storeRaw(PlotElement* element, const Arbor::Variant& value) const = 0;
    /// Removes the explicit value (removeAttributeRaw).
    virtual void removeRaw(PlotElement* element) const = 0;
    /// Follows any change of this attribute on `source` (this element or one above it);
    /// answers whether the change goes on to the children.
    virtual bool afterChange(PlotElement* element, Arbor::Element* source) const = 0;

    /// The catalogue ids of the words a token property knows; empty for other kinds. The
    /// property stores words outside the list as given; a checker may point them out.
    virtual std::span<const int> knownWords() const { return {}; }

    Arbor::Token name() const { return name_; }
    /// The default, without a copy.
    const Arbor::Variant& defaultRef() const { return default_; }
    /// Where the descriptor was declared; empty texts for one added outside a table.
    const PropertyOrigin& origin() const { return origin_; }

protected:
    /// Reports through the element's document.
    /// Reports "illegal value string" for `text` offered as `name`, and throws DomException 12.
    [[noreturn]] static void refuseValueString(PlotElement* element, Arbor::Token name,
                                               const char* text);
    static void reportIllegalValue(PlotElement* element, Arbor::Token name);
    /// Fires AfterPropertyChangeEvent(element, name).
    static void fireChange(PlotElement* element, Arbor::Token name);

    Arbor::Token name_;
    Arbor::Variant default_;

private:
    friend class PropertyListMgr;
    PropertyOrigin origin_;
};

} // namespace Grafel
