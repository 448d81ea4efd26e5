// Stepping the animation clock: the walk over the tree, its tie-breaks, and what a frame adds.
#include "document/ZpxTestHelpers.h"

#include <grafel/arbor/DomException.h>
#include <grafel/primitives/ImgBase.h>
#include <grafel/structure/TrBase.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

using namespace Grafel;
using ZpxTest::find;

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();

/// An element `open` (a start tag without its ">") with the given attributes, parameter range
/// and frames `frame` (Img2d or Tr2d), then `inside`; a NaN bound or Param leaves it out.
std::string animated(const std::string& open, const std::string& frame,
                     const std::string& attributes, double paramBegin, double paramEnd,
                     const std::vector<double>& params, const std::string& inside = "") {
    std::string text = open + " " + attributes + ">";
    auto bound = [&text](const char* tag, double v) {
        if (std::isnan(v)) return;
        text += std::string("<") + tag + " Val=\"" + std::to_string(v) + "\">x</" + tag + ">";
    };
    bound("ParameterBegin", paramBegin);
    bound("ParameterEnd", paramEnd);
    for (double p : params)
        text += std::isnan(p) ? "<" + frame + "/>"
                              : "<" + frame + " Param=\"" + std::to_string(p) + "\"/>";
    const std::string tag = open.substr(1, open.find(' ') - 1);
    return text + inside + "</" + tag + ">";
}

/// An Obj2d of type Function2d with images.
std::string object(const std::string& attributes, double paramBegin, double paramEnd,
                   const std::vector<double>& params) {
    return animated("<Obj2d Type=\"Function2d\"", "Img2d", attributes, paramBegin, paramEnd,
                    params);
}

/// A Transform2d of type Rotate2d with frames, holding `inside`.
std::string transform(const std::string& attributes, double paramBegin, double paramEnd,
                      const std::vector<double>& params, const std::string& inside) {
    return animated("<Transform2d Type=\"Rotate2d\"", "Tr2d", attributes, paramBegin, paramEnd,
                    params, inside);
}

/// A page with `range` (a TimeRange element, or nothing) and `objects` in one coordinate system.
std::string page(const std::string& range, const std::string& objects) {
    return "<Canvas version=\"1\">" + range + "<Scene2d><CoordinateSystem2d>" + objects +
           "</CoordinateSystem2d></Scene2d></Canvas>";
}

const std::string range0to10 = "<TimeRange TimeBegin=\"0\" TimeEnd=\"10\"/>";
/// Images at parameter 0, 0.5 and 1 of [0, 1], played over [0, 10]: times 0, 5 and 10.
const std::string evenFrames = object("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {0, 0.5, 1});

struct Step {
    double from;
    bool backward;
    double expected; // NaN: no next time
};

struct Case {
    const char* name;
    std::string document;
    std::vector<Step> steps;
};

bool same(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || a == b;
}

} // namespace

