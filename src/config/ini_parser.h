// Reading INI files: one line, one file with what it includes, and setting things back.
//
// Everything here only decides. Files, the disk, variable expansion, questions and error reports are reached
// through IniWorld, which ini_file.cpp fills for the shell and the tests fill in memory. A bad line is
// reported and changes nothing; the lines behind it are read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "config/key_functions.h"
#include "config/provenance.h"
#include "config/setting_values.h"
#include "engine/inifile.h"
#include "text/cstring.h"

// Parts of an INI file, as bits. INIFILE::sectionsSeen keeps those that were met, for child shells.
namespace ini_section {
constexpr int keys = 0x10;
constexpr int secondary = 0x20; // only for shells that inherited their settings
constexpr int primary = 0x40;   // only for the others
constexpr int quarn = 0x80;
constexpr int unknown = 0x100;     // never read as settings
constexpr int disabled = 0x200;    // names of internal commands to disable
constexpr int none = 0x400;        // lines before the first header
constexpr int keyFunction = 0x800; // not a section: some line bound a key
} // namespace ini_section

// What IniLine passes over.
namespace ini_skip {
constexpr int nothing = 0;
constexpr int everything = 1; // but section headers
constexpr int settings = 2;   // key functions are obeyed: a child shell does not inherit them
} // namespace ini_skip

constexpr int iniInclude = -1;                // answer of IniLine: the line names a file to include
constexpr int deepestIniFile = 3;             // the main file and two levels of includes
constexpr int mostIniFiles = 256;             // per loading: a loop of includes must not go on for hours
constexpr std::size_t longestIniLine = 32767; // units; the rest of a longer line is passed over

struct IniError {
    unsigned code = 0; // of lang/messages.h
    CString name;      // of the setting that the message speaks of
};

struct IniPlace {
    CString file;
    std::uint32_t line = 0; // from 1
    CString text;
};

enum class IniAnswer { Yes, No, Cancel };

class IniWorld : public PathCheck {
public:
    virtual void ExpandVariables(CString& line) = 0;
    virtual CString FullName(const CString& name) = 0;                  // by the current directory
    virtual bool ReadFile(const CString& name, std::string& bytes) = 0; // false: there is no reading it
    virtual CString FromAnsi(std::string_view bytes) = 0;
    virtual IniAnswer AskLine(const CString& line) = 0; // whether to obey the line (INIQuery)
    virtual void Report(const IniError& error, const IniPlace& place) = 0;
};

// What lines of INI files reach beside the settings.
struct IniReader {
    IniWorld& world;
    KeyBindings& keys;
    SettingSources& sources;
    SettingSource source{};          // where the line stands that is read now
    std::vector<CString> disabled{}; // internal commands named in a section "Disabled"
    int section = ini_section::none; // that the line stands in
    int depth = 0;                   // files open
    int filesRead = 0;
};

// Obeys one line, blanks and line end around it gone. 0: done or passed over; above 0: refused, `error` says
// why; iniInclude: `line` holds the name of a file to read; any other negative number: a section header, the
// negated bit of ini_section. `skip` is one of ini_skip; `runtime`: the shell runs already.
int IniLine(CString& line, INIFILE* ini, int skip, int runtime, IniError& error, IniReader& reader);

// Reads a file. Of the sections in `skipMask` only the key functions are obeyed. Not 0 when the file cannot
// be read at all.
int IniParse(const CString& file, INIFILE* ini, unsigned skipMask, IniReader& reader);

// The named setting to its default; 1, with `error` filled, when there is none of that name.
int IniReset(std::u16string_view name, INIFILE* ini, IniError& error);

// A line cut into the name and what follows the blanks and "=" behind it.
struct IniItem {
    std::u16string_view name;
    std::u16string_view value;
};
IniItem CutIniItem(std::u16string_view line);

// The bit of ini_section that a header line names.
int IniSectionOf(std::u16string_view header);

// The text of a file in UTF-16, UTF-8 (each with or without its mark) or the ANSI code page.
CString DecodeIniText(std::string_view bytes, IniWorld& world);
