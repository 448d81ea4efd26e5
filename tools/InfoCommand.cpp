// grafel info: a short summary of what a document holds. The tree is walked by tags, by the
// Type of the objects and by the point-list bases, so that classes added to the library later
// are counted without a change here.
#include "Arguments.h"
#include "Commands.h"
#include "Load.h"
#include "Output.h"

#include <grafel/arbor/Variant.h>
#include <grafel/document/P2List.h>
#include <grafel/document/P3List.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/document/ZpxParserHandler.h>
#include <grafel/foundation/Tokens.h>
#include <grafel/primitives/Mesh3d.h>
#include <grafel/properties/PlotElement.h>

#include <exception>
#include <iomanip>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace GrafelTool {

namespace {

constexpr std::string_view command = "info";

constexpr std::string_view help = R"(Usage: grafel info INPUT

Loads the plot document INPUT ("-" for standard input) and prints a summary: the page, the
scenes, coordinate systems and styles, the groups, the transforms and the objects by type,
the 3D primitives, cameras and lights, the points of all point lists, the grid of each mesh
(points along U x V), the mesh and cells of each raster and vector field, and the animation
time range.

Options:
  -h, --help   show this help

Exit status: 0 loaded, 1 not loaded, 2 wrong command line.
)";

using Counts = std::map<std::string, long>;

struct Summary {
    long elements = 0;
    Counts scenes;
    Counts coordinateSystems;
    Counts styles;
    Counts objects;
    Counts groups;
    Counts transforms;
    Counts primitives3d;
    long cameras = 0;
    Counts lights;
    long planeLists = 0;
    unsigned long long planePoints = 0;
    long spaceLists = 0;
    unsigned long long spacePoints = 0;
    // One line for each raster and vector field, in document order.
    std::vector<std::pair<std::string, std::string>> arrays;
    std::vector<std::string> meshGrids; ///< "nU x nV" of each Mesh3d, in document order
};

std::optional<double> doubleProperty(const Grafel::PlotElement& element, Arbor::Token name) {
    if (!element.hasProperty(name)) return std::nullopt;
    const Arbor::Variant value = element.getProperty(name);
    if (const auto* d = value.as<Arbor::DoubleVariant>()) return d->val();
    return std::nullopt;
}

/// "4 x 3 mesh, 12 cells" for a raster, "11 x 11 mesh, 121 vectors" for a field: the mesh as
/// stated, the cells or vectors as held, which a reader may leave unequal. Empty for an
/// element that is neither.
std::string arrayText(Arbor::Element& element) {
    using namespace Grafel;
    const PlotElement* plot = PlotElement::from(&element);
    std::size_t held = 0;
    const char* what = "cells";
    if (const auto* colors = dynamic_cast<const ColorArrayInput*>(&element))
        held = colors->size();
    else if (const auto* density = dynamic_cast<const DensityArrayInput*>(&element))
        held = density->size();
    else if (element.tagName() == tok_Field2d || element.tagName() == tok_Field3d) {
        what = "vectors";
        if (const auto* list = dynamic_cast<const P2List*>(&element)) held = list->size();
        if (const auto* list = dynamic_cast<const P3List*>(&element)) held = list->size();
    } else {
        return {};
    }
    std::ostringstream out;
    const char* separator = "";
    for (Arbor::Token mesh : {tok_XMesh, tok_YMesh, tok_ZMesh}) {
        if (!plot || !plot->propertyInfo(mesh)) continue;
        const Arbor::Variant value = plot->getProperty(mesh);
        const auto* n = value.as<Arbor::LongVariant>();
        out << separator << (n ? n->val() : 0);
        separator = " x ";
    }
    out << " mesh, " << held << ' ' << what;
    return out.str();
}

std::string objectType(const Grafel::PlotElement& object) {
    try {
        const Arbor::Variant value = object.getProperty(Grafel::tok_Type);
        if (const auto* t = value.as<Arbor::TokenVariant>(); t && !t->val().isNull())
            return t->val().text();
    } catch (const std::exception&) {
        // An object without Type has been reported by the library already.
    }
    return "(no Type)";
}

bool isLight(Arbor::Token tag) {
    using namespace Grafel;
    return tag == tok_AmbientLight || tag == tok_PointLight || tag == tok_DistantLight ||
           tag == tok_SpotLight;
}

