// The declaration of a list-family property table, written once as a table and expanded into
// a descriptor table (in a source file) and typed getters (in any class that resolves through
// AttributeListElement, the element and the style classes alike).
//
// A table is a macro taking one argument P, one row per property in registration order:
//
//     #define GRAFEL_CANVAS_TABLE(P)   (each row but the last ends the line with a backslash)
//         P(Optional, StringListProperty, id,    (Tessel::FixedStringBase<char>()))
//         P(Optional, PosOutputSizeListPropertyImpl, Width, 297.0)
//
// with the kind, the descriptor type (a template over the kind), the property's token name and
// the default. A fifth entry, optional, names the getter where the token's text is no fit for
// one: P(Optional, PosLongTypeL, version, 1L, Version) gives getVersion().
#pragma once

#include <grafel/foundation/Tokens.h>
#include <grafel/properties/AttributeListElement.h>
#include <grafel/properties/ListProperty.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/properties/PropertyListMgr.h>

#define GRAFEL_LIST_TYPE_(K, Type) Type<::Grafel::Kind::K>
#define GRAFEL_LIST_GETTER_(K, Type, Name, Default, ...)                                           \
    ::Grafel::GetterResult<typename GRAFEL_LIST_TYPE_(K, Type)::Value> GRAFEL_GETTER_(             \
        Name __VA_OPT__(, ) __VA_ARGS__)() const {                                                 \
        return listElement_()                                                                      \
            ->template typedProperty<typename GRAFEL_LIST_TYPE_(K, Type)::VariantType>(            \
                ::Grafel::tok_##Name);                                                             \
    }
#define GRAFEL_LIST_ADD_(K, Type, Name, Default, ...)                                              \
    {                                                                                              \
        static GRAFEL_LIST_TYPE_(K, Type) d(Default, ::Grafel::id_##Name);                         \
        add(::Grafel::getToken(::Grafel::id_##Name), &d,                                           \
            {"list", #Type,                                                                        \
             GRAFEL_STRINGIZE_EXPANDED_(GRAFEL_GETTER_(Name __VA_OPT__(, ) __VA_ARGS__))});        \
    }

/// In a class body: one typed getter per row. The class provides
/// `const AttributeListElement* listElement_() const`, the element whose values it reads.
#define GRAFEL_LIST_GETTERS(TABLE) TABLE(GRAFEL_LIST_GETTER_)

/// In a source file: a descriptor table named Mgr (a PropertyListMgr), and `Mgr& Mgr##Instance()`.
#define GRAFEL_DEFINE_PROPERTY_LIST(Mgr, TABLE)                                                    \
    class Mgr final : public ::Grafel::PropertyListMgr {                                           \
        void fill() override { TABLE(GRAFEL_LIST_ADD_) }                                           \
    };                                                                                             \
    Mgr& Mgr##Instance() {                                                                         \
        static Mgr table;                                                                          \
        return table;                                                                              \
    }
