// The document of a plot: owner of the tree under its Canvas, factory of its elements, and the
// place where a host selects, deletes, writes command text and drives the animation clock.
#pragma once

#include <grafel/properties/ElementDocument.h>
#include <grafel/tessel/FixedString.h>

#include <iosfwd>

namespace Grafel {

/// All the state of a plot lives in the tree under the document element, a Canvas; every
/// operation that needs it does nothing, or answers NaN, false or null, when there is none.
/// The selection is the document's first selected range, and nothing else.
class PlotDocument : public ElementDocument {
public:
    /// Answers the shared catalogue entry of an object type; the catalogue layer installs it.
    using StdObjTypeLookup = PlotElement* (*)(Arbor::Token type);

    /// An empty document, written in the namespace of the ZPX dialect.
    PlotDocument();
    /// Not copyable: the tree, its history and its observers belong to one document, and a
    /// copy that carried only the handler would be an empty plot. cloneNode() of a document
    /// throws DomException(NotSupportedErr) for the same reason. To duplicate a plot, write it
    /// with putXml() and read the text into a new document.
    PlotDocument(const PlotDocument&) = delete;
    PlotDocument& operator=(const PlotDocument&) = delete;
    ~PlotDocument() override;

    /// The ObjType entry of `type` in the process-wide catalogue, or null. It does not read
    /// this document; the entry lives to the end of the process and must not be changed.
    virtual PlotElement* getStdObjType(Arbor::Token type);
    /// Installs the catalogue behind getStdObjType (null: every answer is null).
    static void setStdObjTypeLookup(StdObjTypeLookup lookup) noexcept;

    /// Runs fixupTree down from the document element.
    virtual void fixupTree();
    /// Writes the plot as command text: "plot(" (or "plot::replot("), a line break, the
    /// document element's command form, "):". Nothing without a document element.
    virtual void putCmd(std::ostream& out, bool replot);
    /// Selects `element` (null deselects).
    virtual void selectElement(Arbor::Element* element);
    /// Selects the first element, depth first, whose id equals `id`; a failed search, or an
    /// empty id, deselects and answers false.
    virtual bool selectElementId(const Tessel::FixedStringBase<char>& id);
    /// The selected element, when the selection spans exactly one element.
    virtual Arbor::Element* selectedElement();
    virtual void deselect();
    /// False for nothing selected, for the Canvas, and for the last scene or coordinate system
    /// of its tag within its parent.
    virtual bool canDeleteSelection();
    /// Removes the selected element and clears Consistent on every element above it that has
    /// it, as one undo step of its own.
    virtual void deleteSelection();
    /// Sets CurrentTime of the Canvas as an ordinary attribute change.
    virtual void setCurrentAnimationTime(double time);
    /// CurrentTime of the Canvas, or InitialTime while that is NaN; NaN without a Canvas.
    virtual double getInitialAnimationTime();
    /// The nearest time after (or before) `time` at which anything changes, within the time
    /// range; NaN when there is none.
    virtual double getNextAnimationTime(double time, bool backward);
};

} // namespace Grafel
