// What the holders of IExpr items share: walking an incoming chain, counting a change,
// recognising a holder with no value, writing the items as a list, and cloning with the items
// in place of those the constructor made.
#pragma once

#include <grafel/arbor/Node.h>
#include <grafel/foundation/CmdOStream.h>
#include <grafel/properties/ChildRole.h>

namespace Grafel::detail {

/// The number of items after a child change that starts from `present` items, takes away
/// `count` children from `first` (as far as they go) and brings in the chain at `newFirst`;
/// -1 when an incoming node is no IExpr.
long itemsAfterChange(long present, Arbor::Node* first, unsigned count, Arbor::Node* newFirst);

/// Whether `items` (as itemsAfterChange answers it) lies within `count`.
inline bool itemsFit(long items, ChildCount count) {
    return items >= long{count.least} && items <= long{count.most};
}

/// True when the holder has no first child, its first child is no IExpr, or that IExpr is
/// blank.
bool firstItemBlank(const Arbor::Node* holder);

/// The command text of each element child of `holder`, separated by ",".
void putCmdItems(CmdOStream& out, const Arbor::Node* holder);

/// Drops the children of `target` without a check or event, and puts deep clones of the
/// children of `source` in their place. For holders whose constructor already made their
/// children: appending the clones would double them.
void replaceItemsRaw(Arbor::Node* target, const Arbor::Node* source);

/// Makes `count` new IExpr children of `holder` through its document, attached raw: a holder
/// is born complete, with no check and no event.
void appendEmptyItemsRaw(Arbor::Node* holder, unsigned count);

} // namespace Grafel::detail
