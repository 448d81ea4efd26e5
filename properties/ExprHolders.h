// Holders of a fixed number of IExpr entries: the matrix of a fixed affine map and the
// orientation of a text. They are made complete and keep their number of entries for good;
// with a blank first entry they count as not given and write no XML.
#pragma once

#include <grafel/properties/PlotElement.h>

/// Declares a holder Class of a fixed number of IExpr entries, tagged with the class name. The
/// number and the definitions are given in the source file (GRAFEL_DEFINE_FIXED_HOLDER).
#define GRAFEL_FIXED_HOLDER_CLASS(Class)                                                           \
    class Class : public ::Grafel::PlotElement {                                                   \
    public:                                                                                        \
        ::Arbor::Token tagName() const override;                                                   \
        /** A new holder with empty entries; `deep` puts clones of the entries in their place. */  \
        ::Arbor::Node* cloneNode(bool deep) const override;                                        \
        /** A new holder for `document`; the caller takes the first reference. */                  \
        static ::Grafel::PlotElement* create(::Arbor::Document* document);                         \
        /** Clones the entries, so that the copy is as complete as the original. */                \
        Class(const Class& other);                                                                 \
                                                                                                   \
        /** Allows only a change that replaces entries one for one by IExpr elements; refuses      \
         * without a report. */                                                                    \
        bool mayReplaceChildren(::Arbor::Node* first, unsigned count,                              \
                                ::Arbor::Node* newFirst) override;                                 \
        /** Nothing when void, else the kernel's form. */                                          \
        std::ostream& putXml(std::ostream& out) override;                                          \
        /** An item: the tag, "=[" the entries separated by "," "]", or the tag and "=NIL" when    \
         * void. */                                                                                \
        void putCmd(::Grafel::CmdOStream& out) override;                                           \
                                                                                                   \
    protected:                                                                                     \
        /** Makes the holder complete, with empty entries. */                                      \
        explicit Class(::Arbor::Document* document);                                               \
        /** No first child, a first child that is no IExpr, or a blank first IExpr. */             \
        bool isVoid() const;                                                                       \
    }

namespace Grafel {

/// The 2 x 2 matrix of a 2D transform: exactly four IExpr entries.
GRAFEL_FIXED_HOLDER_CLASS(Matrix2d);
/// The 3 x 3 matrix of a 3D transform: exactly nine IExpr entries.
GRAFEL_FIXED_HOLDER_CLASS(Matrix3d);
/// The orientation of a 3D text, two direction vectors: exactly six IExpr entries.
GRAFEL_FIXED_HOLDER_CLASS(TextOrientation);

} // namespace Grafel
