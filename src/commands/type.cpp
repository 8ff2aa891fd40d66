#include "commands/type.h"

#include <algorithm>
#include <string>
#include <vector>

#include <windows.h>

#include "commands/pager.h"
#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "core/pseudo_devices.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/internal_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_search.h"
#include "files/text_reader.h"
#include "platform/file_facts.h"
#include "platform/standard_handles.h"
#include "platform/text_output.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp typeHelp = {
    u"Shows the contents of text files.",
    u"TYPE [range ...] [/A[:]attributes] [/N] [/P] file ...",
    u"/A  files with attributes, as DIR /A tells; hidden files are left out otherwise\n"
    u"/N  number the lines\n"
    u"/P  wait for a key after each screen\n"
    u"Names may hold wildcards and ranges may pick files, as DIR explains. With more than one file the "
    u"names go to standard error. UTF-16 and UTF-8 files are recognised. Output to a file or pipe holds the "
    u"very bytes of the file, but for UTF-16 files, and for outputs whose encoding was set.",
    u"type readme.txt\n"
    u"type /n *.btm\n"
    u"type a.txt b.txt > both.txt",
};

namespace {

constexpr std::uint64_t numberLines = 1; // bits of the switch letters "NP"
constexpr std::uint64_t waitForKeys = 2;

// Writes decoded text, with line numbers and pauses when they are asked for.
class Writer {
public:
    explicit Writer(std::uint64_t switches)
        : tabStops(IsConsole(1) && aIniFile.TabStops != consoleTabStops ? aIniFile.TabStops : 0),
          plain(switches == 0 && tabStops == 0), numbers((switches & numberLines) != 0),
          pager((switches & waitForKeys) != 0)
    {}

    void BeginFile()
    {
        atLineStart = true;
        line = 0;
        column = 0;
    }

    bool Write(std::u16string_view text)
    {
        if (plain)
            return text.empty() || Print(text);
        while (!text.empty()) {
            const std::size_t end = std::min(text.find(u'\n'), text.size() - 1) + 1;
            if (!WriteLine(text.substr(0, end)))
                return false;
            text.remove_prefix(end);
        }
        return true;
    }

private:
    // A line with its end, or a part of a long one.
    bool WriteLine(std::u16string_view part)
    {
        CString shown;
        if (numbers && atLineStart)
            shown = Format(u"%6u  ", ++line);
        atLineStart = part.back() == u'\n';
        if (tabStops == 0)
            return pager.Piece(shown += part);
        for (const char16_t unit : part)
            AppendUnit(shown, unit);
        column = atLineStart ? 0 : column;
        return pager.Piece(shown);
    }

    // Tab stops other than the console's own.
    void AppendUnit(CString& shown, char16_t unit)
    {
        const std::size_t width = unit == u'\t' ? tabStops - column % tabStops : 1;
        shown.Append(unit == u'\t' ? CString(width, u' ') : CString(1, unit));
        column += width;
    }

    static constexpr unsigned consoleTabStops = 8;
    std::size_t tabStops; // 0: tabs are left to the console
    std::size_t column = 0;

    bool plain;
    bool numbers;
    Pager pager;
    bool atLineStart = true;
    unsigned line = 0;
};

// Whether the file's bytes may go to standard output as they are. Only a marked UTF-16 file is converted for
// an output in the code page: nobody could use it there, and a binary file never bears the mark.
bool BytesFit(const RecognisedEncoding& source)
{
    if (IsConsole(1))
        return false;
    if (aIniFile.UnicodeOutput || aGlobals.unicodeOutput)
        return false;
    if (aIniFile.UTF8Output)
        return source.encoding == TextEncoding::Utf8;
    return source.encoding != TextEncoding::Utf16 || source.markLength == 0;
}

bool CopyBytes(TextReader& reader)
{
    std::string bytes;
    do {
        ThrowIfBroken();
        if (!reader.ReadBytes(bytes) || !WriteBytes(StandardHandle(1), bytes))
            return false;
    } while (!bytes.empty());
    return true;
}

bool CopyText(TextReader& reader, Writer& writer)
{
    CString piece;
    do {
        ThrowIfBroken();
        if (!reader.Read(piece) || !writer.Write(piece))
            return false;
    } while (!piece.empty());
    return true;
}

int TypeFile(const CString& name, std::uint64_t switches, Writer& writer)
{
    const auto device = PseudoDevice::Find(name); // outlives the open file, which may be its own
    CString path = name;
    TextReader reader;
    if ((device && !device->PrepareInput(path)) || !reader.Open(path))
        return MVError(0, name);
    writer.BeginFile();
    const bool done =
        switches == 0 && BytesFit(reader.Encoding()) ? CopyBytes(reader) : CopyText(reader, writer);
    return done ? result::success : MVError(0, name);
}

// Adds the files that an argument stands for. A name that means one file is opened whatever its attributes:
// it may be a device, too.
int AddFiles(FILESEARCH& search, const CString& argument, bool restricted, std::vector<CString>& files)
{
    const std::size_t before = files.size();
    if (PseudoDevice::Find(WithoutQuotes(argument))) {
        files.push_back(WithoutQuotes(argument));
        return result::success;
    }
    for (bool found = FindFiles(search, argument); found; found = FindFiles(search))
        files.push_back(search.name);
    if (search.error != 0)
        return MVError(search.error, search.failed);
    if (files.size() > before)
        return result::success;
    if (restricted || HasWildcards(argument))
        return MVError(ERROR_FILE_NOT_FOUND, argument);
    files.push_back(WithoutQuotes(argument));
    return result::success;
}

} // namespace

int Type_Command(CString& arguments)
{
    FILESEARCH search;
    if (const int code = GetRange(arguments, &search.ranges, 0))
        return code;
    if (const int code = TakeAttributeSwitches(arguments, search.attributes))
        return code;
    const bool restricted = !search.ranges.Empty() || search.attributes.required != 0 ||
                            search.attributes.forbidden != 0 || search.attributes.anyOf != 0;
    search.attributes.forbidden |= file_attribute::directory;
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"NP", switches))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    int code = result::success;
    std::vector<CString> files;
    ResultCounts counts;
    for (const CString& name : names) {
        const int added = AddFiles(search, name, restricted, files);
        counts.errors += added == result::success ? 0 : 1;
        code = std::max(code, added);
    }
    Writer writer(switches);
    for (const CString& file : files) {
        if (files.size() > 1)
            PrintError(Format(u"\r\n%s\r\n\r\n\r\n", file));
        const int typed = TypeFile(file, switches, writer);
        ++(typed == result::success ? counts.files : counts.errors);
        code = std::max(code, typed);
    }
    SetResultCounters(u"type", counts);
    return code;
}
