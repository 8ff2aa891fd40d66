// Where junctions and symbolic links lead to, as it is written in them.
#pragma once

#include <string_view>

#include "text/cstring.h"

enum class LinkKind { None, Junction, SymbolicLink, Other };

struct LinkTarget {
    LinkKind kind = LinkKind::None; // None: an ordinary file, or nothing of that name
    CString target;                 // relative for links that are; "" for other reparse points
};

LinkTarget ReadLinkTarget(std::u16string_view name);
