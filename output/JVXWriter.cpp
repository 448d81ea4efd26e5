// The model writer's walk: the file around the geometries, the tree down to the primitives,
// and which operation writes each primitive.
#include <grafel/output/JVXWriter.h>

#include <grafel/arbor/Element.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/TextRun.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/primitives/Arc2d.h>
#include <grafel/primitives/Arrow2d.h>
#include <grafel/primitives/Arrow3d.h>
#include <grafel/primitives/Box.h>
#include <grafel/primitives/Circle3d.h>
#include <grafel/primitives/ColorArray2d.h>
#include <grafel/primitives/Cone.h>
#include <grafel/primitives/DensityArray2d.h>
#include <grafel/primitives/Ellipsoid.h>
#include <grafel/primitives/Field2d.h>
#include <grafel/primitives/Field3d.h>
#include <grafel/primitives/Line2d.h>
#include <grafel/primitives/Line3d.h>
#include <grafel/primitives/Lines3d.h>
#include <grafel/primitives/Mesh3d.h>
#include <grafel/primitives/Poly2d.h>
#include <grafel/primitives/Poly3d.h>
#include <grafel/primitives/Pt2d.h>
#include <grafel/primitives/Pts2d.h>
#include <grafel/primitives/Pts3d.h>
#include <grafel/primitives/Sphere.h>
#include <grafel/primitives/Surf3d.h>
#include <grafel/primitives/Text2d.h>
#include <grafel/primitives/Text3d.h>
#include <grafel/primitives/VerticalAsymptote.h>
#include <grafel/properties/VExpr.h>
#include <grafel/structure/GroupBase.h>
#include <grafel/structure/ObjectBase.h>
#include <grafel/structure/TransformFrames.h>

#include <cmath>

