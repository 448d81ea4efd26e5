// A small plot viewer's use of Grafel, from loading a file to saving it again:
//
//   viewer [INPUT.zpx [OUTPUT.zpx]]
//
// loads INPUT (by default the bundled polygons example), prints the element tree, reads the
// effective values an object is drawn with through the typed getters, listens for property
// changes, edits the shared object style with undo and redo, adds an object holding a
// polygon, saves the document to OUTPUT (by default viewer-out.zpx) and reads it back.
#include <grafel/grafel.h>

#include <fstream>
#include <iostream>
#include <string>

using namespace Grafel;

#ifndef VIEWER_DEFAULT_INPUT
#define VIEWER_DEFAULT_INPUT "examples/polygons.zpx"
#endif

// ---- Loading and saving --------------------------------------------------------------------

/// Reads the file at `path` (ZPX or Zpa) into `document` and prints each report as a compiler
/// would. On failure the document holds a fresh, empty Canvas.
bool load(PlotDocument& document, const std::string& path) {
    const LoadResult result = loadDocument(document, path);
    for (const Diagnostic& d : result.diagnostics) {
        std::cerr << path << ':' << d.line << ':' << d.column << ": " << d.text();
        if (!d.value.empty()) std::cerr << " (value \"" << d.value << "\")";
        std::cerr << '\n';
    }
    return result.ok();
}

/// Writes `document` as ZPX to `path`, indented so that it reads well and diffs well.
bool save(const PlotDocument& document, const std::string& path) {
    std::ofstream out(path, std::ios::binary);
    SaveOptions options;
    options.indent = true;
    return saveDocument(document, out, options) && out.flush();
}

// ---- Helpers -------------------------------------------------------------------------------

/// A wide-character name as plain text; the examples keep their names in ASCII.
std::string narrow(const Tessel::FixedStringBase<wchar_t>& text) {
    std::string out;
    if (const wchar_t* p = text.text())
        for (; *p; ++p) out += *p < 0x80 ? static_cast<char>(*p) : '?';
    return out;
}

/// "Obj2d star": the tag, and the Name where the element has one.
std::string describe(Arbor::Node* node) {
    std::string out = node->nodeName().text();
    auto* library = dynamic_cast<LibraryElement*>(node);
    if (library && library->hasAttribute(tok_Name)) out += " " + narrow(library->getName());
    return out;
}

/// Prints the element tree below `node`, two spaces a level; point lists are summarised.
void printTree(Arbor::Node* node, int depth) {
    for (Arbor::Node* child = node->firstChild(); child; child = child->nextSibling()) {
        if (!child->asElement()) continue;
        std::cout << std::string(static_cast<std::size_t>(depth) * 2, ' ') << describe(child);
        if (auto* points = dynamic_cast<P2List*>(child)) {
            std::cout << " (" << points->size() << " points)\n";
            continue;
        }
        if (child->nodeName() == tok_Points2d) {
            int count = 0;
            for (Arbor::Node* p = child->firstChild(); p; p = p->nextSibling())
                count += !!p->asElement();
            std::cout << " (" << count << " points)\n";
            continue;
        }
        std::cout << '\n';
        printTree(child, depth + 1);
    }
}

/// The first element below `node`, depth first, whose tag is `tag`.
Arbor::Node* findFirst(Arbor::Node* node, Arbor::Token tag) {
    for (Arbor::Node* child = node->firstChild(); child; child = child->nextSibling()) {
        if (child->nodeName() == tag) return child;
        if (Arbor::Node* inner = findFirst(child, tag)) return inner;
    }
    return nullptr;
}

/// Prints the values an object is drawn with: the typed getters answer the effective value,
/// whether the object sets it, a style above it does, or the default applies.
void printLook(Obj2d* object) {
    std::cout << "  " << describe(object) << ": LineWidth " << object->getLineWidth()
              << ", LineColor " << object->getLineColor() << ", FillColor "
              << object->getFillColor() << ", Filled " << object->getFilled() << '\n';
}

