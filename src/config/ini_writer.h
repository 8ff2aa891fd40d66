// Changing settings in an INI file that a person keeps: comments, order, sections, spelling, line ends and
// encoding stay, only the lines concerned change. Pure; ini_save.h reads and writes the file itself.
//
// The file is kept as its lines' bytes and a line is decoded only to be looked at, so that whatever else the
// file holds comes out as it went in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/directives.h"
#include "engine/inifile.h"
#include "text/cstring.h"
#include "text/encoding.h"

struct IniChange {
    CString name;                            // of a setting or a key function
    CString value;                           // as it is to stand in the file
    std::u16string_view valueEnds = u";=\t"; // units that end the value in such a line
    bool remove = false;                     // the lines that set it go
};

// What brings the file to the setting's present value.
IniChange ChangeForSetting(const Directive& directive, const INIFILE& ini);

// The present value as an INI file spells it; passwords come out enciphered.
CString IniValueText(const Directive& directive, const INIFILE& ini);

// The ANSI code page, for files without a mark that are no UTF-8.
class AnsiConverter {
public:
    virtual ~AnsiConverter() = default;
    virtual CString FromAnsi(std::string_view bytes) = 0;
    virtual std::string ToAnsi(std::u16string_view text) = 0; // what the page lacks may become anything
};

class IniDocument {
public:
    IniDocument(std::string_view bytes, AnsiConverter& converter);

    // Sets a value where it counts: in its last line among the sections that are not in `skipMask` (bits of
    // ini_section), unless an included file could overrule that line; else in a new line behind the last
    // include, or at the end of the part before the first section.
    void Apply(const IniChange& change, int skipMask);

    // The lines outside comments and skipped sections that set something, in their order.
    struct SettingLine {
        CString name;
        std::uint32_t line = 0; // from 1
    };
    std::vector<SettingLine> SettingLines(int skipMask) const;

    // The whole file. It becomes UTF-8 when its code page has no character for some value.
    std::string Bytes();

private:
    struct Found; // where Apply may write

    void CutLines(std::string_view bytes);
    CString Decode(std::string_view line) const;
    std::string Encode(std::u16string_view line);
    void BecomeUtf8();
    template <typename Header, typename Item> void Walk(int skipMask, Header header, Item item) const;
    Found Look(std::u16string_view name, int skipMask) const;
    void InsertLine(std::size_t at, std::u16string_view content);
    void ReplaceValue(std::size_t at, const IniChange& change);
    CString UsualLineEnd() const;

    AnsiConverter& ansi;
    TextEncoding encoding;
    std::string mark;
    std::vector<std::string> lines; // line ends included
    std::string tail;               // half a unit at the end of UTF-16
};
