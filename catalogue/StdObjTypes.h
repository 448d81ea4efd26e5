// The standard object-type catalogue: one process-wide document whose Canvas holds an ObjType
// for each type that has been asked for, built on first demand from the lists in objtypes.txt.
#pragma once

#include <grafel/arbor/Token.h>

#include <initializer_list>
#include <vector>

namespace Grafel {

class ObjType;
class PlotDocument;
class PlotElement;
class PropCat;
class PropInfo;

/// The shared ObjType entry of `type`, or null for a type without a served list (among them
/// Plane) and for the null token. The whole call, building included, holds one process-wide
/// lock, so any thread may ask; an entry is never changed after it is built, and it lives to
/// the end of the process. PlotDocument::getStdObjType answers the same.
ObjType* getStdObjType(Arbor::Token type);

/// A new ObjType of `doc` with its Type set and the categories appended in order; the list
/// ends at its end or at the first null. The caller takes the first reference, as
/// from createElement.
ObjType* makeObjType(PlotDocument* doc, Arbor::Token type,
                     std::initializer_list<PlotElement*> categories);
/// A new PropCat with its Name and the children (PropCat or PropInfo) appended in order.
PropCat* makePropCat(PlotDocument* doc, const wchar_t* name,
                     std::initializer_list<PlotElement*> children);
/// A new PropInfo with its Dom, Opt, Type and Recalc set (a null Opt or Type is stated too).
PropInfo* makePropInfo(PlotDocument* doc, Arbor::Token dom, Arbor::Token opt, Arbor::Token type,
                       bool recalc);

/// Builds the list of `type` in `doc`, whether the lookup serves it or not (Plane has a list
/// but is not served); null for a type without a list. The caller takes the first reference, as
/// from createElement.
ObjType* buildObjTypeList(PlotDocument* doc, Arbor::Token type);
/// Every type that has a list, served or not, in the order of objtypes.txt.
std::vector<Arbor::Token> objTypeListTypes();
/// The types that getStdObjType serves, in the order of objtypes.txt.
std::vector<Arbor::Token> servedObjTypes();

} // namespace Grafel
