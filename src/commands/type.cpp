#include "commands/type.h"

#include <algorithm>
#include <string>
#include <vector>

#include <windows.h>

#include "commands/pager.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_reader.h"
#include "platform/file_facts.h"
#include "platform/standard_handles.h"
#include "platform/text_output.h"
#include "text/words.h"

const CommandHelp typeHelp = {
    u"Shows the contents of text files.",
    u"TYPE [/N] [/P] file ...",
    u"/N  number the lines\n"
    u"/P  wait for a key after each screen\n"
    u"Names may hold the wildcards * and ?. With more than one file the names go to standard error. "
    u"UTF-16 and UTF-8 files are recognised. Output to a file or pipe holds the very bytes of the file, but "
    u"for UTF-16 files, and for outputs whose encoding was set.",
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
        : plain(switches == 0), numbers((switches & numberLines) != 0), pager((switches & waitForKeys) != 0)
    {}

    void BeginFile()
    {
        atLineStart = true;
        line = 0;
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
        return pager.Piece(shown += part);
    }

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
    TextReader reader;
    if (!reader.Open(name))
        return MVError(0, name);
    writer.BeginFile();
    const bool done =
        switches == 0 && BytesFit(reader.Encoding()) ? CopyBytes(reader) : CopyText(reader, writer);
    return done ? result::success : MVError(0, name);
}

// The files that a name with wildcards stands for, or the name itself. Hidden files are passed over.
std::vector<CString> FilesOf(const CString& name)
{
    if (name.view().find_first_of(u"*?") == CString::npos)
        return {name};
    std::vector<CString> files;
    const CString folder = name.Substr(0, name.view().find_last_of(u"\\/:") + 1);
    WIN32_FIND_DATAW entry;
    const OwnedFindHandle search(FindFirstFileW(SystemPath(name).w(), &entry));
    if (!search)
        return {name}; // opening it gives the error
    do {
        if ((entry.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN)) == 0)
            files.push_back(folder + std::u16string_view(reinterpret_cast<const char16_t*>(entry.cFileName)));
    } while (FindNextFileW(search.Get(), &entry));
    return files;
}

} // namespace

int Type_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"NP", switches))
        return code;
    std::vector<CString> files;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    for (const CString& name : names)
        for (const CString& file : FilesOf(WithoutQuotes(name)))
            files.push_back(file);
    Writer writer(switches);
    int code = result::success;
    for (const CString& file : files) {
        if (files.size() > 1)
            PrintError(Format(u"\r\n%s\r\n\r\n\r\n", file));
        if (TypeFile(file, switches, writer) != result::success)
            code = result::error;
    }
    return code;
}
