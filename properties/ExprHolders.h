// Holders of a fixed number of IExpr entries: the matrix of a fixed affine map and the
// orientation of a text. They are made complete and keep their number of entries for good;
// with a blank first entry they count as not given and write no XML.
#pragma once

#include <grafel/properties/ElementClass.h>
#include <grafel/properties/PlotElement.h>

namespace Grafel {

/// A holder of Items IExpr entries, tagged Tag. Its copies are as complete as the original.
template <TokenId Tag, unsigned Items>
class FixedHolder : public ElementClass<FixedHolder<Tag, Items>, Tag, PlotElement> {
    using Element = ElementClass<FixedHolder, Tag, PlotElement>;
    friend Element;

public:
    /// A new holder with empty entries; `deep` puts clones of the entries in their place.
    Arbor::Node* cloneNode(bool deep) const override;
    /// Clones the entries, so that the copy is as complete as the original.
    FixedHolder(const FixedHolder& other);

    /// Allows only a change that replaces entries one for one by IExpr elements; refuses
    /// without a report.
    bool mayReplaceChildren(Arbor::Node* first, unsigned count, Arbor::Node* newFirst) override;
    ChildRole childRole(Arbor::Token tag) const override;
    ChildCount contentCount() const override { return {Items, Items}; }
    /// Nothing when void, else the kernel's form.
    std::ostream& putXml(std::ostream& out) override;
    /// An item: the tag, "=[" the entries separated by "," "]", or the tag and "=NIL" when
    /// void.
    void putCmd(CmdOStream& out) override;

protected:
    /// Makes the holder complete, with empty entries.
    explicit FixedHolder(Arbor::Document* document);
    /// No first child, a first child that is no IExpr, or a blank first IExpr.
    bool isVoid() const;
};

/// The 2 x 2 matrix of a 2D transform: exactly four IExpr entries.
using Matrix2d = FixedHolder<id_Matrix2d, 4>;
/// The 3 x 3 matrix of a 3D transform: exactly nine IExpr entries.
using Matrix3d = FixedHolder<id_Matrix3d, 9>;
/// The orientation of a 3D text, two direction vectors: exactly six IExpr entries.
using TextOrientation = FixedHolder<id_TextOrientation, 6>;

extern template class FixedHolder<id_Matrix2d, 4>;
extern template class FixedHolder<id_Matrix3d, 9>;
extern template class FixedHolder<id_TextOrientation, 6>;

} // namespace Grafel
