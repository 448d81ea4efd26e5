#include <grafel/structure/TransformBase.h>

#include <grafel/structure/ObjStyle.h>
#include <grafel/structure/detail/AnimationStep.h>
#include <grafel/structure/detail/ParameterRange.h>

#include <cmath>

namespace Grafel {

using Arbor::Node;
using Arbor::Token;

GRAFEL_DEFINE_MEMBER_TABLE(TransformBase, GRAFEL_TRANSFORMBASE_TABLE)

// The inherited members first, then everything below.
void TransformBase::afterParentChanged() {
    afterParentChangedNested();
}

void TransformBase::refreshOwn() {
    propertyList().refreshAll(this);
}

PlotElement* TransformBase::inheritingFrom(Token name) const {
    // The transform itself is the start, so that the styles beside it are the first level.
    return ObjStyle::findStyle(const_cast<TransformBase*>(this), m_Type, name);
}

void TransformBase::getInheritanceChain(std::vector<PlotElement*>& chain) const {
    Node* start = const_cast<TransformBase*>(this);
    ObjStyle::getInheritanceChain(start, m_Type, chain);
    ObjStyle::getInheritanceChain(start, tok_Default, chain);
}

bool TransformBase::afterAttributeChange(Arbor::Element* source, Token name) {
    return PlotElement::afterAttributeChange(source, name) || source != this;
}

void TransformBase::normalizeAttribute(Arbor::Element* source, Token name) {
    normalizeNested(source, name);
}

void TransformBase::normalizeAttributes() {
    normalizeAllNested();
}

void TransformBase::normalizeAllOwn() {
    propertyList().normalizeAll(this);
}

void TransformBase::putCmd(CmdOStream& out) {
    putCmdNested(out);
}

void TransformBase::openCmd(CmdOStream& out) {
    out.beginItem();
    out << "plot::" << m_Type << '(';
    out.putNl();
    propertyList().putCmd(out, this);
}

void TransformBase::getNextAnimationTime(double time, bool backward, double& best) {
    stepNested(time, backward, best);
}

bool TransformBase::stepOwnFrames(double time, bool backward, double& best) {
    if (std::isnan(m_TimeBegin) || std::isnan(m_TimeEnd)) return false;
    if (detail::spanIsBehind(time, backward, m_TimeBegin, m_TimeEnd)) return false;
    double paramBegin, paramEnd;
    if (!getParameterRange(paramBegin, paramEnd)) return false;
    for (Node* n = firstChild(); n; n = n->nextSibling()) {
        const Token tag = n->nodeName();
        if (tag != tok_Tr2d && tag != tok_Tr3d) continue;
        PlotElement* frame = PlotElement::from(n);
        if (!frame) continue;
        // Unlike an image, a frame without a time ends the frames.
        const double at = frame->getFrameTime(m_TimeBegin, m_TimeEnd, paramBegin, paramEnd);
        if (std::isnan(at) || detail::offerFrame(at, time, backward, best)) break;
    }
    return true;
}

bool TransformBase::getParameterRange(double& begin, double& end) const {
    return detail::parameterRange(this, begin, end);
}

int TransformBase::tagNameToOptionChildFlag(Token tag) const {
    return optionChildFlags.flagOf(tag);
}

} // namespace Grafel
