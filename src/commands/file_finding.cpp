#include "commands/file_finding.h"

#include <algorithm>
#include <deque>

#include <windows.h>

#include "engine/console_entry.h"
#include "engine/results.h"
#include "files/file_search.h"
#include "files/text_lines.h"
#include "lang/file_messages.h"
#include "platform/codepage.h"
#include "text/content_kind.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

constexpr int nothingFound = 1;
constexpr std::size_t longestShown = 4096; // units of a line

// Control characters would move the cursor. Of a line that is too long the part with the match is shown.
CString Presentable(std::u16string_view line, Regex::Span match)
{
    constexpr std::size_t before = 100; // units in front of such a match
    const std::size_t from =
        match.start + match.length > longestShown ? match.start - std::min(match.start, before) : 0;
    CString text(line.substr(from, longestShown));
    if (from > 0)
        text.Insert(0, u"...");
    if (line.size() - from > longestShown)
        text.Append(u"...");
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
    ForEachFailure(search, [this](unsigned code, const CString& failed) { Failed(code, failed); });
}

void FileFinding::Look(const CString& path, const FoundFile& file)
{
    if (!options.SearchesContents())
        return FoundName(path, file);
    named = false;
    progress.Begin(path);
    const CString opened = PathOfEntry(DirectoryPart(path), file.name);
    unsigned error = 0;
    const bool holds =
        options.bytes ? LookAtBytes(path, opened, *options.bytes, error) : LookInside(path, opened, error);
    if (error)
        return Failed(error, path);
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
    if (options.asks && !stopped && !MayAsk()) {
        Failed(errors::nobodyToAsk, path);
        stopped = true;
    } else if (options.asks && !stopped) {
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

bool FileFinding::LookAtBytes(const CString& path, const CString& opened, const ByteSearch& search,
                              unsigned& error)
{
    bool found = false;
    const bool read = scan.Open(opened) && scan.Find(search, [&](std::uint64_t place) {
        found = true;
        ++matches;
        Header(path);
        if (Shows())
            Line(LoadMessage(message::foundAtPlace, Format(u"%u (0x%X)", place, place)));
        return WantsMore();
    });
    error = read ? 0 : GetLastError();
    return found;
}

// Files that cannot hold a match are told by their bytes, which is many times faster than decoding them.
bool FileFinding::LookInside(const CString& path, const CString& opened, unsigned& error)
{
    constexpr std::size_t lookedAt = 4096;
    if (!scan.Open(opened)) {
        error = GetLastError();
        return false;
    }
    const std::u16string_view kind = ContentKind(scan.Start(lookedAt));
    const bool isText = kind != u"binary";
    if (kind == u"utf16be")
        return LookAtLines(path, opened, isText, error);
    const std::size_t width = kind == u"utf16" ? 2 : 1;
    if (width != filterWidth) {
        filter = options.lines->Prefilter(width);
        filterWidth = width;
    }
    if (!filter)
        return LookAtLines(path, opened, isText, error);
    bool may = false;
    const bool read = scan.Find(*filter, [&](std::uint64_t) {
        may = true;
        return false;
    });
    if (!read)
        error = GetLastError();
    if (!may)
        return false;
    if (isText || !options.lines->IsPlain())
        return LookAtLines(path, opened, isText, error);
    FoundInBinary(path);
    return true;
}

void FileFinding::FoundInBinary(const CString& path)
{
    ++matches;
    Header(path);
    if (Shows())
        Line(LoadMessage(message::foundInBinary));
}

// Bytes of a code page are read in the console's and, when that finds nothing, in that of windowed programs.
bool FileFinding::LookAtLines(const CString& path, const CString& opened, bool isText, unsigned& error)
{
    for (unsigned codePage = 0;; codePage = GetACP()) {
        TextLines lines;
        if (!lines.Open(opened)) {
            error = GetLastError();
            return false;
        }
        lines.UseCodePage(codePage);
        const bool found = LookAtLinesOf(lines, path, isText);
        error = lines.Failure();
        const bool last = found || error || codePage || !options.lines->NeedsCodePage() ||
                          lines.Encoding().encoding != TextEncoding::CodePage || GetACP() == OutputCodePage();
        if (last)
            return found;
    }
}

bool FileFinding::LookAtLinesOf(TextLines& reader, const CString& path, bool isText)
{
    struct Kept {
        CString text;
        std::uint64_t number;
    };
    std::deque<Kept> before;
    std::uint64_t number = 0;
    std::uint64_t lastShown = 0; // its number
    std::size_t after = 0;       // lines that are still to be shown
    bool found = false;
    for (std::u16string_view line; reader.Next(line);) {
        ++number;
        const auto match = !found || WantsMore() ? options.lines->Find(line) : std::nullopt;
        if (match && !isText) {
            FoundInBinary(path);
            return true;
        }
        if (match) {
            Header(path);
            if (found && options.context > 0 && Shows() && number - before.size() > lastShown + 1)
                Line(u"--");
            found = true;
            for (const Kept& one : before)
                Show(one.text, one.number, u'-', {0, 0});
            before.clear();
            ++matches;
            Show(line, number, u':', *match);
            lastShown = number;
            after = Shows() ? options.context : 0;
            if (!WantsMore() && after == 0)
                break;
            continue;
        }
        if (after > 0) {
            Show(line, number, u'-', {0, 0});
            lastShown = number;
        } else if (options.context > 0 && Shows()) {
            if (before.size() == options.context)
                before.pop_front();
            before.push_back({CString(line), number});
        }
        if (after > 0 && --after == 0 && !WantsMore())
            break;
    }
    return found;
}

void FileFinding::Show(std::u16string_view line, std::uint64_t number, char16_t mark, Regex::Span match)
{
    if (!Shows())
        return;
    const CString shown = Presentable(line, match);
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
