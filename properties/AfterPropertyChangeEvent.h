// The one event by which an observer learns that the effective value of a property may have
// changed.
#pragma once

#include <grafel/arbor/DomEvent.h>
#include <grafel/foundation/Tokens.h>

namespace Grafel {

class PlotElement;

/// Fired on an element for the property `name`; its type is tok_AfterPropertyChange. Every
/// element whose effective value of `name` changed hears it, whether the change was a set, a
/// removal, an undo or a redo; inside a batch it arrives when the batch closes.
class AfterPropertyChangeEvent : public Arbor::DomAttributeEvent {
public:
    AfterPropertyChangeEvent(PlotElement* element, Arbor::Token name);
    std::unique_ptr<Arbor::DomEvent> clone() const override {
        return std::make_unique<AfterPropertyChangeEvent>(*this);
    }
};

} // namespace Grafel
