#include <grafel/properties/PropertyListMgr.h>

#include <grafel/properties/PlotElement.h>
#include <grafel/properties/Property.h>

#include <algorithm>

namespace Grafel {

PropertyListMgr::~PropertyListMgr() = default;

std::mutex& PropertyListMgr::fillLock() {
    static std::mutex lock;
    return lock;
}

void PropertyListMgr::fillLocked() {
    std::lock_guard guard(fillLock());
    if (state_.load(std::memory_order_relaxed) == 2) return;
    state_.store(1, std::memory_order_relaxed);
    fill(); // an exception leaves the state at 1; the lock is released by the guard
    state_.store(2, std::memory_order_release);
}

void PropertyListMgr::add(Arbor::Token name, Property* property) {
    auto at = entries_.begin() + (lowerBound(name) - entries_.cbegin());
    entries_.insert(at, Entry(name, property));
}

void PropertyListMgr::putAttributesXml(std::ostream& out, PlotElement* element) {
    for (const Entry& e : entries())
        if (element->hasAttribute(e.first)) e.second->putXmlMember(out, element);
}

void PropertyListMgr::putCmd(CmdOStream& out, PlotElement* element) {
    for (const Entry& e : entries())
        if (element->hasAttribute(e.first)) e.second->putCmdMember(out, element);
}

void PropertyListMgr::refreshAll(PlotElement* element) {
    std::vector<PlotElement*> chain;
    element->getInheritanceChain(chain);
    for (const Entry& e : entries()) e.second->refreshInherited(element, chain);
}

void PropertyListMgr::normalizeAll(PlotElement* element) {
    for (const Entry& e : entries())
        if (PlotElement* from = element->inheritingFrom(e.first))
            e.second->normalizeAgainst(element, from);
}

} // namespace Grafel
