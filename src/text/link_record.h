// The record in which the file system keeps where a junction or symbolic link leads to.
#pragma once

#include <string>
#include <string_view>

#include "text/cstring.h"

enum class LinkKind { None, Junction, SymbolicLink, Other };

struct LinkTarget {
    LinkKind kind = LinkKind::None; // None: an ordinary file, or nothing of that name
    CString target;                 // relative for links that are; "" for other reparse points
};

// From the record's bytes as the system hands them out. One that is too short is of the kind Other.
LinkTarget ReadLinkRecord(std::string_view record);

// The record of a junction to a directory by its full name ("C:\\work"), as the system takes it.
std::string JunctionRecord(std::u16string_view target);
