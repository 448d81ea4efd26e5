// The one event by which an observer learns that the effective value of a property may have
// changed.
#pragma once

#include <grafel/arbor/DomEvent.h>
#include <grafel/foundation/Tokens.h>

namespace Grafel {

class PlotElement;

/// Fired on an element for the property `name`; its type is tok_AfterPropertyChange. Every
/// element whose effective value of `name` changed hears it, whether the change was a set, a
/// removal, an undo or a redo. Inside a batch it arrives when the outermost batch closes, and
/// only once per element and property however often the change reached them (a style edit
/// reaches an element once per style level), in the order of the first firing.
class AfterPropertyChangeEvent : public Arbor::DomAttributeEvent {
public:
    AfterPropertyChangeEvent(PlotElement* element, Arbor::Token name);
    std::unique_ptr<Arbor::DomEvent> clone() const override {
        return std::make_unique<AfterPropertyChangeEvent>(*this);
    }
    Arbor::Token coalescingKey() const noexcept override { return attribute(); }
};

} // namespace Grafel
