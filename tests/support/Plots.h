// The trees that tests and benchmarks build on: a level element that takes anything, a page
// with its Canvas, and a plot with one primitive of every 2D kind.
#pragma once

#include "support/Forms.h"
#include "support/Reports.h"

#include <grafel/arbor/DomEvent.h>
#include <grafel/arbor/Text.h>
#include <grafel/document/PlotDocument.h>
#include <grafel/primitives/Arc2d.h>
#include <grafel/primitives/Arrow2d.h>
#include <grafel/primitives/Img2d.h>
#include <grafel/primitives/Img3d.h>
#include <grafel/primitives/Line2d.h>
#include <grafel/primitives/Point2d.h>
#include <grafel/primitives/Points2d.h>
#include <grafel/primitives/Poly2d.h>
#include <grafel/primitives/Pt2d.h>
#include <grafel/primitives/Pts2d.h>
#include <grafel/primitives/Text2d.h>
#include <grafel/primitives/VerticalAsymptote.h>
#include <grafel/properties/AfterPropertyChangeEvent.h>
#include <grafel/properties/LibraryElement.h>
#include <grafel/structure/Canvas.h>
#include <grafel/structure/Obj2d.h>
#include <grafel/structure/ObjStyle.h>

#include <string>
#include <vector>

namespace TestSupport {

using namespace Grafel;
using Arbor::Node;
using Arbor::Ref;
using Arbor::Token;

/// A level of the tree (canvas, scene, group, transform, image...) told apart by its tag only,
/// so that what a test looks at does not depend on the rules of those classes.
class Level : public LibraryElement {
public:
    Level(Arbor::Document* d, Token tag) : LibraryElement(d), tag_(tag) {}
    Token tagName() const override { return tag_; }
    Node* cloneNode(bool) const override { return new Level(document_, tag_); }
    Property* propertyInfo(Token) const override { return nullptr; }

protected:
    bool allowedContentChild(Token) const override { return true; }
    int tagNameToOptionChildFlag(Token) const override { return 0; }
    int allowedOptionChildren() const override { return 0; }
    int mandatoryOptionChildren() const override { return 0; }

private:
    Token tag_;
};

/// A new element of the class registered for `tag`.
template <class T = PlotElement> Ref<T> make(ElementDocument& doc, Token tag) {
    return Ref<T>(static_cast<T*>(doc.createPlotElement(tag)));
}

/// Sets `name` of `e` from its text, as a file states it.
inline void set(PlotElement* e, Token name, const char* text) {
    e->setAttributeString(name, text);
}

/// Names each AfterPropertyChangeEvent "who.Property": the element's id, else its tag and its
/// parent's tag ("Arc2d@Img2d.LineWidth").
struct Heard : Arbor::IDocObserver {
    std::vector<std::string> events;
    void handleEvent(Arbor::DomEvent& e) override {
        auto* element = PlotElement::from(e.target());
        const AttributeListElement* list = element->asAttributeList();
        const Arbor::Variant* id = list ? list->findAttribute(tok_id) : nullptr;
        const Node* parent = element->parentNode();
        const std::string who = id ? id->as<Arbor::FixedStringVariant>()->val().c_str()
                                   : std::string(element->tagName().c_str()) + "@" +
                                         (parent ? parent->nodeName().c_str() : "");
        events.push_back(who + "." + static_cast<Arbor::DomAttributeEvent&>(e).attribute().c_str());
    }
    /// How many events are `name`.
    long count(const std::string& name) const {
        long n = 0;
        for (const std::string& e : events) n += e == name;
        return n;
    }
};

/// A document whose element is a Canvas, with its reports collected and its changes heard.
struct Page {
    Heard heard; // outlives the document it observes
    PlotDocument doc;
    Canvas* canvas;
    Page() {
        reports().clear();
        doc.domErrorHdl(collectReport);
        canvas = static_cast<Canvas*>(doc.createPlotElement(tok_Canvas));
        doc.appendChild(canvas);
        doc.addObserver(&heard, tok_AfterPropertyChange);
    }
    ~Page() { doc.removeObserver(&heard, tok_AfterPropertyChange); }
    /// A new element under `parent`, which keeps it alive; with an id when `id` is given.
    template <class T = PlotElement> T* add(Node* parent, Token tag, const char* id = nullptr) {
        Ref<PlotElement> e = doc.createPlotElement(tag);
        if (id) e->setAttributeString(tok_id, id);
        parent->appendChild(e.get());
        return static_cast<T*>(e.get());
    }
    /// A new element under `parent` with `text` as its content.
    template <class T = PlotElement> T* add(Node* parent, Token tag, const wchar_t* text) {
        Ref<PlotElement> e = doc.createPlotElement(tag);
        e->appendChild(doc.createTextNode(text));
        parent->appendChild(e.get());
        return static_cast<T*>(e.get());
    }
};

/// canvas > [Default style, scene > [Function2d style, group > object > image]], the levels
/// being Level elements and the image holding one primitive of every 2D kind; filled in while
/// the image is apart, and the image inserted last, so that the object's values reach the
/// primitives on insertion.
struct Plot {
    Heard heard; // outlives the document it observes
    PlotDocument doc;
    Ref<Level> canvas, scene, group;
    Ref<ObjStyle> defaults, typed;
    Ref<Obj2d> object;
    Ref<Img2d> image;
    Ref<Arc2d> arc;
    Ref<Arrow2d> arrow;
    Ref<Line2d> line;
    Ref<Pt2d> pt;
    Ref<Pts2d> pts;
    Ref<Poly2d> poly;
    Ref<Text2d> text;
    Ref<VerticalAsymptote> asymptote;

