// In which order a program's name is looked for. Pure: what exists is asked through SearchWorld.
//
// The current directory comes first, then each folder of the list. In each folder the name as it stands wins
// (when it has an extension), then the name with the extensions in their order. A name that says a folder is
// looked for there only.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

class SearchWorld {
public:
    virtual ~SearchWorld() = default;

    // The full form of a name by the current directory.
    virtual CString FullName(std::u16string_view name) = 0;
    virtual bool IsFile(std::u16string_view fullName) = 0;
    // Adds the names of the files in the folder that consist of `stem`, a period and anything.
    virtual void FindByStem(std::u16string_view folder, std::u16string_view stem,
                            std::vector<CString>& names) = 0;
};

struct SearchPlaces {
    CString currentDirectory;        // "" when it is not searched
    CString list;                    // folders as PATH lists them
    std::vector<CString> extensions; // with their periods; wildcards allowed
};

// The folders of a list parted by ";": quotes removed (they protect a ";"), empty ones left out.
std::vector<CString> SplitPathList(std::u16string_view list);

// Full name of the first match, "" when there is none. The name may be quoted.
CString SearchInOrder(std::u16string_view name, const SearchPlaces& places, SearchWorld& world);
// Every match, in that order.
std::vector<CString> SearchAll(std::u16string_view name, const SearchPlaces& places, SearchWorld& world);
