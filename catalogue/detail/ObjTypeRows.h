// The standard object-type lists as rows, generated from catalogue/objtypes.txt: a Category row
// opens a category (closed by its End row), an Info row is one PropInfo.
#pragma once

namespace Grafel::detail {

struct ObjTypeRow {
    enum Kind : unsigned char { Category, Info, End };
    Kind kind;
    bool recalc;
    // Category: index into objTypeCaptions; Info: the token id of Dom.
    short a;
    // Info: the token ids of Opt and Type, 0 for none.
    short opt;
    short type;
};

/// One type's list: its rows are objTypeRows[first, first + count).
struct ObjTypeList {
    int typeId;
    bool served;
    int first;
    int count;
};

extern const wchar_t* const objTypeCaptions[];
extern const ObjTypeRow objTypeRows[];
extern const ObjTypeList objTypeLists[];
extern const int objTypeListCount;

} // namespace Grafel::detail
