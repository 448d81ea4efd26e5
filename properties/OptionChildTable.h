// Which bit of an element's option-child mask each option child of a family takes. A family
// (scenes, coordinate systems, objects, ...) lists its {tag, flag} pairs once; the lookup from a
// tag and every mask a class of the family admits or demands follow from that list.
#pragma once

#include <grafel/foundation/Tokens.h>

#include <cstddef>

namespace Grafel {

/// One option child of a family: the id of its tag and the one bit it takes.
struct OptionChildFlag {
    int tagId;
    int flag;
};

/// The option children of one family, as {tag id, flag} pairs. Each flag must be one bit, and
/// no two pairs may share a tag or a bit; a table that breaks this does not compile.
template <std::size_t N> class OptionChildTable {
public:
    consteval OptionChildTable(const OptionChildFlag (&rows)[N]) {
        int seen = 0;
        for (std::size_t i = 0; i < N; ++i) {
            const int flag = rows[i].flag;
            if (flag <= 0 || (flag & (flag - 1)) != 0) throw "an option-child flag is one bit";
            if (seen & flag) throw "two option children share a flag";
            for (std::size_t j = 0; j < i; ++j)
                if (rows[j].tagId == rows[i].tagId) throw "an option child is listed twice";
            seen |= flag;
            rows_[i] = rows[i];
        }
    }

    /// The flag of the tag, or 0 for a tag that is no option child of the family.
    int flagOf(Arbor::Token tag) const {
        for (const OptionChildFlag& row : rows_)
            if (getToken(row.tagId) == tag) return row.flag;
        return 0;
    }

    /// The flags of the tags with the ids given; a tag outside the family does not compile.
    template <class... Ids> consteval int mask(Ids... tagIds) const {
        return (0 | ... | flagOfId(tagIds));
    }
    /// The flags of all the family's option children.
    consteval int all() const {
        int bits = 0;
        for (const OptionChildFlag& row : rows_) bits |= row.flag;
        return bits;
    }

private:
    consteval int flagOfId(int tagId) const {
        for (const OptionChildFlag& row : rows_)
            if (row.tagId == tagId) return row.flag;
        throw "the tag is no option child of this family";
    }

    OptionChildFlag rows_[N] = {};
};

} // namespace Grafel