namespace Grafel {

namespace {

/// One primitive tag and the operation that writes it.
struct PutEntry {
    TokenId tag;
    void (*put)(JVXWriter&, Arbor::Node*);
};

const PutEntry* findEntry(const PutEntry* first, const PutEntry* last, Arbor::Token tag) {
    for (; first != last; ++first)
        if (getToken(first->tag) == tag) return first;
    return nullptr;
}

double childValue(Arbor::Node* parent, TokenId tag) {
    for (Arbor::Node* n = parent->firstChild(); n; n = n->nextSibling())
        if (n->nodeName() == getToken(tag)) {
            if (auto* v = dynamic_cast<VExpr*>(n)) return v->getVal();
        }
    return NaN();
}

bool hasChild(Arbor::Node* parent, TokenId tag) {
    return parent->findChild(getToken(tag));
}

} // namespace

JVXWriter::JVXWriter(PlotDocument* doc) : JavaViewWriter(doc) {}
JVXWriter::~JVXWriter() = default;

void JVXWriter::write(std::ostream* out, double at) {
    startFile(out, at, JavaViewFile::Model);
    Arbor::Node* scene = nullptr;
    Arbor::Node* system = nullptr;
    bool is2d = false;
    getCoordinateSystem(scene, system, is2d);

    colorRangeMin = colorRangeMax = 0;
    const TokenId lowTag = is2d ? id_ViewingBoxYMin : id_ViewingBoxZMin;
    const TokenId highTag = is2d ? id_ViewingBoxYMax : id_ViewingBoxZMax;
    if (hasChild(system, lowTag) && hasChild(system, highTag)) {
        const double low = childValue(system, lowTag), high = childValue(system, highTag);
        if (!std::isnan(low) && !std::isnan(high) && high > low) {
            colorRangeMin = low;
            colorRangeMax = high;
        }
    }

    TextRun run(*stream);
    run_ = &run;
    struct Reset {
        TextRun*& run;
        ~Reset() { run = nullptr; }
    } reset{run_};
    run << "<geometries>\n";
    putGeometries(system);
    run << "</geometries>\n</jvx-model>\n";
    run.flush();
}

void JVXWriter::putGeometries(Arbor::Node* node) {
    for (Arbor::Node* child = node->firstChild(); child; child = child->nextSibling()) {
        const Arbor::Token tag = child->nodeName();
        if (tag == getToken(id_Obj3d)) {
            putObject3d(child);
        } else if (tag == getToken(id_Obj2d)) {
            putObject2d(child);
        } else if (tag == getToken(id_Group3d) || tag == getToken(id_Group2d)) {
            if (static_cast<GroupBase*>(child)->getVisible()) putGeometries(child);
        } else if (tag == getToken(id_Transform3d)) {
            Arbor::Node* tr = findTimedChild(child, getToken(id_Tr3d), haveTime(), time);
            if (!tr) throw JavaViewExportError("no Tr3d");
            pushTransform3d(static_cast<Tr3d&>(*tr));
            putGeometries(child);
            popTransform();
        } else if (tag == getToken(id_Transform2d)) {
            Arbor::Node* tr = findTimedChild(child, getToken(id_Tr2d), haveTime(), time);
            if (!tr) throw JavaViewExportError("no Tr2d");
            pushTransform2d(static_cast<Tr2d&>(*tr));
            putGeometries(child);
            popTransform();
        }
    }
}

bool JVXWriter::objVisible(Arbor::Node* node) const {
    auto& object = static_cast<ObjectBase&>(*node);
    if (!object.getVisible()) return false;
    const double begin = object.getTimeBegin();
    if (!haveTime() || std::isnan(begin)) return true;
    if (time < begin) return object.getVisibleBeforeBegin();
    const double end = object.getTimeEnd();
    if (std::isnan(end) || time <= end) return true;
    return object.getVisibleAfterEnd();
}

#define GRAFEL_JVX_PUT_(Class, Operation)                                                          \
    PutEntry {                                                                                     \
        id_##Class, [](JVXWriter& w, Arbor::Node* n) { w.Operation(static_cast<Class&>(*n)); }     \
    }

void JVXWriter::putObject2d(Arbor::Node* object) {
    if (!objVisible(object)) return;
    static const PutEntry table[] = {
        GRAFEL_JVX_PUT_(Arc2d, putArc2d),
        GRAFEL_JVX_PUT_(Line2d, putLine2d),
        GRAFEL_JVX_PUT_(Arrow2d, putArrow2d),
        GRAFEL_JVX_PUT_(Pt2d, putPt2d),
        GRAFEL_JVX_PUT_(Pts2d, putPts2d),
        GRAFEL_JVX_PUT_(VerticalAsymptote, putVerticalAsymptote),
        GRAFEL_JVX_PUT_(Text2d, putText2d),
        GRAFEL_JVX_PUT_(Poly2d, putPoly2d),
        GRAFEL_JVX_PUT_(ColorArray2d, putColorArray2d),
        GRAFEL_JVX_PUT_(DensityArray2d, putDensityArray2d),
        GRAFEL_JVX_PUT_(Field2d, putField2d),
    };
    Arbor::Node* image = getImg2d(object);
    for (Arbor::Node* child = image->firstChild(); child; child = child->nextSibling())
        if (auto* e = findEntry(std::begin(table), std::end(table), child->nodeName()))
            e->put(*this, child);
}

void JVXWriter::putObject3d(Arbor::Node* object) {
    if (!objVisible(object)) return;
    static const PutEntry table[] = {
        GRAFEL_JVX_PUT_(Line3d, putLine3d),   GRAFEL_JVX_PUT_(Arrow3d, putArrow3d),
        GRAFEL_JVX_PUT_(Pts3d, putPts3d),     GRAFEL_JVX_PUT_(Text3d, putText3d),
        GRAFEL_JVX_PUT_(Box, putBox),         GRAFEL_JVX_PUT_(Circle3d, putCircle3d),
        GRAFEL_JVX_PUT_(Cone, putCone),       GRAFEL_JVX_PUT_(Ellipsoid, putEllipsoidElement),
        GRAFEL_JVX_PUT_(Sphere, putSphere),   GRAFEL_JVX_PUT_(Poly3d, putPoly3d),
        GRAFEL_JVX_PUT_(Lines3d, putLines3d), GRAFEL_JVX_PUT_(Surf3d, putSurf3d),
        GRAFEL_JVX_PUT_(Mesh3d, putMesh3d),   GRAFEL_JVX_PUT_(Field3d, putField3d),
    };
    Arbor::Node* image = getImg3d(object);
    for (Arbor::Node* child = image->firstChild(); child; child = child->nextSibling())
        if (auto* e = findEntry(std::begin(table), std::end(table), child->nodeName()))
            e->put(*this, child);
}

#undef GRAFEL_JVX_PUT_

} // namespace Grafel
