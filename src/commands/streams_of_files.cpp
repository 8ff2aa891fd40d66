#include "commands/streams_of_files.h"

#include <windows.h>

#include "commands/file_work.h"
#include "commands/pager.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/expansion_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_lines.h"
#include "files/wildcards.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "platform/streams.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp tsHelp = {
    u"Shows, copies and deletes the named streams that files hold beside their own data.",
    u"TS [range ...] [/A[:]attributes] [/B] [/S] [file[:stream] ...]\n"
    u"TS /T [/P] file:stream ...\n"
    u"TS /C [/N] [/O] [/Q] from to\n"
    u"TS /D [range ...] [/A[:]attributes] [/E] [/N] [/P] [/Q] [/S] file[:stream] ...",
    u"/A  files with attributes, as DIR /A tells; all are taken otherwise\n"
    u"/B  names alone, \"file:stream\"\n"
    u"/C  copy: one stream or a file's own data to a stream or a file, or all named streams of a file to "
    u"another file\n"
    u"/D  delete the streams; the files' own data stay\n"
    u"/E  show no error messages\n"
    u"/N  change nothing, show only what would be done\n"
    u"/O  with /C, replace what exists; it stays as it is until the copy is complete\n"
    u"/P  with /D ask before each stream, with /T pause when the screen is full\n"
    u"/Q  show neither names nor totals\n"
    u"/S  in all subdirectories too\n"
    u"/T  show what is in the streams, as text\n"
    u"Without files all of the current directory are meant. Files and streams may hold wildcards but for /C "
    u"and /T. Files without named streams are not shown. While VERIFY is on, copies are read back. Only "
    u"NTFS and ReFS know streams.",
    u"ts\n"
    u"ts /t setup.exe:Zone.Identifier\n"
    u"ts /d *.exe:Zone.Identifier\n"
    u"ts /c photo.jpg:note note.txt",
};

namespace {

// "file:stream", "file:stream:$DATA"
struct StreamName {
    CString file;
    CString stream; // "" when none is named
};

StreamName SplitStream(std::u16string_view name)
{
    const std::size_t colon = StreamColon(name);
    if (colon == name.npos)
        return {CString(name), {}};
    const std::u16string_view stream = name.substr(colon + 1); // perhaps with its type, ":$DATA"
    return {CString(name.substr(0, colon)), CString(stream.substr(0, stream.find(u':')))};
}

// ":name:$DATA" as people write it.
CString PlainName(const FileStream& stream)
{
    std::u16string_view name = stream.name;
    name.remove_prefix(name.starts_with(u':') ? 1 : 0);
    return name.substr(0, name.find(u':'));
}

struct FoundStream {
    CString name; // without colons
    std::uint64_t size = 0;
};

std::vector<FoundStream> StreamsOf(const CString& file, const CString& pattern)
{
    std::vector<FoundStream> found;
    for (const FileStream& stream : NamedStreams(file)) {
        const CString name = PlainName(stream);
        if (pattern.empty() || WildcardComparison(pattern, name, false, true) == 0)
            found.push_back({name, stream.size});
    }
    return found;
}

// False when the file has no such stream.
bool List(const FILESEARCH& search, const CString& pattern, bool bare)
{
    ThrowIfBroken();
    const std::vector<FoundStream> streams = StreamsOf(search.fullName, pattern);
    for (const FoundStream& stream : streams) {
        CString size = Format(u"%I64u", stream.size);
        AddCommas(size);
        PrintLine(bare ? Format(u"%s:%s", search.name, stream.name)
                       : Format(u"%17s  %s:%s", size, search.name, stream.name));
    }
    return !streams.empty();
}

int ListAll(std::vector<CString> names, FILESEARCH& search, bool bare)
{
    if (names.empty())
        names.emplace_back(u"*");
    int code = result::success;
    for (const CString& name : names) {
        const StreamName wanted = SplitStream(WithoutQuotes(name));
        bool any = wanted.stream.empty();
        const auto list = [&] { any = List(search, wanted.stream, bare) || any; };
        if (const int one = ForEachMatch(search, {AddQuotes(wanted.file)}, list))
            code = one;
        else if (!any)
            code = MVError(errors::noStream, WithoutQuotes(name));
    }
    return code;
}

int Delete(const std::vector<CString>& names, FILESEARCH& search, const FileWorkOptions& options)
{
    FileWork work(u"ts", options, BatchManners::Silent);
    for (const CString& name : names) {
        const StreamName wanted = SplitStream(WithoutQuotes(name));
        bool any = false;
        const bool found = work.ForEachFile(search, AddQuotes(wanted.file), [&] {
            for (const FoundStream& stream : StreamsOf(search.fullName, wanted.stream)) {
                const CString shown = Format(u"%s:%s", search.name, stream.name);
                any = true;
                if (!work.Wants(message::askDelete, shown))
                    continue;
                const CString full = Format(u"%s:%s", search.fullName, stream.name);
                if (const unsigned failed = work.Pretends() ? 0 : EraseFile(full))
                    work.Failed(failed, shown);
                else
                    work.Did(message::deleting, shown);
            }
        });
        if (!any && !work.IsStopped())
            work.Failed(found ? errors::noStream : ERROR_FILE_NOT_FOUND, WithoutQuotes(name));
    }
    return work.Finish(message::streamsDeleted);
}

int Type(const std::vector<CString>& names, bool pauses)
{
    Pager pager(pauses);
    int code = result::success;
    for (const CString& name : names) {
        const CString plain = WithoutQuotes(name);
        TextLines lines;
        if (!lines.Open(plain)) {
            code = MVError(0, plain);
            continue;
        }
        std::u16string_view line;
        while (lines.Next(line))
            if (!pager.Line(line))
                return MVError(0);
    }
    return code;
}

class Copying {
public:
    Copying(const FileWorkOptions& options, bool replaces)
        : work(u"ts", options, BatchManners::Silent),
          how({replaces, aGlobals.verifyCopies != 0, ThrowIfBroken})
    {}

