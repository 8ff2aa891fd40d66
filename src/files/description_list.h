// The contents of a description file: a line for each file, its name (in quotes when it holds blanks), a
// blank and the description. Pure.
//
// Whatever a line holds beyond that, such as the data that other programs hang on behind a Ctrl+D, is kept as
// it stands, and so is the order of the lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "text/cstring.h"

class DescriptionList {
public:
    DescriptionList() = default;
    explicit DescriptionList(std::u16string_view fileText);

    bool Empty() const { return used == 0; }
    // "" when the file has none. Names mind no letter case.
    CString Find(std::u16string_view name) const;
    // An empty description removes the file's line. Line ends become blanks.
    void Set(std::u16string_view name, std::u16string_view description);
    // The description moves to the new name, whose own one is lost.
    void Rename(std::u16string_view name, std::u16string_view newName);
    CString Text() const; // of the whole file, lines ended by "\r\n"

    unsigned failure = 0; // the Windows error number that kept the file from being read

private:
    struct Line {
        CString text;              // "" for a removed one
        std::size_t nameEnd = 0;   // behind the name and its quotes
        std::size_t textStart = 0; // of the description
        std::size_t textEnd = 0;
    };

    static CString NameOf(const Line& line);
    static Line Analyse(CString text);
    static std::u16string Key(std::u16string_view name);
    void Put(std::u16string_view name, std::u16string_view rest);
    void Remove(std::u16string_view name);

    std::vector<Line> lines;
    std::unordered_map<std::u16string, std::size_t> places; // by the name in upper case
    std::size_t used = 0;                                   // lines that are left
};