/// Counts the elements below `parent`; `inImage3d` when `parent` is a 3D image, whose children
/// are cameras, lights, clipping boxes and 3D primitives.
void walk(const Arbor::Node& parent, Summary& summary, bool inImage3d = false) {
    using namespace Grafel;
    for (Arbor::Node* node = parent.firstChild(); node; node = node->nextSibling()) {
        Arbor::Element* element = node->asElement();
        if (!element) continue;
        ++summary.elements;
        const Arbor::Token tag = element->tagName();
        const PlotElement* plot = PlotElement::from(element);
        if (tag == tok_Scene2d || tag == tok_Scene3d)
            ++summary.scenes[tag.text()];
        else if (tag == tok_CoordinateSystem2d || tag == tok_CoordinateSystem3d)
            ++summary.coordinateSystems[tag.text()];
        else if (tag == tok_Group2d || tag == tok_Group3d)
            ++summary.groups[tag.text()];
        else if ((tag == tok_Transform2d || tag == tok_Transform3d) && plot)
            ++summary.transforms[objectType(*plot)];
        else if ((tag == tok_Obj2d || tag == tok_Obj3d) && plot)
            ++summary.objects[objectType(*plot)];
        else if (plot && plot->isStyle())
            ++summary.styles[tag.text()];
        else if (tag == tok_Camera)
            ++summary.cameras;
        else if (isLight(tag))
            ++summary.lights[tag.text()];
        else if (inImage3d && tag != tok_ClippingBox)
            ++summary.primitives3d[tag.text()];

        if (std::string text = arrayText(*element); !text.empty())
            summary.arrays.emplace_back(tag.text(), std::move(text));
        if (const auto* list = dynamic_cast<const P2List*>(element)) {
            ++summary.planeLists;
            summary.planePoints += list->size();
        } else if (const auto* list = dynamic_cast<const P3List*>(element)) {
            ++summary.spaceLists;
            summary.spacePoints += list->size();
            if (const auto* mesh = dynamic_cast<const Mesh3d*>(list))
                summary.meshGrids.push_back(std::to_string(mesh->nU()) + " x " +
                                            std::to_string(mesh->nV()));
        }
        walk(*element, summary, tag == tok_Img3d);
    }
}

long total(const Counts& counts) {
    long sum = 0;
    for (const auto& [name, count] : counts) sum += count;
    return sum;
}

/// "3 (Scene2d 2, Scene3d 1)", or "0".
std::string countsText(const Counts& counts) {
    std::ostringstream out;
    out << total(counts);
    const char* separator = " (";
    for (const auto& [name, count] : counts) {
        out << separator << name << ' ' << count;
        separator = ", ";
    }
    if (!counts.empty()) out << ')';
    return out.str();
}

void line(std::ostream& out, std::string_view label, const std::string& value) {
    out << std::left << std::setw(21) << (std::string(label) + ":") << value << '\n';
}

std::string pointsText(long lists, unsigned long long points) {
    std::ostringstream out;
    out << points << " in " << lists << (lists == 1 ? " list" : " lists");
    return out.str();
}

void print(std::ostream& out, const std::string& input, Grafel::PlotDocument& document) {
    Summary summary;
    walk(document, summary);
    const auto* canvas = Grafel::PlotElement::from(document.documentElement());

    line(out, "input", input);
    if (canvas) {
        const auto width = doubleProperty(*canvas, Grafel::tok_Width);
        const auto height = doubleProperty(*canvas, Grafel::tok_Height);
        if (width && height) {
            std::ostringstream page;
            page << *width << " x " << *height << " mm";
            line(out, "page", page.str());
        }
    }
    line(out, "elements", std::to_string(summary.elements));
    line(out, "scenes", countsText(summary.scenes));
    line(out, "coordinate systems", countsText(summary.coordinateSystems));
    line(out, "styles", countsText(summary.styles));
    line(out, "groups", countsText(summary.groups));
    line(out, "transforms", countsText(summary.transforms));
    line(out, "objects", std::to_string(total(summary.objects)));
    for (const auto& [type, count] : summary.objects) line(out, "  " + type, std::to_string(count));
    line(out, "3D primitives", countsText(summary.primitives3d));
    line(out, "cameras", std::to_string(summary.cameras));
    line(out, "lights", countsText(summary.lights));
    line(out, "plane points", pointsText(summary.planeLists, summary.planePoints));
    line(out, "space points", pointsText(summary.spaceLists, summary.spacePoints));
    if (!summary.meshGrids.empty()) {
        std::string grids = std::to_string(summary.meshGrids.size()) + " (";
        for (std::size_t i = 0; i < summary.meshGrids.size(); ++i)
            grids += (i ? ", " : "") + summary.meshGrids[i];
        line(out, "mesh grids", grids + ")");
    }
    // Only a document with rasters or fields has these lines.
    if (!summary.arrays.empty()) {
        line(out, "arrays", std::to_string(summary.arrays.size()));
        for (const auto& [tag, text] : summary.arrays) line(out, "  " + tag, text);
    }

    std::string animation = "none";
    if (canvas) {
        for (Arbor::Node* node = canvas->firstChild(); node; node = node->nextSibling()) {
            const auto* range = Grafel::PlotElement::from(node);
            if (!range || range->tagName() != Grafel::tok_TimeRange) continue;
            const auto begin = doubleProperty(*range, Grafel::tok_TimeBegin);
            const auto end = doubleProperty(*range, Grafel::tok_TimeEnd);
            if (begin && end) {
                std::ostringstream text;
                text << *begin << " to " << *end;
                animation = text.str();
            }
            break;
        }
    }
    line(out, "animation", animation);
}

} // namespace

int runInfo(Words args) {
    ParsedArguments parsed;
    if (auto end = startCommand(command, help, args, {}, parsed)) return *end;
    if (auto end = checkInputs(command, parsed, false)) return *end;
    const std::string& input = parsed.operands.front();

    ReportScope reports(displayName(input), std::cerr);
    Grafel::PlotDocument document;
    if (!loadDocument(document, input, {}, reports)) return ExitFailed;
    return writeMadeOutput(
        reports, "summarise the document",
        [&](std::ostream& out) { print(out, reports.input(), document); }, "-");
}

} // namespace GrafelTool
