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
// optional, names the getter where the token's text is no fit for one (`id` -> Id). Each row is
// checked where it expands, so that a wrong row is the first error the compiler reports.
//
// The class body says GRAFEL_MEMBER_PROPERTIES(Arc2d, GRAFEL_ARC2D_TABLE), the source file
// GRAFEL_DEFINE_MEMBER_PROPERTIES(Arc2d, GRAFEL_ARC2D_TABLE). A class whose base already has a
// table extends it: GRAFEL_MEMBER_PROPERTIES_EXTENDING(PointLight, AmbientLight, TABLE). Its
// presence bits follow the base's in the base's presence word, its members follow the base's,
// the base's getters stay as they are, and its own rows are looked up, written and refreshed
// first, then the base's, up to the first table of the chain.
//
// The members follow the rows' order unless an ..._ORDERED form names another, by a second
// macro that lists the names only: GRAFEL_MEMBER_PROPERTIES_ORDERED(View3d, TABLE, MEMBERS).
#pragma once

#include <grafel/foundation/Tokens.h>
#include <grafel/properties/MemberProperty.h>
#include <grafel/properties/PropertyListMgr.h>

#include <concepts>
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

/// Found for a pointer to any class that has no member table above it (or of its own): each
/// table class declares a hidden friend of this name for pointers to itself, which argument-
/// dependent lookup prefers for the class and everything derived from it.
constexpr const void* grafelMemberTableOf_(const void*) {
    return nullptr;
}

namespace detail {

/// A descriptor type that a member table row may name: one of the member family, which keeps
/// its bit and the pointers into the element.
template <class D>
concept MemberDescriptor = std::is_base_of_v<Property, D> && requires(const D& d) {
    typename D::Value;
    { d.bit() } -> std::same_as<std::uint32_t>;
};

/// Takes no room in an extending class: on construction it sets the class's own Mandatory bits
/// in the presence word that the first table of the chain holds.
template <class Class> struct MandatoryBits {
    MandatoryBits(std::uint32_t& presence, std::uint32_t bits) { presence |= bits; }
};

/// What a table class's lookup, writing and refreshing fall through to: the table of the base
/// it extends, or nothing for the first table of a chain.
template <class C> Property* baseTablePropertyInfo(const C* self, Arbor::Token name) {
    using Base = typename C::MemberTableBase_;
    if constexpr (std::is_void_v<Base>)
        return nullptr;
    else
        return self->Base::propertyInfo(name);
}
template <class C> std::ostream& baseTablePutAttributesXml(C* self, std::ostream& out) {
    using Base = typename C::MemberTableBase_;
    if constexpr (std::is_void_v<Base>)
        return out;
    else
        return self->Base::putAttributesXml(out);
}
template <class C> void baseTableRefresh(PlotElement* element) {
    using Base = typename C::MemberTableBase_;
    if constexpr (!std::is_void_v<Base>) Base::refreshMemberTables(element);
}

} // namespace detail

} // namespace Grafel

// The getter of a row: get + the optional getter name, else get + the token name.
#define GRAFEL_PICK_FIRST_(a, ...) a
#define GRAFEL_CONCAT_(a, b) a##b
#define GRAFEL_CONCAT_EXPANDED_(a, b) GRAFEL_CONCAT_(a, b)
#define GRAFEL_STRINGIZE_(a) #a
#define GRAFEL_STRINGIZE_EXPANDED_(a) GRAFEL_STRINGIZE_(a)
#define GRAFEL_GETTER_(Name, ...)                                                                  \
    GRAFEL_CONCAT_EXPANDED_(get, GRAFEL_PICK_FIRST_(__VA_ARGS__ __VA_OPT__(, ) Name))

