// The declaration of a member-family class's properties, written once as a table and expanded
// into the presence word, the value members, typed getters, the attribute pointer families and
// (in the source file) the descriptor table.
//
// A table is a macro taking one argument P and listing one row per property, in registration
// order:
//
//     #define GRAFEL_ARC2D_TABLE(P)   (each row but the last ends the line with a backslash)
//         P(Mandatory, P2Property,    Center,    (P2(0, 0)),     (P2(0, 0)))
//         P(Inherited, LineStyleType, LineStyle, Arbor::Token(), getToken(id_Solid))
//
// with the kind, the descriptor type (a template over the element class and the kind), the
// property's token name, the constructor's value and the descriptor's default. A sixth entry,
// optional, names the getter where the token's text is no fit for one (`id` -> Id). The class body
// says GRAFEL_MEMBER_PROPERTIES(Arc2d, GRAFEL_ARC2D_TABLE), the source file
// GRAFEL_DEFINE_MEMBER_PROPERTIES(Arc2d, GRAFEL_ARC2D_TABLE).
#pragma once

#include <grafel/foundation/Tokens.h>
#include <grafel/properties/MemberProperty.h>
#include <grafel/properties/PropertyListMgr.h>

#include <cstdint>
#include <type_traits>

namespace Grafel {

/// What a typed getter returns: small plain values by value, the rest by reference.
template <class V>
using GetterResult =
    std::conditional_t<std::is_trivially_copyable_v<V> && sizeof(V) <= 16, V, const V&>;

/// `member` when its type is Want, else null: the pointer families pick their members by type.
template <class Want, class C, class Have> constexpr Want C::*memberIf(Have C::*member) {
    if constexpr (std::is_same_v<Want, Have>)
        return member;
    else
        return nullptr;
}

} // namespace Grafel

// The getter of a row: get + the optional getter name, else get + the token name.
#define GRAFEL_PICK_FIRST_(a, ...) a
#define GRAFEL_CONCAT_(a, b) a##b
#define GRAFEL_CONCAT_EXPANDED_(a, b) GRAFEL_CONCAT_(a, b)
#define GRAFEL_GETTER_(Name, ...)                                                                  \
    GRAFEL_CONCAT_EXPANDED_(get, GRAFEL_PICK_FIRST_(__VA_ARGS__ __VA_OPT__(, ) Name))

#define GRAFEL_MEMBER_VALUE_(K, Type) typename Type<Self, ::Grafel::Kind::K>::Value
#define GRAFEL_MEMBER_INDEX_(K, Type, Name, Init, Default, ...) propertyIndex_##Name,
#define GRAFEL_MEMBER_FIELD_(K, Type, Name, Init, Default, ...)                                    \
    GRAFEL_MEMBER_VALUE_(K, Type) m_##Name = Init;
#define GRAFEL_MEMBER_GETTER_(K, Type, Name, Init, Default, ...)                                   \
    ::Grafel::GetterResult<GRAFEL_MEMBER_VALUE_(K, Type)> GRAFEL_GETTER_(                          \
        Name __VA_OPT__(, ) __VA_ARGS__)() const {                                                 \
        return m_##Name;                                                                           \
    }
