#include "config/ini_parser.h"

#include <algorithm>

#include "lang/errors.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

struct Section {
    const char16_t* name;
    int bit;
};
constexpr Section sections[] = {
    {u"Quarn", ini_section::quarn},         {u"Primary", ini_section::primary},
    {u"Secondary", ini_section::secondary}, {u"Keys", ini_section::keys},
    {u"Disabled", ini_section::disabled},
};

std::u16string_view Trim(std::u16string_view text, std::u16string_view set = u" \t\r\n")
{
    const std::size_t start = text.find_first_not_of(set);
    if (start == text.npos)
        return {};
    return text.substr(start, text.find_last_not_of(set) + 1 - start);
}

// "Primary" of "[Primary]".
std::u16string_view SectionName(std::u16string_view header)
{
    header.remove_prefix(1);
    return Trim(header.substr(0, header.find(u']')));
}

int SectionBit(std::u16string_view name)
{
    for (const Section& section : sections)
        if (EqualNoCase(name, section.name))
            return section.bit;
    return ini_section::unknown;
}

int Refuse(IniError& error, unsigned code, std::u16string_view name)
{
    error.code = code;
    error.name = name;
    return 1;
}

int SetKeyFunction(const IniItem& item, INIFILE& ini, IniError& error, IniReader& reader)
{
    const int function = KeyBindings::Find(item.name);
    if (function < 0)
        return Refuse(error, errors::iniItem, item.name);
    reader.keys.SetKeys(function, Trim(item.value.substr(0, item.value.find_first_of(u";=\t"))));
    ini.sectionsSeen |= ini_section::keyFunction;
    return 0;
}

// A name that another folder in front would spoil.
bool StartsAtRoot(std::u16string_view name)
{
    return !name.empty() && (IsPathSeparator(name[0]) || (name.size() > 1 && name[1] == u':'));
}

// A file on its way through IniParse.
class FileParse {
public:
    FileParse(const CString& file, INIFILE* target, unsigned mask, IniReader& state)
        : ini(target), skipMask(mask), reader(state), place{file, 0, {}},
          fileIndex(state.sources.FileIndex(file)), outerSection(state.section)
    {}
    ~FileParse() { reader.section = outerSection; }

    void Read(std::u16string_view text)
    {
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find(u'\n', at), text.size());
            ++place.line;
            ReadLine(Trim(text.substr(at, std::min(end - at, longestIniLine))));
            at = end + 1;
        }
    }

private:
    void ReadLine(std::u16string_view text)
    {
        if (text.empty() || text.front() == u';' || !IsWanted(text))
            return;
        if (reader.section == ini_section::disabled && text.front() != u'[') {
            NoteDisabled(text);
            return;
        }
        place.text = text;
        reader.source = {SettingOrigin::File, fileIndex, place.line};
        CString line(text);
        IniError error;
        const int answer = IniLine(line, ini, SkipHere(), 0, error, reader);
        if (answer > 0)
            reader.world.Report(error, place);
        else if (answer == iniInclude)
            Include(line);
        else if (answer < 0)
            EnterSection(-answer);
    }

    bool IsWanted(std::u16string_view text)
    {
        if (!ini->INIQuery)
            return true;
        const IniAnswer answer = reader.world.AskLine(CString(text));
        if (answer == IniAnswer::Cancel)
            ini->INIQuery = 0;
        return answer != IniAnswer::No;
    }

    // A section for the other kind of shell counts for nothing; what a child inherits is passed over but for
    // the key functions.
    int SkipHere() const
    {
        if (reader.section == ini_section::unknown)
            return ini_skip::everything;
        if ((reader.section & static_cast<int>(skipMask)) == 0)
            return ini_skip::nothing;
        const bool otherShell =
            reader.section == ini_section::primary || reader.section == ini_section::secondary;
        return otherShell ? ini_skip::everything : ini_skip::settings;
    }

    void EnterSection(int bit)
    {
        reader.section = bit;
        ini->sectionsSeen |= static_cast<std::uint32_t>(bit);
    }

    // "COPY=..." or just "COPY".
    void NoteDisabled(std::u16string_view text)
    {
        const std::u16string_view name = Trim(text.substr(0, text.find(u'=')));
        if (!name.empty())
            reader.disabled.emplace_back(name);
    }

    void Include(const CString& name)
    {
        if (reader.depth >= deepestIniFile || reader.filesRead >= mostIniFiles) {
            reader.world.Report({errors::iniIncludeDepth, name}, place);
            return;
        }
        const CString nearby = BesideThisFile(name);
        if (IniParse(nearby, ini, skipMask, reader) != 0 &&
            (nearby == name || IniParse(reader.world.FullName(name), ini, skipMask, reader) != 0))
            reader.world.Report({errors::iniInclude, name}, place);
    }

    // Folders are counted from the one that this file is in.
    CString BesideThisFile(const CString& name) const
    {
        return StartsAtRoot(name) ? name : JoinPath(DirectoryPart(place.file), name);
    }

    INIFILE* ini;
    unsigned skipMask;
    IniReader& reader;
    IniPlace place;
    std::uint32_t fileIndex;
    int outerSection; // an included file goes on in it
};

