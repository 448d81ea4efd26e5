#include <grafel/output/JavaViewWriter.h>

#include <grafel/arbor/Node.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/foundation/NumberFormat.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/primitives/ImgBase.h>
#include <grafel/structure/TrBase.h>

#include <cmath>
#include <cstring>
#include <ctime>
#include <ostream>

namespace Grafel {

namespace {

// Writing before the first write goes nowhere: a stream without a buffer only sets badbit.
std::ostream& discardStream() {
    static std::ostream discard(nullptr);
    discard.clear();
    return discard;
}

double timeValue(PlotElement* element, Arbor::Token name) {
    const Arbor::Variant v = element->getProperty(name);
    auto* d = v.as<Arbor::DoubleVariant>();
    return d ? d->val() : NaN();
}

PlotElement* timeRangeOf(PlotDocument* document) {
    if (!document) return nullptr;
    Arbor::Element* root = document->documentElement();
    return root ? PlotElement::from(root->findChild(tok_TimeRange)) : nullptr;
}

bool isScene(Arbor::Token tag) {
    return tag == tok_Scene2d || tag == tok_Scene3d;
}

bool isSystem(Arbor::Token tag) {
    return tag == tok_CoordinateSystem2d || tag == tok_CoordinateSystem3d;
}

// The time of a timed child: an image on its object, a frame on its transform.
double childTime(Arbor::Node* child) {
    if (auto* image = dynamic_cast<ImgBase*>(child)) return image->getTime();
    if (auto* frame = dynamic_cast<TrBase*>(child)) return frame->getTime();
    return NaN();
}

Arbor::Node* firstWithTag(Arbor::Node* node, Arbor::Token tag) {
    while (node && node->nodeName() != tag) node = node->nextSibling();
    return node;
}

const char* const modelMiddle =
    "\"/>\n<meta dtd=\"1.10.000\"/>\n<version></version>\n<title></title>\n<authors>\n"
    "  <author>\n   <firstname></firstname>\n   <lastname></lastname>\n   <affiliation>\n"
    "     <organization></organization>\n     <address>\n       <line></line>\n"
    "     </address>\n   </affiliation>\n   <email></email>\n   <url></url>\n  </author>\n"
    "</authors>\n<description>\n  <abstract></abstract>\n  <detail></detail>\n  <msc2000>\n"
    "    <primary></primary>\n  </msc2000>\n  <keywords>\n    <keyword></keyword>\n"
    "  </keywords>\n  <zentralblatt></zentralblatt>\n  <software>Nimbo Pro vers 3.1</software>\n"
    "</description>\n";

const char* const displayMiddle =
    "\"/>\n<meta dtd=\"1.04.000\"/>\n<version></version>\n<title></title>\n<authors>\n"
    "  <author>\n   <firstname></firstname>\n   <lastname></lastname>\n   <affiliation>\n"
    "     <organization></organization>\n     <address>\n       <line></line>\n"
    "     </address>\n   </affiliation>\n   <email></email>\n   <url></url>\n  </author>\n"
    "</authors>\n<description>\n  <abstract></abstract>\n</description>\n";

} // namespace

JavaViewWriter::JavaViewWriter(PlotDocument* plotDocument)
    : document(plotDocument), stream(&discardStream()) {}

JavaViewWriter::~JavaViewWriter() = default;

void JavaViewWriter::warning(const char*) {}

bool JavaViewWriter::isAnimated() const {
    return timeRangeOf(document) != nullptr;
}

bool JavaViewWriter::animationRange(double& begin, double& end) const {
    PlotElement* range = timeRangeOf(document);
    if (!range) return false;
    begin = timeValue(range, tok_TimeBegin);
    end = timeValue(range, tok_TimeEnd);
    return true;
}

void JavaViewWriter::setTime(double at) {
    double begin, end;
    if (animationRange(begin, end)) {
        time = std::isnan(at) || at < begin ? begin : at > end ? end : at;
    } else {
        if (!std::isnan(at)) warning("not an animation");
        time = noTime;
    }
}

void JavaViewWriter::getCoordinateSystem(Arbor::Node*& scene, Arbor::Node*& system, bool& is2d) {
    Arbor::Element* root = document ? document->documentElement() : nullptr;
    if (!root) throw JavaViewExportError("no Canvas");
    is2d = false;
    scene = root->firstChild();
    if (!scene) throw JavaViewExportError("no scene");
    while (scene && !isScene(scene->nodeName())) scene = scene->nextSibling();
    if (!scene) throw JavaViewExportError("no scene");
    is2d = scene->nodeName() == tok_Scene2d;
    for (Arbor::Node* n = scene->nextSibling(); n; n = n->nextSibling())
        if (isScene(n->nodeName())) {
            warning("more than one scene");
            break;
        }
    system =
        firstWithTag(scene->firstChild(), is2d ? tok_CoordinateSystem2d : tok_CoordinateSystem3d);
    if (!system) throw JavaViewExportError("no coordinate system");
    for (Arbor::Node* n = system->nextSibling(); n; n = n->nextSibling())
        if (isSystem(n->nodeName())) {
            warning("more than one coordinate system");
            break;
        }
}

Arbor::Node* JavaViewWriter::findTimedChild(Arbor::Node* parent, Arbor::Token tag, bool useTime,
                                            double at) {
    Arbor::Node* first = firstWithTag(parent->firstChild(), tag);
    if (!useTime || !first) return first;
    Arbor::Node* candidate = nullptr;
    for (Arbor::Node* n = first; n; n = firstWithTag(n->nextSibling(), tag)) {
        const double t = childTime(n);
        if (std::isnan(t)) {
            candidate = n;
            break;
        }
        if (t > at) break;
        candidate = n;
    }
    return candidate ? candidate : first;
}

Arbor::Node* JavaViewWriter::getImg2d(Arbor::Node* object) {
    Arbor::Node* image = findTimedChild(object, tok_Img2d, haveTime(), time);
    if (!image) throw JavaViewExportError("no Img2d");
    return image;
}

Arbor::Node* JavaViewWriter::getImg3d(Arbor::Node* object) {
    Arbor::Node* image = findTimedChild(object, tok_Img3d, haveTime(), time);
    if (!image) throw JavaViewExportError("no Img3d");
    return image;
}

const char* JavaViewWriter::currentDate() const {
    if (!fixedDate_.empty()) return fixedDate_.c_str();
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    if (!local) return "";
    char* text = std::asctime(local);
    if (const std::size_t n = std::strlen(text); n > 0 && text[n - 1] == '\n') text[n - 1] = '\0';
    return text;
}

void JavaViewWriter::startFile(std::ostream* out, double at, JavaViewFile kind) {
    stream = out;
    if (!document) throw JavaViewExportError("no document");
    setTime(at);
    putHead(kind);
}

void JavaViewWriter::putHead(JavaViewFile kind) {
    const bool model = kind == JavaViewFile::Model;
    const char* root = model ? "jvx-model" : "jv-disp";
    std::ostream& out = *stream;
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n<!DOCTYPE " << root
        << " SYSTEM \"" << dtdHost_ << (model ? "/rsrc/jvx.dtd" : "/rsrc/jv-disp.dtd") << "\">\n<"
        << root << ">\n<meta generator=\"zpx2jvx vers 1.5\"/>\n<meta date=\"" << currentDate()
        << (model ? modelMiddle : displayMiddle);
}

void JavaViewWriter::putColor(RGBA color) {
    *stream << "<color>" << color.red() << ' ' << color.green() << ' ' << color.blue()
            << "</color>\n";
}

void JavaViewWriter::putShowAttr(const char* name, bool show) {
    *stream << ' ' << name << (show ? "=\"show\"" : "=\"hide\"");
}

void JavaViewWriter::putThickness(double thickness) {
    if (std::isnan(thickness)) return;
    *stream << "<thickness>";
    putNumber(*stream, thickness);
    *stream << "</thickness>\n";
}

} // namespace Grafel