#define GRAFEL_MEMBER_MANDATORY_(K, Type, Name, Init, Default, ...)                                \
    | (::Grafel::Kind::K == ::Grafel::Kind::Mandatory ? (1u << propertyIndex_##Name) : 0u)
#define GRAFEL_MEMBER_PTR_(K, Type, Name, Init, Default, ...)                                      \
    if (id == ::Grafel::id_##Name) return ::Grafel::memberIf<Want>(&Self::m_##Name);
#define GRAFEL_MEMBER_ADD_(K, Type, Name, Init, Default, ...)                                      \
    {                                                                                              \
        using D = Type<Self, ::Grafel::Kind::K>;                                                   \
        static D d(1u << Self::propertyIndex_##Name, Self::presencePtr(),                          \
                   Self::attributePtr<typename D::Value>(::Grafel::id_##Name), Default,            \
                   ::Grafel::id_##Name);                                                           \
        add(::Grafel::getToken(::Grafel::id_##Name), &d);                                          \
    }

/// In the body of a member-family class: the presence word and members (protected), the typed
/// getters, the ten attribute pointer families and the table operations.
#define GRAFEL_MEMBER_PROPERTIES(Class, TABLE)                                                     \
public:                                                                                            \
    using Self = Class;                                                                            \
    enum PropertyIndex : unsigned { TABLE(GRAFEL_MEMBER_INDEX_) propertyCount };                   \
    static_assert(propertyCount <= 32, "a presence word has 32 bits");                             \
    TABLE(GRAFEL_MEMBER_GETTER_)                                                                   \
    /** The member of the property with token id `id` if it holds a Want, else null. */            \
    template <class Want> static Want Class::*attributePtr(int id) {                               \
        TABLE(GRAFEL_MEMBER_PTR_)                                                                  \
        return nullptr;                                                                            \
    }                                                                                              \
    static bool Class::*boolAttributePtr(int id) {                                                 \
        return attributePtr<bool>(id);                                                             \
    }                                                                                              \
    static long Class::*longAttributePtr(int id) {                                                 \
        return attributePtr<long>(id);                                                             \
    }                                                                                              \
    static double Class::*doubleAttributePtr(int id) {                                             \
        return attributePtr<double>(id);                                                           \
    }                                                                                              \
    static ::Arbor::Token Class::*tokenAttributePtr(int id) {                                      \
        return attributePtr<::Arbor::Token>(id);                                                   \
    }                                                                                              \
    static ::Grafel::RGBA Class::*colorAttributePtr(int id) {                                      \
        return attributePtr<::Grafel::RGBA>(id);                                                   \
    }                                                                                              \
    static ::Grafel::P2 Class::*P2AttributePtr(int id) {                                           \
        return attributePtr<::Grafel::P2>(id);                                                     \
    }                                                                                              \
    static ::Grafel::P3 Class::*P3AttributePtr(int id) {                                           \
        return attributePtr<::Grafel::P3>(id);                                                     \
    }                                                                                              \
    static ::Grafel::FontStyle Class::*fontAttributePtr(int id) {                                  \
        return attributePtr<::Grafel::FontStyle>(id);                                              \
    }                                                                                              \
    static ::Tessel::FixedStringBase<char> Class::*stringAttributePtr(int id) {                    \
        return attributePtr<::Tessel::FixedStringBase<char>>(id);                                  \
    }                                                                                              \
    static ::Tessel::FixedStringBase<wchar_t> Class::*mstringAttributePtr(int id) {                \
        return attributePtr<::Tessel::FixedStringBase<wchar_t>>(id);                               \
    }                                                                                              \
    static std::uint32_t Class::*presencePtr() {                                                   \
        return &Class::presence_;                                                                  \
    }                                                                                              \
    /** This class's own descriptor table. */                                                      \
    static ::Grafel::PropertyListMgr& propertyList();                                              \
    ::Grafel::Property* propertyInfo(::Arbor::Token name) const override;                          \
    std::ostream& putAttributesXml(std::ostream& out) override;                                    \
    void afterParentChanged() override;                                                            \
                                                                                                   \
protected:                                                                                         \
    std::uint32_t presence_ = 0u TABLE(GRAFEL_MEMBER_MANDATORY_);                                  \
    TABLE(GRAFEL_MEMBER_FIELD_)                                                                    \
private:

/// In the source file of a member-family class: its descriptor table, found by name and written
/// as attributes. The class defines afterParentChanged() itself: for a class whose move does
/// something else than refresh its members (an image passes it on to its primitives).
#define GRAFEL_DEFINE_MEMBER_TABLE(Class, TABLE)                                                   \
    namespace {                                                                                    \
    class Class##PropertyListMgr final : public ::Grafel::PropertyListMgr {                        \
        void fill() override {                                                                     \
            using Self = Class;                                                                    \
            TABLE(GRAFEL_MEMBER_ADD_)                                                              \
        }                                                                                          \
    };                                                                                             \
    }                                                                                              \
    ::Grafel::PropertyListMgr& Class::propertyList() {                                             \
        static Class##PropertyListMgr table;                                                       \
        return table;                                                                              \
    }                                                                                              \
    ::Grafel::Property* Class::propertyInfo(::Arbor::Token name) const {                           \
        return propertyList().find(name);                                                          \
    }                                                                                              \
    std::ostream& Class::putAttributesXml(std::ostream& out) {                                     \
        propertyList().putAttributesXml(out, this);                                                \
        return out;                                                                                \
    }

/// In the source file of a member-family class: its descriptor table, found by name, written
/// as attributes, and refreshed when the element moves.
#define GRAFEL_DEFINE_MEMBER_PROPERTIES(Class, TABLE)                                              \
    GRAFEL_DEFINE_MEMBER_TABLE(Class, TABLE)                                                       \
    void Class::afterParentChanged() {                                                             \
        propertyList().refreshAll(this);                                                           \
    }
