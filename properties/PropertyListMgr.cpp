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
    buildSlots();
    state_.store(2, std::memory_order_release);
}

void PropertyListMgr::buildSlots() {
    unsigned bits = 1;
    while ((std::size_t(1) << bits) < 2 * entries_.size()) ++bits;
    std::vector<Entry> slots(std::size_t(1) << bits);
    mask_ = slots.size() - 1;
    shift_ = 64 - bits;
    // A name added twice is found in its later entry, which add() put first, as a search by
    // halving finds it: a slot taken by the name keeps its first entry.
    for (const Entry& e : entries_) {
        std::size_t i = slotOf(e.first);
        while (!slots[i].first.isNull() && slots[i].first != e.first) i = (i + 1) & mask_;
        if (slots[i].first.isNull()) slots[i] = e;
    }
    slots_ = std::move(slots);
}

void PropertyListMgr::add(Arbor::Token name, Property* property) {
    auto at = entries_.begin() + (lowerBound(name) - entries_.cbegin());
    entries_.insert(at, Entry(name, property));
}

void PropertyListMgr::add(Arbor::Token name, Property* property, const PropertyOrigin& origin) {
    property->origin_ = origin;
    add(name, property);
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
    // Every inserted primitive comes here: the chain's buffer is kept per thread and taken out
    // while in use, so that a refresh started from within this one (by an observer of its
    // events) takes a fresh one.
    thread_local std::vector<PlotElement*> spare;
    std::vector<PlotElement*> chain = std::move(spare);
    chain.clear();
    element->getInheritanceChain(chain);
    for (const Entry& e : entries()) e.second->refreshInherited(element, chain);
    spare = std::move(chain);
}

void PropertyListMgr::normalizeAll(PlotElement* element) {
    for (const Entry& e : entries())
        if (PlotElement* from = element->inheritingFrom(e.first))
            e.second->normalizeAgainst(element, from);
}

} // namespace Grafel
