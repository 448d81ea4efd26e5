// A plot in which primitives stand where they belong: levels with object styles, a 2D object
// of a type, its image, and one primitive of every kind in the image.
#pragma once

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
#include <grafel/structure/Obj2d.h>
#include <grafel/structure/ObjStyle.h>

#include <cstdarg>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

namespace PrimitiveTest {

using namespace Grafel;
using Arbor::Ref;
using Arbor::Token;

/// The reports of the last document made, without the prefix calls.
inline std::vector<std::string>& reports() {
    static std::vector<std::string> all;
    return all;
}
inline void collect(const char* format, va_list args) {
    char text[256];
    vsnprintf(text, sizeof text, format, args);
    if (std::string(text) != "Grafel error: ") reports().push_back(text);
}

/// A level of the tree above the object (canvas, scene, group...), told apart by its tag only,
/// so that what is tested does not depend on the rules of those classes.
class Level : public LibraryElement {
public:
    Level(Arbor::Document* d, Token tag) : LibraryElement(d), tag_(tag) {}
    Token tagName() const override { return tag_; }
    Arbor::Node* cloneNode(bool) const override { return new Level(document_, tag_); }
    Property* propertyInfo(Token) const override { return nullptr; }

protected:
    bool allowedContentChild(Token) const override { return true; }
    int tagNameToOptionChildFlag(Token) const override { return 0; }
    int allowedOptionChildren() const override { return 0; }
    int mandatoryOptionChildren() const override { return 0; }

private:
    Token tag_;
};

/// "Tag.Property" of each AfterPropertyChangeEvent heard.
struct Heard : Arbor::IDocObserver {
    std::vector<std::string> events;
    void handleEvent(Arbor::DomEvent& e) override {
        auto& a = static_cast<Arbor::DomAttributeEvent&>(e);
        events.push_back(std::string(e.target()->tagName().text()) + "." + a.attribute().text());
    }
    /// How many events name `tagDotName`.
    long count(const std::string& tagDotName) const {
        long n = 0;
        for (const std::string& e : events) n += e == tagDotName;
        return n;
    }
};

template <class T> Ref<T> make(PlotDocument& doc, Token tag) {
    return Ref<T>(static_cast<T*>(doc.createPlotElement(tag)));
}

/// canvas > [Default style, scene > [Function2d style, group > object > image]], the image
/// with one primitive of every 2D kind; filled in while the image is apart, and the image
/// inserted last, so that the object's values reach the primitives on insertion.
struct Plot {
    PlotDocument doc;
    Heard heard;
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
        doc.domErrorHdl(collect);
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

    Ref<ObjStyle> style(Arbor::Node* parent, Token type) {
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

/// The XML form of a node.
inline std::string xml(Arbor::Node* node) {
    std::ostringstream out;
    node->putXml(out);
    return out.str();
}

} // namespace PrimitiveTest
