#include <grafel/output/JVDWriter.h>

#include <grafel/arbor/Text.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/NumberFormat.h>
#include <grafel/foundation/Points.h>
#include <grafel/primitives/Camera.h>
#include <grafel/primitives/Lights.h>
#include <grafel/properties/TextElements.h>
#include <grafel/properties/VExpr.h>
#include <grafel/structure/Canvas.h>
#include <grafel/structure/CoordinateSystem2d.h>
#include <grafel/structure/CoordinateSystem3d.h>
#include <grafel/structure/Obj3d.h>
#include <grafel/structure/Scene2d.h>
#include <grafel/structure/Scene3d.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>

namespace Grafel {

using Arbor::Node;
using Arbor::Token;

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double eps = 2.220446049250313e-16;
// 2 tan(5 degrees): the opening of the default camera, far enough out to see the whole box.
constexpr double defaultFieldOfView = 0.17497732705184801;
// Millimetres of line width to the viewer's pixels.
constexpr double pixelsPerMillimetre = 3.5433070866141736;

/// What the writer reads of one axis of a coordinate system.
struct Axis {
    using Flag = bool (CoordinateSystemStyleGetter::*)() const;
    const char* name;
    TokenId minTag, maxTag, titleTag, distanceTag;
    Flag axisShown, gridShown, subgridShown, ticksShown, labelsShown;
    long (CoordinateSystemStyleGetter::*between)() const;

