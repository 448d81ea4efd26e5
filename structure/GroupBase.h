// The common part of Group2d and Group3d: a named, shown or hidden bundle of objects, styles,
// transforms and further groups inside a coordinate system.
#pragma once

#include <grafel/properties/ConstrainedTypes.h>
#include <grafel/properties/ContentPlotElement.h>
#include <grafel/properties/MemberTable.h>
#include <grafel/structure/NestingLevel.h>

// id is kept and written in command text, never in XML; Consistent the other way round.
#define GRAFEL_GROUPBASE_TABLE(P)                                                                  \
    P(Optional, IdPropertyImpl, id, Tessel::FixedStringBase<char>(),                               \
      Tessel::FixedStringBase<char>(), Id)                                                         \
    P(Optional, MStringProperty, Name, Tessel::FixedStringBase<wchar_t>(),                         \
      Tessel::FixedStringBase<wchar_t>())                                                          \
    P(Optional, ConsistentPropertyImpl, Consistent, false, false)                                  \
    P(Optional, BoolProperty, Visible, true, true)

namespace Grafel {

/// A group inherits nothing itself; it passes every change, every move and every walk of the
/// tree on to what it holds. The object styles among its children style the objects in it
/// and in the groups below it. Its command form is "plot::Group2d(" (or 3d) with its values
/// and its children, then ")".
class GroupBase : public ContentPlotElement, public NestingLevel {
    GRAFEL_MEMBER_PROPERTIES(GroupBase, GRAFEL_GROUPBASE_TABLE)

public:
    GroupBase(const GroupBase& other) = default;

    /// A change of its own value goes on as its descriptor says; one from elsewhere always
    /// goes on to the children.
    bool afterAttributeChange(Arbor::Element* source, Arbor::Token name) override;
    void normalizeAttribute(Arbor::Element* source, Arbor::Token name) override;
    void normalizeAttributes() override;
    void putCmd(CmdOStream& out) override;
    /// Asks every child element, in document order.
    void getNextAnimationTime(double time, bool backward, double& best) override;

protected:
    explicit GroupBase(Arbor::Document* document) : ContentPlotElement(document) {}

    PlotElement* levelElement() override { return this; }
    void refreshOwn() override {}
    void normalizeAllOwn() override;
    void openCmd(CmdOStream& out) override;
    bool stepOwnFrames(double, bool, double&) override { return true; }
};

} // namespace Grafel
