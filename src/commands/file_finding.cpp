#include "commands/file_finding.h"

#include <deque>

#include <windows.h>

#include "engine/console_entry.h"
#include "engine/results.h"
#include "files/file_search.h"
#include "files/text_lines.h"
#include "lang/file_messages.h"
#include "text/content_kind.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

constexpr int nothingFound = 1;
constexpr std::size_t longestShown = 4096; // units of a line

// Control characters would move the cursor.
CString Presentable(std::u16string_view line)
{
    CString text(line.substr(0, longestShown));
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] < u' ' && text[i] != u'\t')
            text.Edit()[i] = u'.';
    return text;
}

} // namespace

void FileFinding::Failed(unsigned code, std::u16string_view name)
{
    ++counts.errors;
    progress.Hide();
    output.Flush();
    MVError(code, name);
}

void FileFinding::Line(const PaintedText& line)
{
    progress.Hide();
    output.Line(line);
}

void FileFinding::Line(std::u16string_view line)
{
    progress.Hide();
    output.Line(line);
}

void FileFinding::FindIn(const CString& name)
{
    FILESEARCH search;
    search.attributes = options.attributes;
    search.ranges = options.ranges;
    search.deepest = options.deepest;
    search.intoDirectories = true;
    SearchedDirectory directory;
    for (StartSearch(search, name); !stopped && NextDirectory(search, directory);) {
        SortFiles(directory.found.files, directory.found.name, options.order, WhichTime::Written);
        for (const FoundFile& file : directory.found.files) {
            Look(JoinPath(directory.found.name, file.name), file);
            stopped = stopped || output.Refused();
            if (stopped)
                break;
        }
    }
    if (search.error != 0)
        Failed(search.error, search.failed);
}

void FileFinding::Look(const CString& path, const FoundFile& file)
{
    if (!options.SearchesContents())
        return FoundName(path, file);
    named = false;
    progress.Begin(path);
    const bool holds = options.bytes ? LookAtBytes(path, *options.bytes) : LookInside(path);
    if (holds == options.inverse)
        return;
    if (options.inverse || options.bare)
        FoundName(path, file);
    else
        Found(path, file);
}

void FileFinding::Found(const CString& path, const FoundFile& file)
{
    ++(file.facts.IsDirectory() ? counts.directories : counts.files);
    bytes += file.facts.size;
    if (progress.IsWatched())
        output.Flush(); // a person waits for each of them
    stopped = stopped || options.firstFileOnly ||
              static_cast<std::uint64_t>(counts.files + counts.directories) >= most;
    if (options.asks && !stopped) {
        progress.Hide();
        output.Flush();
        stopped = QueryInputChar(message::askGoOn, path, u"YN", u'Y') == u'N';
    }
}

void FileFinding::FoundName(const CString& path, const FoundFile& file)
{
    if (!options.summaryOnly) {
        PaintedText line;
        if (!options.bare)
            line.Append(Format(u"%s %s", texts.DateAndTime(file.facts.written),
                               texts.SizeColumn(file.facts, file.facts.size)));
        Line(line.Append(path, colors.Of(file.name, file.facts.attributes)));
    }
    Found(path, file);
}

void FileFinding::Header(const CString& path)
{
    if (!named && options.header && Shows())
        Line(Format(u"---- %s", path));
    named = true;
}

bool FileFinding::LookAtBytes(const CString& path, const ByteSearch& search)
{
    bool found = false;
    const bool read = scan.Open(path) && scan.Find(search, [&](std::uint64_t place) {
        found = true;
        ++matches;
        Header(path);
        if (Shows())
            Line(LoadMessage(message::foundAtPlace, Format(u"%u (0x%X)", place, place)));
        return WantsMore();
    });
    if (!read)
        Failed(0, path);
    return found || (!read && options.inverse);
}

// Files that cannot hold a match are told by their bytes, which is many times faster than decoding them.
bool FileFinding::LookInside(const CString& path)
{
    constexpr std::size_t lookedAt = 4096;
    if (!scan.Open(path)) {
        Failed(0, path);
        return options.inverse;
    }
    const std::u16string_view kind = ContentKind(scan.Start(lookedAt));
    if (kind == u"utf16be")
        return LookAtLines(path);
    const std::size_t width = kind == u"utf16" ? 2 : 1;
    if (width != filterWidth) {
        filter = options.lines->Prefilter(width);
        filterWidth = width;
    }
    if (!filter)
        return LookAtLines(path);
    bool may = false;
    const bool read = scan.Find(*filter, [&](std::uint64_t) {
        may = true;
        return false;
    });
    if (!read) {
        Failed(0, path);
        return options.inverse;
    }
    if (!may)
        return false;
    if (kind != u"binary")
        return LookAtLines(path);
    ++matches;
    Header(path);
    if (Shows())
        Line(LoadMessage(message::foundInBinary));
    return true;
}

bool FileFinding::LookAtLines(const CString& path)
{
    TextLines reader;
    if (!reader.Open(path)) {
        Failed(0, path);
        return options.inverse;
    }
    struct Kept {
        CString text;
        std::uint64_t number;
    };
    std::deque<Kept> before;
    std::uint64_t number = 0;
    std::size_t after = 0; // lines that are still to be shown
    bool found = false;
    for (std::u16string_view line; reader.Next(line);) {
        ++number;
        if ((!found || WantsMore()) && options.lines->Find(line)) {
            found = true;
            Header(path);
            for (const Kept& one : before)
                Show(one.text, one.number, u'-');
            before.clear();
            ++matches;
            Show(line, number, u':');
            after = Shows() ? options.context : 0;
            if (!WantsMore() && after == 0)
                break;
            continue;
        }
        if (after > 0)
            Show(line, number, u'-');
        else if (options.context > 0 && Shows()) {
            if (before.size() == options.context)
                before.pop_front();
            before.push_back({CString(line), number});
        }
        if (after > 0 && --after == 0 && !WantsMore())
            break;
    }
    return found;
}

void FileFinding::Show(std::u16string_view line, std::uint64_t number, char16_t mark)
{
    if (!Shows())
        return;
    const CString shown = Presentable(line);
    Line(options.lineNumbers ? Format(u"%6u%c %s", number, mark, shown) : shown);
}

int FileFinding::Finish()
{
    progress.Hide();
    if ((options.totals || options.summaryOnly) && !output.Refused()) {
        const CString files = Format(u"%s %s", texts.Number(static_cast<std::uint64_t>(counts.files)),
                                     LoadMessage(message::fileCount));
        if (options.SearchesContents() && !options.inverse)
            Line(Format(u"%16s %s %s", texts.Number(matches), LoadMessage(message::matchesIn), files));
        else
            Line(Format(u"%16s %s %14s %s", texts.Number(static_cast<std::uint64_t>(counts.files)),
                        LoadMessage(message::fileCount), texts.Number(bytes),
                        LoadMessage(message::byteCount)));
    }
    SetResultCounters(counter, counts);
    if (!output.Flush())
        return MVError(0);
    return counts.errors != 0                  ? result::error
           : counts.files + counts.directories ? result::success
                                               : nothingFound;
}