    bool visible(const CoordinateSystemBase& s) const { return (s.*axisShown)(); }
    bool gridVisible(const CoordinateSystemBase& s) const {
        return (s.*gridShown)() || (s.*subgridShown)();
    }
    bool ticksVisible(const CoordinateSystemBase& s) const { return (s.*ticksShown)(); }
    bool labelsVisible(const CoordinateSystemBase& s) const { return (s.*labelsShown)(); }
    long ticksBetween(const CoordinateSystemBase& s) const { return (s.*between)(); }
};

using Getter = CoordinateSystemStyleGetter;
const Axis axes[3] = {
    {"x", id_ViewingBoxXMin, id_ViewingBoxXMax, id_XAxisTitle, id_XTicksDistance,
     &Getter::getXAxisVisible, &Getter::getXGridVisible, &Getter::getXSubgridVisible,
     &Getter::getXTicksVisible, &Getter::getXTicksLabelsVisible, &Getter::getXTicksBetween},
    {"y", id_ViewingBoxYMin, id_ViewingBoxYMax, id_YAxisTitle, id_YTicksDistance,
     &Getter::getYAxisVisible, &Getter::getYGridVisible, &Getter::getYSubgridVisible,
     &Getter::getYTicksVisible, &Getter::getYTicksLabelsVisible, &Getter::getYTicksBetween},
    {"z", id_ViewingBoxZMin, id_ViewingBoxZMax, id_ZAxisTitle, id_ZTicksDistance,
     &Getter::getZAxisVisible, &Getter::getZGridVisible, &Getter::getZSubgridVisible,
     &Getter::getZTicksVisible, &Getter::getZTicksLabelsVisible, &Getter::getZTicksBetween},
};

/// The six point lights of an automatic lighting: how many half extents from the centre each
/// stands on x, y and z, and its intensity.
struct AutomaticLight {
    double x, y, z, intensity;
};
constexpr AutomaticLight automaticLights[] = {
    {5, 6, -8, 0.4},   {-5, -6, 8, 0.5}, {-5, 6, -8, 0.1},
    {5, -6, 8, 0.125}, {5, -6, -8, 0.1}, {-5, 6, 8, 0.125},
};

double valueOf(const Node* child) {
    const auto* value = dynamic_cast<const VExpr*>(child);
    return value ? value->getVal() : nan;
}

bool known(double value) {
    return !std::isnan(value);
}

bool allKnown(const double* box, int count) {
    return std::all_of(box, box + count, known);
}

P3 centre(const double* box) {
    return P3((box[0] + box[1]) / 2, (box[2] + box[3]) / 2, (box[4] + box[5]) / 2);
}

P3 minus(const P3& a, const P3& b) {
    return P3(a.x - b.x, a.y - b.y, a.z - b.z);
}
P3 plus(const P3& a, const P3& b) {
    return P3(a.x + b.x, a.y + b.y, a.z + b.z);
}
P3 times(const P3& a, double f) {
    return P3(a.x * f, a.y * f, a.z * f);
}
double dot(const P3& a, const P3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
double length(const P3& a) {
    return std::sqrt(dot(a, a));
}

/// The object's Type, or none for an object without one.
Token typeOf(Node* node) {
    auto* object = dynamic_cast<Obj3d*>(node);
    if (!object || !object->hasAttribute(tok_Type)) return Token();
    return object->getType();
}

bool isLightTag(Token tag) {
    return tag == tok_AmbientLight || tag == tok_PointLight || tag == tok_DistantLight ||
           tag == tok_SpotLight;
}

/// The roll of the view about its axis in degrees, 0 for none: the angle between the up
/// vector and the z axis, both seen in the plane normal to the viewing direction.
double rollOf(const Camera& camera) {
    const P3& up = camera.getUpVector();
    if (std::fabs(up.x) <= eps && std::fabs(up.y) <= eps) return up.z < 0 ? 180 : 0;
    const P3 v = minus(camera.getFocalPoint(), camera.getPosition());
    const double l = dot(v, v);
    if (l <= eps) return 0;
    const auto normal = [&](const P3& x) { return minus(x, times(v, dot(v, x) / l)); };
    const P3 u = normal(up);
    const P3 z = normal(P3(0, 0, 1));
    const double p = length(u) * length(z);
    if (p <= eps) return 0;
    const double c = dot(u, z) / p;
    if (c + eps >= 1) return 0;
    if (c - eps <= -1) return 180;
    double a = std::acos(c) * 57.29577951;
    double s = z.y * u.z - z.z * u.y;
    if (std::fabs(s) < eps) s = z.x * u.z - z.z * u.x;
    if (std::fabs(s) < eps) s = z.x * u.y - z.y * u.x;
    return s > eps ? -a : a;
}

} // namespace

void JVDWriter::putNumber(double value) {
    Grafel::putNumber(*stream, value);
}

void JVDWriter::write(std::ostream* out, double at) {
    startFile(out, at, JavaViewFile::Display);
    Node* sceneNode = nullptr;
    Node* systemNode = nullptr;
    bool is2d = false;
    getCoordinateSystem(sceneNode, systemNode, is2d);
    auto* scene = static_cast<SceneBase*>(sceneNode);
    auto* system = static_cast<CoordinateSystemBase*>(systemNode);

    *stream << "<displays>\n<display antiAlias=\"hide\" border=\"hide\" depthcue=\"hide\"";
    putShowAttr("sorting", !is2d);
    *stream << ">\n";

    double box[6];
    double scale = nan;
    bool clipGrown = true;
    getViewBox(system, is2d, box, scale);
    putAxes(system, is2d, box, clipGrown);
    putBndbox(system, is2d);
    if (is2d) {
        auto* system2d = static_cast<CoordinateSystem2d*>(system);
        double ratio = 1.0;
        putBoxRatio2d(system2d, box, ratio);
        putClipRange(true, box, scale, clipGrown);
        putCameras2d(system2d, box, ratio);
    } else {
        auto* system3d = static_cast<CoordinateSystem3d*>(system);
        auto* scene3d = static_cast<Scene3d*>(scene);
        putBoxRatio3d(scene3d, system3d, box);
        putClipRange(false, box, scale, clipGrown);
        putCameras3d(system3d, box, scale);
        const Token lighting = scene3d->getLighting();
        if (lighting == tok_Explicit)
            putLights(system3d);
        else if (lighting == tok_Automatic)
            putAutomaticLights(box);
    }
    putBackground(scene);
    *stream << "</display>\n</displays>\n</jv-disp>\n";
}

void JVDWriter::getViewBox(CoordinateSystemBase* system, bool is2d, double* box, double& scale) {
    std::fill(box, box + 6, nan);
    scale = nan;
    for (int i = 0; i < (is2d ? 2 : 3); ++i) {
        const Node* low = system->findChild(getToken(axes[i].minTag));
        const Node* high = system->findChild(getToken(axes[i].maxTag));
        if (!low || !high) continue;
        double& minimum = box[2 * i];
        double& maximum = box[2 * i + 1];
        minimum = valueOf(low);
        maximum = valueOf(high);
        if (!known(minimum) || !known(maximum)) continue;
        if (maximum > minimum) {
            if (!known(scale) || maximum - minimum > scale) scale = maximum - minimum;
        } else {
            minimum = maximum = nan;
        }
    }
}

void JVDWriter::putAxes(CoordinateSystemBase* system, bool is2d, double* box, bool& clipGrown) {
    clipGrown = true;
    int grid = 0;
    for (int i = 0; i < (is2d ? 2 : 3); ++i)
        if (axes[i].gridVisible(*system)) grid |= 1 << i;
    const Token type = system->getAxes();
    bool hidden = false;
    if (grid == 0) {
        bool anyVisible = false;
        for (int i = 0; i < (is2d ? 2 : 3); ++i)
            anyVisible = anyVisible || axes[i].visible(*system);
        hidden = type == tok_None || !anyVisible;
    }
    Node* root = document->documentElement();
    *stream << "<axes autoHashing=\"show\"";
    putShowAttr("autoBounds", !(root && root->findChild(tok_TimeRange)));
    putShowAttr("visible", !hidden);
    *stream << (is2d ? " dim=\"2\" span=\"xy\"" : " dim=\"3\"") << " type=\"";
    if (grid != 0) {
        // Each letter pair says on which of the planes xy, yz, zx the long hashes run.
        char word[] = "ffffff";
        if (grid & 3) word[0] = word[3] = 't';
        if (grid & 5) word[1] = word[4] = 't';
        if (grid & 6) word[2] = word[5] = 't';
        *stream << "corner\" longHash=\"" << word << "\">\n";
    } else if (type == tok_Boxed || type == tok_Frame) {
        *stream << (is2d ? "corner\">\n" : "bndbox\">\n");
    } else {
        *stream << "center\">\n";
        bool aroundOrigin = true;
        for (int i = 0; i < 3; ++i)
            aroundOrigin = aroundOrigin && box[2 * i] < 0 && 0 < box[2 * i + 1];
        if (aroundOrigin) clipGrown = false;
    }
    for (int i = 0; i < 3; ++i) {
        if (i == 2 && is2d)
            *stream << "<ruler visible=\"hide\" name=\"z\" label=\"hide\" hashsUp=\"show\"/>\n";
        else
            putRuler(system, is2d, i, grid, box);
    }
    *stream << "</axes>\n";
}

void JVDWriter::putRuler(CoordinateSystemBase* system, bool, int i, int grid, const double* box) {
    const Axis& axis = axes[i];
    const bool labels = axis.labelsVisible(*system);
    const bool ticks = labels || axis.ticksVisible(*system);
    *stream << "<ruler";
    putShowAttr("visible", axis.visible(*system) || (grid & 1 << i) != 0);
    putAxisTitle(system, getToken(axis.titleTag));
    putShowAttr("numbers", labels);
    putShowAttr("ticksMajor", ticks);
    putShowAttr("ticksMinor", ticks);
    *stream << ">\n";
    putAxisBounds(box[2 * i], box[2 * i + 1]);
    putHashUnit(system, getToken(axis.distanceTag), axis.ticksBetween(*system));
    putColor(system->getAxesLineColor());
    putAxesThickness(system);
    *stream << "</ruler>\n";
}

void JVDWriter::putAxesThickness(CoordinateSystemBase* system) {
    const double width = system->getAxesLineWidth();
    if (known(width)) putThickness(std::max(1.0, width * pixelsPerMillimetre));
}

void JVDWriter::putAxisTitle(CoordinateSystemBase* system, Token token) {
    const Node* title = system->findChild(token);
    if (!title) return;
    const auto hasText = [](Node* node) {
        Arbor::Text* text = node->asText();
        return text && text->data() && *text->data() != 0;
    };
    bool any = false;
    for (Node* child = title->firstChild(); child; child = child->nextSibling())
        any = any || hasText(child);
    if (!any) return;
    *stream << " label=\"show\" name=\"";
    for (Node* child = title->firstChild(); child; child = child->nextSibling())
        if (hasText(child)) putCData(*stream, child->asText()->data());
    *stream << '"';
}

void JVDWriter::putAxisBounds(double minimum, double maximum) {
    if (!known(minimum) || !known(maximum)) return;
    *stream << "<minValue>";
    putNumber(minimum);
    *stream << "</minValue>\n<maxValue>";
    putNumber(maximum);
    *stream << "</maxValue>\n";
}

void JVDWriter::putHashUnit(CoordinateSystemBase* system, Token token, long ticksBetween) {
    if (ticksBetween < 0) return;
    const Node* distance = system->findChild(token);
    if (!distance) return;
    const double v = valueOf(distance);
    if (!known(v) || v <= eps) return;
    *stream << "<minorUnit>";
    putNumber(v / (static_cast<double>(ticksBetween) + 1));
    *stream << "</minorUnit>\n<majorUnit>";
    putNumber(v);
    *stream << "</majorUnit>\n";
}

void JVDWriter::putBndbox(CoordinateSystemBase* system, bool is2d) {
    const bool visible = system->getAxes() == tok_Boxed && system->getXAxisVisible() &&
                         system->getYAxisVisible() && (is2d || system->getZAxisVisible());
    *stream << "<bndbox";
    putShowAttr("visible", visible);
    *stream << ">\n";
    putColor(system->getAxesLineColor());
    putAxesThickness(system);
    *stream << "</bndbox>\n";
}

void JVDWriter::putBoxRatio2d(CoordinateSystem2d* system, double* box, double& ratio) {
    ratio = 1.0;
    if (!allKnown(box, 4)) return;
    auto* canvas = dynamic_cast<Canvas*>(document->documentElement());
    if (!canvas) return;
    const double dx = std::fabs(box[1] - box[0]);
    const double dy = std::fabs(box[3] - box[2]);
    double w = canvas->getWidth();
    double h = canvas->getHeight();
    if (!(w > 0) || !(h > 0)) {
        w = 1.0;
        h = 0.6666666666666666;
    }
    ratio = (w / h) * (dy / dx);
    const bool constrained = system->getConstrainedScaling();
    *stream << "<boxRatio";
    putShowAttr("visible", !constrained);
    *stream << '>';
    putNumber(ratio);
    *stream << " 1 1</boxRatio>\n";
    if (constrained) ratio = 1.0;
}

void JVDWriter::putBoxRatio3d(Scene3d* scene, CoordinateSystem3d* system, double* box) {
    if (!allKnown(box, 6)) return;
    double yx = scene->getYXRatio();
    double zx = scene->getZXRatio();
    if (!(yx > eps) || !(zx > eps)) {
        yx = 1.0;
        zx = 0.6666666666666666;
    }
    const double dx = box[1] - box[0];
    const double dy = box[3] - box[2];
    const double dz = box[5] - box[4];
    *stream << "<boxRatio";
    putShowAttr("visible", !system->getConstrainedScaling());
    *stream << ">1 ";
    putNumber(dx / dy * yx);
    *stream << ' ';
    putNumber(dx / dz * zx);
    *stream << "</boxRatio>\n";
}

void JVDWriter::putClipRange(bool is2d, double* box, double, bool clipGrown) {
    static constexpr const char* names[3] = {"X", "Y", "Z"};
    bool opened = false;
    for (int i = 0; i < (is2d ? 2 : 3); ++i) {
        double low = box[2 * i];
        double high = box[2 * i + 1];
        if (!known(low) || !known(high)) continue;
        if (!opened) {
            *stream << "<clipRange visible=\"show\" autoBounds=\"hide\">\n";
            opened = true;
        }
        if (clipGrown) {
            const double margin = (high - low) * 0.1;
            low -= margin;
            high += margin;
        }
        *stream << "<range type=\"" << names[i] << "\">";
        putNumber(low);
        *stream << ' ';
        putNumber(high);
        *stream << "</range>\n";
    }
    if (opened) *stream << "</clipRange>\n";
}

void JVDWriter::putCameras2d(CoordinateSystem2d*, const double* box, double ratio) {
    *stream << "<cameras select=\"X-Y\">\n";
    if (allKnown(box, 4)) {
        *stream << "<camera projection=\"X-Y\" sceneRatio=\"show\">\n";
        const double cx = (box[0] + box[1]) / 2;
        const double cy = (box[2] + box[3]) / 2;
        const double d =
            std::max(std::fabs(box[1] - box[0]) * ratio, std::fabs(box[3] - box[2])) * 1.2;
        putPosition(P3(cx, cy, d));
        putInterest(P3(cx, cy, 0));
        *stream << "<fieldOfView>0</fieldOfView>\n</camera>\n";
    }
    *stream << "</cameras>\n";
}

void JVDWriter::putCameras3d(CoordinateSystem3d* system, const double* box, double scale) {
    bool opened = false;
    for (Node* child = system->firstChild(); child; child = child->nextSibling()) {
        if (typeOf(child) != tok_Camera) continue;
        putCamera(child, scale, opened);
        if (opened) {
            *stream << "</cameras>\n";
            return;
        }
    }
    if (!allKnown(box, 6)) return;
    const P3 c = centre(box);
    const P3 eye((box[1] - 9.3 * (box[1] - box[0]) + box[0]) / 2,
                 (box[3] - 14.6 * (box[3] - box[2]) + box[2]) / 2,
                 (box[5] + 5.9 * (box[5] - box[4]) + box[4]) / 2);
    *stream << "<cameras select=\"Perspective\">\n<camera projection=\"Perspective\">\n";
    putPosition(plus(c, times(minus(eye, c), defaultFieldOfView)));
    putInterest(c);
    *stream << "<fieldOfView>";
    putNumber(defaultFieldOfView);
    *stream << "</fieldOfView>\n</camera>\n</cameras>\n";
}

void JVDWriter::putCamera(Node* object, double scale, bool& opened) {
    Camera* camera = nullptr;
    for (Node* child = getImg3d(object)->firstChild(); child && !camera;
         child = child->nextSibling()) {
        auto* candidate = dynamic_cast<Camera*>(child);
        // An orthogonal view is sized by the scene, so it needs a known scale.
        if (candidate && (!candidate->getOrthogonalProjection() || known(scale)))
            camera = candidate;
    }
    if (!camera) return;
    if (!opened) {
        opened = true;
        *stream << "<cameras select=\"Perspective\">\n";
    }
    *stream << "<camera projection=\"Perspective\">\n";
    const P3& focus = camera->getFocalPoint();
    const P3 d = minus(camera->getPosition(), focus);
    double fieldOfView = 0;
    P3 position;
    if (camera->getOrthogonalProjection()) {
        const double l = length(d);
        position = l < eps ? P3(0, 0, 0) : times(d, 1 / l);
        if (known(scale)) position = times(position, scale * 1.5);
    } else {
        fieldOfView = 2 * std::tan(camera->getViewingAngle() / 2);
        position = plus(focus, times(d, fieldOfView));
    }
    putPosition(position);
    putInterest(focus);
    *stream << "<fieldOfView>";
    putNumber(fieldOfView);
    *stream << "</fieldOfView>\n";
    const double roll = rollOf(*camera);
    if (roll != 0) {
        *stream << "<roll>";
        putNumber(roll);
        *stream << "</roll>\n";
    }
    *stream << "</camera>\n";
}

void JVDWriter::putLights(CoordinateSystem3d* system) {
    bool opened = false;
    for (Node* child = system->firstChild(); child; child = child->nextSibling()) {
        if (!isLightTag(typeOf(child))) continue;
        if (static_cast<Obj3d*>(child)->getVisible()) putLight(child, opened);
    }
    if (opened) *stream << "</lights>\n";
}

void JVDWriter::putLight(Node* object, bool& opened) {
    Node* light = getImg3d(object)->firstChild();
    while (light && !isLightTag(light->nodeName())) light = light->nextSibling();
    if (!light) return;
    if (!opened) {
        opened = true;
        *stream
            << "<lights lightingModel=\"Light\">\n<ambient><color>255 255 255</color></ambient>\n";
    }
    const Token tag = light->nodeName();
    if (tag == tok_AmbientLight) {
        *stream << "<light type=\"ambient\">\n";
    } else if (tag == tok_PointLight) {
        *stream << "<light type=\"point\">\n";
        putPosition(static_cast<PointLight*>(light)->getPosition());
    } else {
        *stream << (tag == tok_DistantLight ? "<light type=\"direction\">\n"
                                            : "<light type=\"spot\">\n");
        putPosition(static_cast<DistantLight*>(light)->getPosition());
        putInterest(static_cast<DistantLight*>(light)->getTarget());
    }
    const auto* ambient = static_cast<AmbientLight*>(light);
    putLightColorIntensity(ambient->getLightColor(), ambient->getLightIntensity());
    *stream << "</light>\n";
}

void JVDWriter::putAutomaticLights(const double* box) {
    if (!allKnown(box, 6)) return;
    const RGBA white = RGBA::White;
    *stream << "<lights lightingModel=\"Light\">\n<ambient><color>255 255 255</color></ambient>\n"
               "<light type=\"ambient\">\n";
    putLightColorIntensity(white, 0.125);
    *stream << "</light>\n";
    const P3 c = centre(box);
    const auto at = [box](int i, double f) {
        return ((box[2 * i + 1] - box[2 * i]) * f + box[2 * i + 1] + box[2 * i]) / 2;
    };
    for (const AutomaticLight& light : automaticLights) {
        *stream << "<light type=\"point\">\n";
        putPosition(P3(at(0, light.x), at(1, light.y), at(2, light.z)));
        putInterest(c);
        putLightColorIntensity(white, light.intensity);
        *stream << "<exponent>50</exponent>\n</light>\n";
    }
    *stream << "</lights>\n";
}

void JVDWriter::putLightColorIntensity(RGBA color, double intensity) {
    putColor(color);
    *stream << "<intensity>";
    putNumber(intensity);
    *stream << "</intensity>\n";
}

void JVDWriter::putPoint(const char* open, const P3& p, const char* close) {
    *stream << open;
    putNumber(p.x);
    *stream << ' ';
    putNumber(p.y);
    *stream << ' ';
    putNumber(p.z);
    *stream << close;
}

void JVDWriter::putPosition(const P3& p) {
    putPoint("<position>", p, "</position>\n");
}

void JVDWriter::putInterest(const P3& p) {
    putPoint("<interest>", p, "</interest>\n");
}

void JVDWriter::putBackground(SceneBase* scene) {
    *stream << "<background>\n";
    putColor(scene->getBackgroundColor());
    *stream << "</background>\n";
}

} // namespace Grafel
