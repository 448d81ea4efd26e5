// The table of descriptors of one element class (or a slice of one): lookup by name, filled on
// first use, and the class-wide passes over the descriptors.
#pragma once

#include <grafel/arbor/Token.h>
#include <grafel/foundation/CmdOStream.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <iosfwd>
#include <mutex>
#include <utility>
#include <vector>

namespace Grafel {

class PlotElement;
class Property;
struct PropertyOrigin;

/// One static instance per concrete subclass, whose fill() builds the descriptors and add()s
/// them. Entries are kept sorted by token word, descending; tokens of the catalogue have
/// ascending words in catalogue order, so the order is the same on every run.
///
/// Filling is guarded by one lock shared by all tables (test, lock, test again); a filled
/// table is read without any lock.
class PropertyListMgr {
public:
    using Entry = std::pair<Arbor::Token, Property*>;

    PropertyListMgr() = default;
    PropertyListMgr(const PropertyListMgr&) = delete;
    PropertyListMgr& operator=(const PropertyListMgr&) = delete;
    virtual ~PropertyListMgr();

    /// The descriptor of `name`, or null.
    Property* find(Arbor::Token name) {
        ensureFilled();
        // Open addressing over a table at most half full: the slot of the name, or the first
        // empty one after it, comes within a probe or two.
        for (std::size_t i = slotOf(name);; i = (i + 1) & mask_) {
            const Entry& e = slots_[i];
            if (e.first == name || e.first.isNull()) return e.first == name ? e.second : nullptr;
        }
    }
    /// Writes the attributes the element holds, in entry order.
    void putAttributesXml(std::ostream& out, PlotElement* element);
    /// Writes the attributes the element holds as command items, in entry order.
    virtual void putCmd(CmdOStream& out, PlotElement* element);
    /// Re-derives every absent value of the element from its inheritance chain.
    void refreshAll(PlotElement* element);
    /// Drops every explicit value of the element that equals what it would inherit.
    void normalizeAll(PlotElement* element);

    /// The entries, filled.
    const std::vector<Entry>& entries() {
        ensureFilled();
        return entries_;
    }
    bool filled() const { return state_.load(std::memory_order_acquire) == 2; }
    /// The lock held while any table fills.
    static std::mutex& fillLock();

protected:
    virtual void fill() = 0;
    /// Registers a descriptor; a name added twice is found in its later entry.
    void add(Arbor::Token name, Property* property);
    /// Registers a descriptor with the names its table row gives it.
    void add(Arbor::Token name, Property* property, const PropertyOrigin& origin);

private:
    void ensureFilled() {
        if (state_.load(std::memory_order_acquire) != 2) fillLocked();
    }
    void fillLocked();
    /// The first entry whose word is not above the name's (entries descend by word).
    std::vector<Entry>::const_iterator lowerBound(Arbor::Token name) const {
        return std::lower_bound(entries_.begin(), entries_.end(), name,
                                [](const Entry& e, Arbor::Token t) { return e.first > t; });
    }
    /// The home slot of a name in slots_.
    std::size_t slotOf(Arbor::Token name) const {
        return std::size_t((name.word() >> 3) * 0x9E3779B97F4A7C15ull >> shift_) & mask_;
    }
    /// Builds slots_ from the filled entries.
    void buildSlots();

    std::atomic<int> state_{0}; // 0 not filled, 1 being filled, 2 filled
    std::vector<Entry> entries_;
    // The entries again, hashed by token word; a null name marks an empty slot. One empty slot
    // stands ready before the table fills, so that a lookup while it fills finds nothing.
    std::vector<Entry> slots_ = std::vector<Entry>(1);
    std::size_t mask_ = 0;
    unsigned shift_ = 63;
};

} // namespace Grafel
