// The one event by which an observer learns that the effective value of a property may have
// changed.
#pragma once

#include <grafel/arbor/DomEvent.h>
#include <grafel/foundation/Tokens.h>

namespace Grafel {

class PlotElement;

/// Fired on an element for the property `name`; its type is tok_AfterPropertyChange.
class AfterPropertyChangeEvent : public Arbor::DomAttributeEvent {
public:
    AfterPropertyChangeEvent(PlotElement* element, Arbor::Token name);
    std::unique_ptr<Arbor::DomEvent> clone() const override {
        return std::make_unique<AfterPropertyChangeEvent>(*this);
    }
};

} // namespace Grafel