CString FromUtf16(std::string_view bytes)
{
    CString text;
    char16_t* units = text.Edit(bytes.size() / 2);
    for (std::size_t i = 0; i < bytes.size() / 2; ++i) {
        const auto low = static_cast<unsigned char>(bytes[2 * i]);
        const auto high = static_cast<unsigned char>(bytes[2 * i + 1]);
        units[i] = static_cast<char16_t>(high << 8 | low);
    }
    text.SetLength(bytes.size() / 2);
    return text;
}

} // namespace

int IniLine(CString& line, INIFILE* ini, int skip, int runtime, IniError& error, IniReader& reader)
{
    if (line.front() == u'[')
        return -IniSectionOf(line);
    if (skip == ini_skip::everything)
        return 0;
    if (line.Find(u'%') != CString::npos)
        reader.world.ExpandVariables(line);

    const IniItem item = CutIniItem(line);
    if (skip == ini_skip::settings && KeyBindings::Find(item.name) < 0 && !EqualNoCase(item.name, u"Include"))
        return 0;
    const int index = FindDirective(item.name);
    if (index < 0)
        return SetKeyFunction(item, *ini, error, reader);
    const Directive& directive = aDirectives[static_cast<std::size_t>(index)];
    if (runtime != 0 && (directive.typeWord & Directive::startupOnly) != 0)
        return Refuse(error, errors::iniItem, item.name);
    if (directive.Type() == DirectiveType::Include) {
        line = WithoutQuotes(Trim(item.value.substr(0, item.value.find(u'\t'))));
        return iniInclude;
    }
    if (const unsigned code = ApplyValue(directive, item.value, *ini, reader.world))
        return Refuse(error, code, directive.name);
    reader.sources.rows[static_cast<std::size_t>(index)] = reader.source;
    return 0;
}

int IniParse(const CString& file, INIFILE* ini, unsigned skipMask, IniReader& reader)
{
    std::string bytes;
    if (reader.depth >= deepestIniFile || !reader.world.ReadFile(file, bytes))
        return 1;
    ++reader.depth;
    ++reader.filesRead;
    FileParse(file, ini, skipMask, reader).Read(DecodeIniText(bytes, reader.world));
    --reader.depth;
    return 0;
}

IniItem CutIniItem(std::u16string_view line)
{
    const std::size_t nameEnd = std::min(line.find_first_of(u" ;=\t"), line.size());
    const std::size_t valueStart = std::min(line.find_first_not_of(u" =\t", nameEnd), line.size());
    return {line.substr(0, nameEnd), line.substr(valueStart)};
}

int IniSectionOf(std::u16string_view header) { return SectionBit(SectionName(header)); }

int IniReset(std::u16string_view name, INIFILE* ini, IniError& error)
{
    const int index = FindDirective(name);
    if (index < 0)
        return Refuse(error, errors::iniItem, name);
    ResetValue(aDirectives[static_cast<std::size_t>(index)], *ini);
    return 0;
}

CString DecodeIniText(std::string_view bytes, IniWorld& world)
{
    const RecognisedEncoding recognised = RecogniseEncoding(bytes);
    bytes.remove_prefix(recognised.markLength);
    switch (recognised.encoding) {
    case TextEncoding::Utf16: return FromUtf16(bytes);
    case TextEncoding::Utf8:
        // The whole file is here: a sequence cut at its end is no UTF-8.
        if (recognised.markLength > 0 || IsValidUtf8(bytes))
            return FromUtf8(bytes);
        return world.FromAnsi(bytes);
    default: return world.FromAnsi(bytes);
    }
}
