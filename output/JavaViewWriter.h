// The frame shared by the two writers of the outside viewer's XML formats (model and display):
// which document and time are exported, the one scene and coordinate system, the file head,
// small shared pieces of output and the one error type.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/foundation/NaN.h>
#include <grafel/foundation/Rgba.h>

#include <exception>
#include <iosfwd>
#include <string>
#include <utility>

namespace Arbor {
class Node;
}

namespace Grafel {

class PlotDocument;

/// Every failure of an export, thrown by value. The text is a string literal and is the whole
/// message.
class JavaViewExportError : public std::exception {
public:
    explicit JavaViewExportError(const char* text) noexcept : text_(text) {}
    const char* what() const noexcept override { return text_; }

private:
    const char* text_;
};

/// The kind of file whose head putHead writes.
enum class JavaViewFile { Model, Display };

/// Abstract base of the model and display writers. A writer is made for one document and may
/// write it many times; copies share the document. Warnings go to warning(), which is silent
/// unless a subclass overrides it.
class JavaViewWriter {
public:
    /// The time of an export without one.
    static constexpr double noTime = NaN();
    /// A thickness that is not written.
    static constexpr double noThickness = NaN();
    /// The host of the published DTD location used when none is set.
    static constexpr const char* defaultDtdHost = "http://www.javaview.de";

    explicit JavaViewWriter(PlotDocument* plotDocument);
    JavaViewWriter(const JavaViewWriter& other) = default;
    JavaViewWriter& operator=(const JavaViewWriter& other) = default;
    virtual ~JavaViewWriter();

    /// Writes one complete file to `out` at time `at` (noTime for none). Throws
    /// JavaViewExportError; what was written before the failure stays in `out`.
    virtual void write(std::ostream* out, double at) = 0;
    /// A hook for the embedding application; the base does nothing.
    virtual void warning(const char* text);

    /// True when there is a document with a root element that has a TimeRange child.
    bool isAnimated() const;
    /// As isAnimated, and gives TimeBegin and TimeEnd of that TimeRange.
    bool animationRange(double& begin, double& end) const;

    /// The host (scheme and authority, no trailing slash) of the DTD named in the DOCTYPE.
    void setDtdHost(std::string host) { dtdHost_ = std::move(host); }
    const std::string& dtdHost() const { return dtdHost_; }
    /// A fixed text for the date meta, so that output can be reproduced; empty restores the
    /// clock.
    void setFixedDate(std::string date) { fixedDate_ = std::move(date); }

protected:
    /// Clamps `at` into the animation range (NaN gives its begin); without an animation a
    /// number warns "not an animation" and gives noTime.
    void setTime(double at);
    double getTime() const { return time; }
    bool haveTime() const { return !(time != time); }
    /// The first Scene2d or Scene3d under the root and its first coordinate system of the
    /// same dimension; a second one of either warns.
    void getCoordinateSystem(Arbor::Node*& scene, Arbor::Node*& system, bool& is2d);
    /// The image of `object` at the export time; throws "no Img2d" / "no Img3d".
    Arbor::Node* getImg2d(Arbor::Node* object);
    Arbor::Node* getImg3d(Arbor::Node* object);
    /// The child with `tag` that holds at `at`: the last one not later than it, one without a
    /// time ends the search, and failing all the first child with the tag.
    static Arbor::Node* findTimedChild(Arbor::Node* parent, Arbor::Token tag, bool useTime,
                                       double at);
    /// The local date and time as asctime writes it, without the line feed (or the fixed date).
    const char* currentDate() const;

    /// Stores `out`, checks the document, sets the time and writes head, date and middle.
    void startFile(std::ostream* out, double at, JavaViewFile kind);
    /// The head, date and middle of a file of `kind`.
    void putHead(JavaViewFile kind);
    /// "<color>r g b</color>\n"; alpha is not written.
    void putColor(RGBA color);
    /// " name=\"show\"" or " name=\"hide\"".
    void putShowAttr(const char* name, bool show);
    /// "<thickness>value</thickness>\n", nothing for NaN.
    void putThickness(double thickness);

    PlotDocument* document;
    /// The stream of the current write; before the first, a stream that discards everything.
    std::ostream* stream;
    double time = noTime;

private:
    std::string dtdHost_ = defaultDtdHost;
    std::string fixedDate_;
};

} // namespace Grafel