    int Copy(const CString& from, const CString& to)
    {
        const StreamName target = SplitStream(to);
        if (!SplitStream(from).stream.empty() || !target.stream.empty() || !QueryIsFile(to)) {
            CopyOne(from, to);
            return work.Finish(message::streamsCopied);
        }
        const std::vector<FoundStream> streams = StreamsOf(from, {});
        if (streams.empty())
            work.Failed(QueryIsFile(from) ? errors::noStream : unsigned{ERROR_FILE_NOT_FOUND}, from);
        for (const FoundStream& stream : streams)
            CopyOne(Format(u"%s:%s", from, stream.name), Format(u"%s:%s", to, stream.name));
        return work.Finish(message::streamsCopied);
    }

private:
    void CopyOne(const CString& from, const CString& to)
    {
        bool readable = false;
        if (const unsigned failed = work.Pretends() ? 0 : CopyStream(from, to, how, &readable))
            work.Failed(failed, readable ? to : from);
        else
            work.Did(message::nameAlone, from, to);
    }

    FileWork work;
    StreamCopy how;
};

} // namespace

int Ts_Command(CString& arguments)
{
    constexpr std::u16string_view letters = u"BCDOS";
    FILESEARCH search;
    search.attributes = AttributeMasks::Everything();
    FileWorkOptions options;
    const bool types = TakeSwitchWord(arguments, u"T");
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, letters, search, options, flags))
        return code;
    const auto has = [&](char16_t letter) { return (flags >> letters.find(letter) & 1) != 0; };
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (types + has(u'C') + has(u'D') > 1 || ((types || has(u'D')) && names.empty()) ||
        (has(u'C') && names.size() != 2))
        return UsageError();
    if (has(u'S'))
        search.deepest = allLevels;
    if (types)
        return Type(names, options.asks);
    if (has(u'C'))
        return Copying(options, has(u'O')).Copy(WithoutQuotes(names[0]), WithoutQuotes(names[1]));
    return has(u'D') ? Delete(names, search, options) : ListAll(names, search, has(u'B'));
}