TEST(AnimationTime, NextTimeOfEachCase) {
    const double nan = NaN();
    const std::vector<Case> cases = {
        {"no TimeRange, no animation",
         page("", evenFrames),
         {{0, false, nan}, {5, true, nan}, {nan, false, nan}}},
        {"nothing beyond the range",
         page(range0to10, ""),
         {{10, false, nan}, {11, false, nan}, {0, true, nan}, {-1, true, nan}}},
        {"no animated object: the ends of the range",
         page(range0to10, object("", nan, nan, {})),
         {{3, false, 10}, {3, true, 0}, {nan, false, 10}, {nan, true, 0}}},
        {"frames at 0, 5 and 10; a frame at the time itself is passed over",
         page(range0to10, evenFrames),
         {{0, false, 5}, {5, false, 10}, {10, true, 5}, {5, true, 0}, {4.9, false, 5}}},
        {"a NaN time starts outside every frame",
         page(range0to10, evenFrames),
         {{nan, false, 10}, {nan, true, 0}}},
        {"the nearer of two objects, whatever their order",
         page(range0to10, object("TimeBegin=\"0\" TimeEnd=\"8\"", 0, 1, {0.5}) +
                              object("TimeBegin=\"0\" TimeEnd=\"6\"", 0, 1, {0.5})),
         {{0, false, 3}, {9, true, 4}, {3, false, 4}}},
        {"an object's span clamped by the range",
         page(range0to10, object("TimeBegin=\"5\" TimeEnd=\"20\"", 0, 1, {0, 0.5, 1})),
         {{0, false, 5}, {5, false, 10}, {12.5, false, nan}, {10, true, 5}}},
        {"backward from beyond the range's end, the frames there count",
         page(range0to10, object("TimeBegin=\"5\" TimeEnd=\"20\"", 0, 1, {0, 0.5, 1})),
         {{20, true, 12.5}, {30, true, 20}}},
        {"an empty parameter range puts every frame at TimeBegin",
         page(range0to10, object("TimeBegin=\"2\" TimeEnd=\"10\"", 1, 1, {0, 1, 7})),
         {{0, false, 2}, {2, false, 10}, {5, true, 2}}},
        {"no ParameterEnd, no frames",
         page(range0to10, object("TimeBegin=\"0\" TimeEnd=\"10\"", 0, nan, {0.5})),
         {{0, false, 10}, {10, true, 0}}},
        {"a frame without Param is skipped and those behind it count",
         page(range0to10, object("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {nan, 0.5, nan, 0.7})),
         {{0, false, 5}, {5, false, 7}, {9, true, 7}}},
        {"out of order, the first frame past the time ends the walk",
         page(range0to10, object("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {0.8, 0.2})),
         {{0, false, 8}, {5, true, 0}, {9, true, 8}}},
        {"an object whose span lies behind the time adds nothing",
         page(range0to10, object("TimeBegin=\"6\" TimeEnd=\"8\"", 0, 1, {0, 1})),
         {{8, false, 10}, {6, true, 0}, {7, false, 8}, {7, true, 6}}},
        {"a NaN span adds nothing",
         page(range0to10, object("TimeBegin=\"0\" TimeEnd=\"NaN\"", 0, 1, {0.5})),
         {{0, false, 10}}},
        {"infinite times",
         page("<TimeRange TimeBegin=\"-inf\" TimeEnd=\"inf\"/>", evenFrames),
         {{0, false, 5}, {inf, false, nan}, {-inf, true, nan}, {-inf, false, 0}, {0, true, -inf}}},
        {"a NaN range ends nowhere",
         page("<TimeRange TimeBegin=\"0\" TimeEnd=\"NaN\"/>", evenFrames),
         {{0, false, nan}, {10, true, 5}}},
        {"a transform's frames count as an object's images do",
         page(range0to10, transform("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {0.2, 0.6}, "")),
         {{0, false, 2}, {2, false, 6}, {6, false, 10}, {10, true, 6}, {6, true, 2}}},
        {"a frame without Param ends the frames; the objects inside still count",
         page(range0to10, transform("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {0.2, nan, 0.6},
                                    object("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {0.7}))),
         {{0, false, 2}, {2, false, 7}, {7, false, 10}, {10, true, 7}, {7, true, 2}}},
        {"infinite Params lie beyond either end",
         page(range0to10, transform("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {-inf, 0.5, inf}, "")),
         {{0, false, 5}, {5, false, 10}, {10, true, 5}, {5, true, 0}}},
        {"past a transform's span the objects inside are not asked",
         page(range0to10, transform("TimeBegin=\"0\" TimeEnd=\"4\"", 0, 1, {},
                                    object("TimeBegin=\"6\" TimeEnd=\"10\"", 0, 1, {0.5}))),
         {{5, false, 10}, {3, false, 8}}},
        {"a transform without a parameter range asks nothing inside",
         page(range0to10, transform("TimeBegin=\"0\" TimeEnd=\"10\"", 0, nan, {0.5},
                                    object("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {0.7}))),
         {{0, false, 10}}},
        {"the span from the styles of the object's type",
         "<Canvas version=\"1\">" + range0to10 +
             "<ObjStyle Type=\"Default\" TimeEnd=\"2\"/>"
             "<Scene2d><CoordinateSystem2d><ObjStyle Type=\"Function2d\" TimeBegin=\"4\"/>"
             "<ObjStyle Type=\"Default\" TimeBegin=\"0\" TimeEnd=\"8\"/>" +
             object("", 0, 1, {0.5}) + "</CoordinateSystem2d></Scene2d></Canvas>",
         {{0, false, 6}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        PlotDocument doc;
        ASSERT_TRUE(ZpxTest::load(doc, c.document)) << c.document;
        for (const Step& s : c.steps) {
            const double next = doc.getNextAnimationTime(s.from, s.backward);
            EXPECT_TRUE(same(next, s.expected))
                << (s.backward ? "backward" : "forward") << " from " << s.from << " gives " << next
                << ", expected " << s.expected;
        }
    }
}

TEST(AnimationTime, EntryPointsAndFailures) {
    PlotDocument doc;
    // No document element: nothing to step through, nothing to set.
    EXPECT_TRUE(std::isnan(doc.getNextAnimationTime(0, false)));
    EXPECT_TRUE(std::isnan(doc.getInitialAnimationTime()));
    doc.setCurrentAnimationTime(1);

    ASSERT_TRUE(ZpxTest::load(doc, page(range0to10, evenFrames)));
    // An object without Type cannot tell its span: the read throws out of the walk.
    Arbor::Ref<PlotElement> untyped = doc.createPlotElement(tok_Obj2d);
    find(&doc, tok_CoordinateSystem2d)->appendChild(untyped.get());
    EXPECT_THROW(doc.getNextAnimationTime(0, false), Arbor::DomException);
}

TEST(AnimationTime, AnEmptyParameterRangeIsNotKept) {
    PlotDocument doc;
    ASSERT_TRUE(ZpxTest::load(
        doc, page(range0to10, object("TimeBegin=\"2\" TimeEnd=\"10\"", 1, 1, {1.5}))));
    PlotElement* end = find(&doc, tok_ParameterEnd);
    EXPECT_EQ(doc.getNextAnimationTime(0, false), 2.0); // the begin, for any Param
    // A change of a parameter bound does not reach the image; the begin was not kept, so the
    // image has its time on the new range, and keeps that one.
    end->setAttribute(tok_Val, Arbor::DoubleVariant(2));
    EXPECT_EQ(doc.getNextAnimationTime(0, false), 6.0);
    end->setAttribute(tok_Val, Arbor::DoubleVariant(3));
    EXPECT_EQ(doc.getNextAnimationTime(0, false), 6.0);
    EXPECT_EQ(static_cast<ImgBase*>(find(&doc, tok_Img2d))->getTime(), 6.0);
}

TEST(AnimationTime, AFrameKeepsItsTimeUntilItChangesOrMoves) {
    PlotDocument doc;
    ASSERT_TRUE(ZpxTest::load(
        doc, page(range0to10, transform("TimeBegin=\"0\" TimeEnd=\"10\"", 0, 1, {0.5}, ""))));
    auto* frame = static_cast<TrBase*>(find(&doc, tok_Tr2d));
    PlotElement* end = find(&doc, tok_ParameterEnd);
    EXPECT_EQ(frame->getTime(), 5.0);
    // The transform's range changes under a kept time: the frame does not hear of it.
    end->setAttribute(tok_Val, Arbor::DoubleVariant(2));
    EXPECT_EQ(frame->getTime(), 5.0);
    // Its own change clears it, and the time is found on the new range.
    frame->setAttribute(tok_Param, Arbor::DoubleVariant(1.5));
    EXPECT_EQ(frame->getTime(), 7.5);
    EXPECT_EQ(doc.getNextAnimationTime(0, false), 7.5);
    // Out of its transform a frame has no time; a NaN Param has none anywhere.
    Arbor::Ref<Arbor::Node> kept = frame->parentNode()->removeChild(frame);
    EXPECT_TRUE(std::isnan(frame->getTime()));
    find(&doc, tok_Transform2d)->appendChild(frame);
    frame->setAttribute(tok_Param, Arbor::DoubleVariant(NaN()));
    EXPECT_TRUE(std::isnan(frame->getTime()));
}