    explicit Plot(bool insertImage = true) {
        reports().clear();
        doc.domErrorHdl(collectReport);
        canvas = new Level(&doc, tok_Canvas);
        doc.appendChild(canvas.get());
        defaults = style(canvas.get(), tok_Default);
        scene = new Level(&doc, tok_Scene2d);
        canvas->appendChild(scene.get());
        typed = style(scene.get(), tok_Function2d);
        group = new Level(&doc, tok_Group2d);
        scene->appendChild(group.get());
        object = make<Obj2d>(doc, tok_Obj2d);
        object->setAttribute(tok_Type, Arbor::TokenVariant(tok_Function2d));
        group->appendChild(object.get());

        image = make<Img2d>(doc, tok_Img2d);
        arc = add<Arc2d>(tok_Arc2d);
        arrow = add<Arrow2d>(tok_Arrow2d);
        line = add<Line2d>(tok_Line2d);
        pt = add<Pt2d>(tok_Pt2d);
        pts = add<Pts2d>(tok_Pts2d);
        poly = add<Poly2d>(tok_Poly2d);
        text = add<Text2d>(tok_Text2d);
        asymptote = add<VerticalAsymptote>(tok_VerticalAsymptote);
        if (insertImage) object->appendChild(image.get());
        doc.addObserver(&heard, tok_AfterPropertyChange);
    }
    ~Plot() { doc.removeObserver(&heard, tok_AfterPropertyChange); }

    Ref<ObjStyle> style(Node* parent, Token type) {
        auto s = make<ObjStyle>(doc, tok_ObjStyle);
        s->setAttribute(tok_Type, Arbor::TokenVariant(type));
        parent->appendChild(s.get());
        return s;
    }
    template <class T> Ref<T> add(Token tag) {
        auto p = make<T>(doc, tag);
        image->appendChild(p.get());
        return p;
    }
    /// The primitives, in the order of the image.
    std::vector<PlotElement*> primitives() const {
        return {arc.get(), arrow.get(), line.get(), pt.get(),
                pts.get(), poly.get(),  text.get(), asymptote.get()};
    }
};

} // namespace TestSupport
