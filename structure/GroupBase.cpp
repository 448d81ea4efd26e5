#include <grafel/structure/GroupBase.h>

namespace Grafel {

GRAFEL_DEFINE_MEMBER_TABLE(GroupBase, GRAFEL_GROUPBASE_TABLE)

// A group inherits nothing, so only what it holds needs refreshing.
void GroupBase::afterParentChanged() {
    afterParentChangedNested();
}

bool GroupBase::afterAttributeChange(Arbor::Element* source, Arbor::Token name) {
    return PlotElement::afterAttributeChange(source, name) || source != this;
}

void GroupBase::normalizeAttribute(Arbor::Element* source, Arbor::Token name) {
    normalizeNested(source, name);
}

void GroupBase::normalizeAttributes() {
    normalizeAllNested();
}

void GroupBase::normalizeAllOwn() {
    propertyList().normalizeAll(this);
}

void GroupBase::putCmd(CmdOStream& out) {
    putCmdNested(out);
}

void GroupBase::openCmd(CmdOStream& out) {
    out.beginItem();
    out << "plot::" << nodeName() << '(';
    out.putNl();
    propertyList().putCmd(out, this);
}

void GroupBase::getNextAnimationTime(double time, bool backward, double& best) {
    stepNested(time, backward, best);
}

} // namespace Grafel