// A member row is P(Kind, Type, Name, Init, Default [, Getter]). The expansions take the
// columns after the name from `...`, padded, so that a row with a column missing or too many
// reaches its check (GRAFEL_MEMBER_CHECK_, expanded first) instead of failing in the
// preprocessor at every expansion.
#define GRAFEL_ROW_COUNT_(...) GRAFEL_ROW_COUNT_I_(__VA_ARGS__, 5, 4, 3, 2, 1, 0)
#define GRAFEL_ROW_COUNT_I_(a1, a2, a3, a4, a5, N, ...) N
#define GRAFEL_ROW_INIT_(...) GRAFEL_ROW_ARG0_(__VA_ARGS__, , )
#define GRAFEL_ROW_ARG0_(a, ...) a
#define GRAFEL_ROW_DEFAULT_(...) GRAFEL_ROW_ARG1_(__VA_ARGS__, , )
#define GRAFEL_ROW_ARG1_(a, b, ...) b
#define GRAFEL_ROW_GETTER_(Name, ...) GRAFEL_ROW_ARG2_(__VA_ARGS__, Name, Name, Name)
#define GRAFEL_ROW_ARG2_(a, b, c, ...) c

#define GRAFEL_MEMBER_VALUE_(K, Type) typename Type<Self, ::Grafel::Kind::K>::Value
#define GRAFEL_MEMBER_CHECK_(K, Type, Name, ...)                                                   \
    static_assert(GRAFEL_ROW_COUNT_(__VA_ARGS__) == 2 || GRAFEL_ROW_COUNT_(__VA_ARGS__) == 3,      \
                  "row " #Name ": a row is P(Kind, Type, Name, Init, Default [, Getter])");        \
    static_assert(::Grafel::detail::MemberDescriptor<Type<Self, ::Grafel::Kind::K>>,               \
                  "row " #Name ": the descriptor type is no member-family type "                   \
                  "(a template over the class and the kind, such as DoubleProperty)");             \
    static_assert(std::is_constructible_v<GRAFEL_MEMBER_VALUE_(K, Type),                           \
                                          decltype(GRAFEL_ROW_INIT_(__VA_ARGS__))>,                \
                  "row " #Name ": the constructor's value does not fit the descriptor's type");
#define GRAFEL_MEMBER_DEFAULT_CHECK_(K, Type, Name, ...)                                           \
    static_assert(std::is_constructible_v<GRAFEL_MEMBER_VALUE_(K, Type),                           \
                                          decltype(GRAFEL_ROW_DEFAULT_(__VA_ARGS__))>,             \
                  "row " #Name ": the default does not fit the descriptor's type");
#define GRAFEL_MEMBER_INDEX_(K, Type, Name, ...) propertyRow_##Name,
#define GRAFEL_MEMBER_FIELD_(K, Type, Name, ...)                                                   \
    GRAFEL_MEMBER_VALUE_(K, Type) m_##Name = GRAFEL_ROW_INIT_(__VA_ARGS__);
#define GRAFEL_MEMBER_GETTER_(K, Type, Name, ...)                                                  \
    ::Grafel::GetterResult<GRAFEL_MEMBER_VALUE_(K, Type)> GRAFEL_CONCAT_EXPANDED_(                 \
        get, GRAFEL_ROW_GETTER_(Name, __VA_ARGS__))() const {                                      \
        return m_##Name;                                                                           \
    }
#define GRAFEL_MEMBER_MANDATORY_(K, Type, Name, ...)                                               \
    | (::Grafel::Kind::K == ::Grafel::Kind::Mandatory                                              \
           ? 1u << (propertyIndexOffset_ + propertyRow_##Name)                                     \
           : 0u)
#define GRAFEL_MEMBER_PTR_(K, Type, Name, ...)                                                     \
    if (id == ::Grafel::id_##Name) return ::Grafel::memberIf<Want>(&Self::m_##Name);
#define GRAFEL_MEMBER_ADD_(K, Type, Name, ...)                                                     \
    {                                                                                              \
        using D = Type<Self, ::Grafel::Kind::K>;                                                   \
        static D d(1u << (Self::propertyIndexOffset_ + Self::propertyRow_##Name),                  \
                   Self::presencePtr(),                                                            \
                   Self::attributePtr<typename D::Value>(::Grafel::id_##Name),                     \
                   GRAFEL_ROW_DEFAULT_(__VA_ARGS__), ::Grafel::id_##Name);                         \
        add(::Grafel::getToken(::Grafel::id_##Name), &d,                                           \
            {"member", #Type,                                                                      \
             GRAFEL_STRINGIZE_EXPANDED_(                                                           \
                 GRAFEL_CONCAT_EXPANDED_(get, GRAFEL_ROW_GETTER_(Name, __VA_ARGS__)))});           \
    }

// What every table class declares, the first of a chain and an extending one alike: the row
// checks (first, so that a wrong row is the first error), the row indices, the typed getters,
// the attribute pointer families and the table operations. Offset is the number of presence
// bits that the bases' tables take.
#define GRAFEL_MEMBER_TABLE_BODY_(Class, TABLE, Offset)                                            \
public:                                                                                            \
    using Self = Class;                                                                            \
    TABLE(GRAFEL_MEMBER_CHECK_)                                                                    \
    friend constexpr const Class* grafelMemberTableOf_(const Class*) {                             \
        return nullptr;                                                                            \
    }                                                                                              \
    enum PropertyRow : unsigned { TABLE(GRAFEL_MEMBER_INDEX_) propertyRowCount_ };                 \
    /** Presence bits taken by this table and the tables of its bases. */                          \
    static constexpr unsigned propertyCount = (Offset) + propertyRowCount_;                        \
    static_assert(propertyCount <= 32, "a presence word has 32 bits");                             \
    /** The first presence bit of this table: the bits before it are its bases'. */                \
    static constexpr unsigned propertyIndexOffset_ = (Offset);                                     \
    /** The bits of this table's Mandatory rows, set by the constructor. */                        \
    static constexpr std::uint32_t mandatoryBits_ = 0u TABLE(GRAFEL_MEMBER_MANDATORY_);            \
    TABLE(GRAFEL_MEMBER_GETTER_)                                                                   \
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
    /** This class's own descriptor table, without its bases' rows. */                             \
    static ::Grafel::PropertyListMgr& propertyList();                                              \
    /** Re-derives the absent values of `element` from this table, then from the bases'. */        \
    static void refreshMemberTables(::Grafel::PlotElement* element);                               \
    ::Grafel::Property* propertyInfo(::Arbor::Token name) const override;                          \
    std::ostream& putAttributesXml(std::ostream& out) override;                                    \
    void afterParentChanged() override;

// The first table of a chain: what GRAFEL_MEMBER_PROPERTIES and its ordered form share.
// TABLE(ROW) declares what the members need, then FIELDS(FIELD) declares the members.
#define GRAFEL_MEMBER_FIRST_TABLE_(Class, TABLE, ROW, FIELDS, FIELD)                               \
    static_assert(                                                                                 \
        std::is_same_v<decltype(grafelMemberTableOf_(static_cast<const Class*>(nullptr))),         \
                       const void*>,                                                               \
        "a base of " #Class " has a member table already: extend it with "                         \
        "GRAFEL_MEMBER_PROPERTIES_EXTENDING(" #Class ", <that base>, " #TABLE ")");                \
    GRAFEL_MEMBER_TABLE_BODY_(Class, TABLE, 0u)                                                    \
                                                                                                   \
public:                                                                                            \
    using MemberTableBase_ = void;                                                                 \
    /** The member of the property with token id `id` if it holds a Want, else null. */            \
    template <class Want> static Want Class::*attributePtr(int id) {                               \
        TABLE(GRAFEL_MEMBER_PTR_)                                                                  \
        return nullptr;                                                                            \
    }                                                                                              \
    static std::uint32_t Class::*presencePtr() {                                                   \
        return &Class::presence_;                                                                  \
    }                                                                                              \
                                                                                                   \
protected:                                                                                         \
    /** One bit per property of this table and of the tables that extend it. */                    \
    std::uint32_t presence_ = mandatoryBits_;                                                      \
    TABLE(ROW)                                                                                     \
    FIELDS(FIELD)                                                                                  \
                                                                                                   \
private:

/// In the body of a member-family class whose bases have no member table: the presence word
/// and the members (protected), the typed getters, the ten attribute pointer families and the
/// table operations.
#define GRAFEL_MEMBER_PROPERTIES(Class, TABLE)                                                     \
    GRAFEL_MEMBER_FIRST_TABLE_(Class, TABLE, GRAFEL_MEMBER_NO_ROW_, TABLE, GRAFEL_MEMBER_FIELD_)

// The ordered form names each row's value type and constructor's value, so that ORDER can
// declare the members by name alone.
#define GRAFEL_MEMBER_ROW_TYPE_(K, Type, Name, ...)                                                \
    using MemberValue_##Name = GRAFEL_MEMBER_VALUE_(K, Type);                                      \
    static MemberValue_##Name memberInit_##Name() {                                                \
        return MemberValue_##Name(GRAFEL_ROW_INIT_(__VA_ARGS__));                                  \
    }
#define GRAFEL_MEMBER_ORDER_ROW_(Name) +1u
#define GRAFEL_MEMBER_NO_ROW_(...)
#define GRAFEL_MEMBER_FIELD_NAMED_(Name) MemberValue_##Name m_##Name = memberInit_##Name();

/// GRAFEL_MEMBER_PROPERTIES with the members laid out in the order of ORDER, a macro taking one
/// argument M and listing M(Name) once for each row of TABLE: registration (lookup, writing,
/// refreshing) keeps TABLE's order, while the members can be grouped by size so that the
/// class wastes no room on padding.
#define GRAFEL_MEMBER_PROPERTIES_ORDERED(Class, TABLE, ORDER)                                      \
    GRAFEL_MEMBER_FIRST_TABLE_(Class, TABLE, GRAFEL_MEMBER_ROW_TYPE_, ORDER,                       \
                               GRAFEL_MEMBER_FIELD_NAMED_)                                         \
    static_assert(0u ORDER(GRAFEL_MEMBER_ORDER_ROW_) == propertyRowCount_,                         \
                  #ORDER " names each row of " #TABLE " once");                                    \
                                                                                                   \
private:

// The class whose pointer finds the nearest member table. Clang's lookup does not search the
// bases of a class still being defined, so there it starts at Base, which checks that Base has
// a table but not that no class in between has one; g++ checks the whole claim.
#if defined(__clang__)
#define GRAFEL_MEMBER_LOOKUP_FROM_(Class, Base) Base
#else
#define GRAFEL_MEMBER_LOOKUP_FROM_(Class, Base) Class
#endif

// An extending table: what GRAFEL_MEMBER_PROPERTIES_EXTENDING and its ordered form share.
#define GRAFEL_MEMBER_EXTENDING_TABLE_(Class, Base, TABLE, ROW, FIELDS, FIELD)                     \
    static_assert(                                                                                 \
        std::is_same_v<decltype(grafelMemberTableOf_(                                              \
                           static_cast<const GRAFEL_MEMBER_LOOKUP_FROM_(Class, Base)*>(nullptr))), \
                       const Base*>,                                                               \
        #Base " is not the nearest base of " #Class " with a member table: name that "             \
              "one in GRAFEL_MEMBER_PROPERTIES_EXTENDING(" #Class ", <base>, " #TABLE ")");        \
    GRAFEL_MEMBER_TABLE_BODY_(Class, TABLE, Base::propertyCount)                                   \
                                                                                                   \
public:                                                                                            \
    using MemberTableBase_ = Base;                                                                 \
    /** The member of the property with token id `id` if it holds a Want, here or in Base. */      \
    template <class Want> static Want Class::*attributePtr(int id) {                               \
        TABLE(GRAFEL_MEMBER_PTR_)                                                                  \
        return Base::template attributePtr<Want>(id);                                              \
    }                                                                                              \
    static std::uint32_t Class::*presencePtr() {                                                   \
        return Base::presencePtr();                                                                \
    }                                                                                              \
                                                                                                   \
protected:                                                                                         \
    [[no_unique_address]] ::Grafel::detail::MandatoryBits<Class> mandatoryBitsSet_{                \
        this->presence_, mandatoryBits_};                                                          \
    TABLE(ROW)                                                                                     \
    FIELDS(FIELD)                                                                                  \
                                                                                                   \
private:

/// In the body of a member-family class Class that extends the member table of Base, the
/// nearest of its bases with one: Class's rows take the next bits of Base's presence word, its
/// members follow Base's, and lookup, writing and refreshing go through its rows, then Base's.
#define GRAFEL_MEMBER_PROPERTIES_EXTENDING(Class, Base, TABLE)                                     \
    GRAFEL_MEMBER_EXTENDING_TABLE_(Class, Base, TABLE, GRAFEL_MEMBER_NO_ROW_, TABLE,               \
                                   GRAFEL_MEMBER_FIELD_)

/// GRAFEL_MEMBER_PROPERTIES_EXTENDING with Class's members laid out in the order of ORDER (as
/// for GRAFEL_MEMBER_PROPERTIES_ORDERED): a small member first can fill the end of Base.
#define GRAFEL_MEMBER_PROPERTIES_EXTENDING_ORDERED(Class, Base, TABLE, ORDER)                      \
    GRAFEL_MEMBER_EXTENDING_TABLE_(Class, Base, TABLE, GRAFEL_MEMBER_ROW_TYPE_, ORDER,             \
                                   GRAFEL_MEMBER_FIELD_NAMED_)                                     \
    static_assert(0u ORDER(GRAFEL_MEMBER_ORDER_ROW_) == propertyRowCount_,                         \
                  #ORDER " names each row of " #TABLE " once");                                    \
                                                                                                   \
private:

// The definitions shared by the two forms below.
#define GRAFEL_DEFINE_MEMBER_TABLE_(Class, TABLE)                                                  \
    namespace {                                                                                    \
    class Class##PropertyListMgr final : public ::Grafel::PropertyListMgr {                        \
        void fill() override {                                                                     \
            using Self = Class;                                                                    \
            TABLE(GRAFEL_MEMBER_DEFAULT_CHECK_)                                                    \
            TABLE(GRAFEL_MEMBER_ADD_)                                                              \
        }                                                                                          \
    };                                                                                             \
    }                                                                                              \
    ::Grafel::PropertyListMgr& Class::propertyList() {                                             \
        static Class##PropertyListMgr table;                                                       \
        return table;                                                                              \
    }                                                                                              \
    ::Grafel::Property* Class::propertyInfo(::Arbor::Token name) const {                           \
        if (::Grafel::Property* p = propertyList().find(name)) return p;                           \
        return ::Grafel::detail::baseTablePropertyInfo<Class>(this, name);                         \
    }                                                                                              \
    std::ostream& Class::putAttributesXml(std::ostream& out) {                                     \
        propertyList().putAttributesXml(out, this);                                                \
        return ::Grafel::detail::baseTablePutAttributesXml<Class>(this, out);                      \
    }                                                                                              \
    void Class::refreshMemberTables(::Grafel::PlotElement* element) {                              \
        propertyList().refreshAll(element);                                                        \
        ::Grafel::detail::baseTableRefresh<Class>(element);                                        \
    }

/// In the source file of a member-family class: its descriptor table, found by name and written
/// as attributes. The class defines afterParentChanged() itself: for a class whose move does
/// something else than refresh its members (an image passes it on to its primitives).
#define GRAFEL_DEFINE_MEMBER_TABLE(Class, TABLE) GRAFEL_DEFINE_MEMBER_TABLE_(Class, TABLE)

/// In the source file of a member-family class: its descriptor table, found by name, written
/// as attributes, and refreshed (with the bases' tables) when the element moves.
#define GRAFEL_DEFINE_MEMBER_PROPERTIES(Class, TABLE)                                              \
    GRAFEL_DEFINE_MEMBER_TABLE_(Class, TABLE)                                                      \
    void Class::afterParentChanged() {                                                             \
        refreshMemberTables(this);                                                                 \
    }
