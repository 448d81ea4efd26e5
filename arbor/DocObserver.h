// What a host hands to a document: observers of events and deferred functions.
#pragma once

namespace Arbor {

class DomEvent;

/// Receives the events of a document it was added to (Document::addObserver).
class IDocObserver {
public:
    virtual ~IDocObserver() = default;
    virtual void handleEvent(DomEvent& event) = 0;
};

/// A function to run later (Document::postFunction); the document deletes it after running it.
class Functor {
public:
    virtual ~Functor() = default;
    virtual void run() = 0;
};

} // namespace Arbor
