// INI files of other programs: reading a value, and changing one while everything else stays as it is. Pure.
//
// Sections "[name]" hold entries "name=value"; names mind no case and lines that begin with ";" are remarks.
// Of equal entries the first counts. Quotes around a value are no part of it. The shell's own settings have
// rules of their own (config/ini_parser.h).
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

class IniText {
public:
    explicit IniText(CString whole) : text(std::move(whole)) {}

    const CString& Text() const { return text; }

    std::vector<CString> Sections() const;
    std::vector<CString> Entries(std::u16string_view section) const;
    std::optional<CString> Value(std::u16string_view section, std::u16string_view entry) const;

    // Sections and entries that are missing are added, an entry behind the last line of its section that is
    // not empty.
    void Set(std::u16string_view section, std::u16string_view entry, std::u16string_view value);
    void Remove(std::u16string_view section, std::u16string_view entry);
    // With all its entries, wherever it stands.
    void Remove(std::u16string_view section);

private:
    struct Line;
    bool NextLine(Line& line) const;
    std::optional<Line> Find(std::u16string_view section, std::u16string_view entry) const;
    void InsertLine(std::size_t at, const CString& content);
    std::u16string_view LineEnd() const;

    CString text;
};