/// Hears every AfterPropertyChangeEvent of the document: the element and the property whose
/// effective value may have changed. A viewer would mark the element for redrawing here.
class ChangeListener : public Arbor::IDocObserver {
public:
    void handleEvent(Arbor::DomEvent& event) override {
        auto* change = dynamic_cast<AfterPropertyChangeEvent*>(&event);
        if (!change) return;
        ++heard;
        if (quiet) return;
        std::cout << "    event: " << describe(change->target()) << "."
                  << change->attribute().text() << " changed\n";
    }
    int heard = 0;
    /// Counts without printing.
    bool quiet = false;
};

// ---- The viewer ----------------------------------------------------------------------------

int main(int argc, char** argv) {
    const std::string input = argc > 1 ? argv[1] : VIEWER_DEFAULT_INPUT;
    const std::string output = argc > 2 ? argv[2] : "viewer-out.zpx";

    PlotDocument document;
    if (!load(document, input)) return 1;
    std::cout << "Loaded " << input << ":\n";
    printTree(&document, 1);

    // Typed reading: Obj2d has a getter per property of the object tables.
    auto* style = dynamic_cast<ObjStyle*>(findFirst(&document, tok_ObjStyle));
    auto* system = findFirst(&document, tok_CoordinateSystem2d);
    if (!style || !system) {
        std::cerr << input << ": needs an ObjStyle and a CoordinateSystem2d\n";
        return 1;
    }
    auto* first = dynamic_cast<Obj2d*>(findFirst(system, tok_Obj2d));
    if (!first) {
        std::cerr << input << ": needs an Obj2d\n";
        return 1;
    }
    std::cout << "\nAs drawn:\n";
    printLook(first);

    ChangeListener listener;
    document.addObserver(&listener, tok_AfterPropertyChange);

    // Edits made while an UndoTaskScope lives form one undo step: undo() and redo() take back
    // and repeat them together.
    std::cout << "\nThe style's LineWidth set to 1.5:\n";
    {
        Arbor::UndoTaskScope step(document);
        style->setAttribute(tok_LineWidth, Arbor::DoubleVariant(1.5));
    }
    printLook(first);
    std::cout << "Undo:\n";
    document.undo();
    printLook(first);
    std::cout << "Redo:\n";
    document.redo();
    printLook(first);

    // A new object: an Obj2d of Type Polygon2d whose image holds one polygon.
    // Every primitive put into the tree hears its inherited values arrive, one event each:
    // counted here rather than printed.
    std::cout << "\nA triangle added:\n";
    listener.quiet = true;
    const int heardBefore = listener.heard;
    Arbor::Ref<PlotElement> triangle(document.createPlotElement(tok_Obj2d));
    triangle->setAttribute(tok_Type, Arbor::TokenVariant(tok_Polygon2d));
    triangle->setAttribute(tok_Name, Arbor::FixedUStringVariant(utf8ToFixedMString("triangle")));
    triangle->setAttribute(tok_FillColor, RGBAVariant(RGBA(0x34, 0x98, 0xdb, 0xff)));
    Arbor::Ref<PlotElement> image(document.createPlotElement(tok_Img2d));
    Arbor::Ref<PlotElement> polygon(document.createPlotElement(tok_Poly2d));
    auto* corners = static_cast<P2List*>(polygon.get());
    corners->push_back(P2(-2, -1));
    corners->push_back(P2(-1, -1));
    corners->push_back(P2(-1.5, 0));
    image->appendChild(polygon.get());
    triangle->appendChild(image.get());
    system->appendChild(triangle.get());
    // It takes the style's values for what it does not set itself.
    std::cout << "    (" << listener.heard - heardBefore << " change events)\n";
    printLook(static_cast<Obj2d*>(triangle.get()));
    document.removeObserver(&listener);

    // Save, and read the saved file back into a second document.
    if (!save(document, output)) {
        std::cerr << output << ": cannot write\n";
        return 1;
    }
    PlotDocument reloaded;
    if (!load(reloaded, output)) return 1;
    std::cout << "\nSaved to " << output << " and read back:\n";
    printTree(&reloaded, 1);
    return 0;
}
