#include "commands/tree.h"

#include <algorithm>
#include <unordered_map>

#include <windows.h>

#include "commands/listing_colors.h"
#include "commands/pager.h"
#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/country.h"
#include "engine/expansion_entry.h"
#include "engine/inifile.h"
#include "engine/internal_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/dates.h"
#include "files/directory_source.h"
#include "files/file_search.h"
#include "platform/file_facts.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp treeHelp = {
    u"Draws directories and what is in them.",
    u"TREE [range ...] [/A] [/A:attributes] [/B] [/F] [/H] [/L[:]levels] [/P] [/S] [/T[:a|c|w]] [/Z] "
    u"[directory ...]",
    u"/A  lines of plain characters\n"
    u"/A:  files with attributes, as DIR /A tells\n"
    u"/B  full names without lines\n"
    u"/F  files too\n"
    u"/H  hidden and system ones too\n"
    u"/L  so many levels of directories\n"
    u"/P  pause when the screen is full\n"
    u"/S  the sizes of files (with /F)\n"
    u"/T  the time of the last write, or with a of the last access, with c of the creation\n"
    u"/Z  what is in each directory, with all below it, in bytes\n"
    u"Without directories the current one is meant. A pattern or a range shows the files that fit it. Links "
    u"to directories are followed as DirJunctions says, each target once. Colors are those of ColorDir. The "
    u"result counters are %_tree_files, %_tree_dirs and %_tree_errors.",
    u"tree C:\\work\n"
    u"tree /a /f > tree.txt\n"
    u"tree /l2 /z C:\\\n"
    u"tree *.cpp",
};

namespace {

struct TreeOptions {
    AttributeMasks attributes;
    RANGES ranges;
    int deepest = allLevels;
    bool plain = false;
    bool bare = false;
    bool files = false;
    bool hidden = false;
    bool pauses = false;
    bool sizes = false;
    bool totals = false;
    std::optional<WhichTime> time;
};

struct LineParts {
    std::u16string_view branch;     // in front of a directory
    std::u16string_view lastBranch; // of the last one
    std::u16string_view past;       // in front of what is in a directory that has brothers below
};
constexpr LineParts drawn = {u"├───", u"└───", u"│   "};
constexpr LineParts typed = {u"+---", u"\\---", u"|   "};
constexpr std::u16string_view blankPart = u"    ";
constexpr std::size_t outputBlock = 16384; // units written at once

class TreeDrawing {
public:
    explicit TreeDrawing(const TreeOptions& what)
        : options(what), parts(what.plain ? typed : drawn), country(Country()), pager(what.pauses),
          questions(false)
    {}

    void Draw(const CString& written)
    {
        const CString argument = WithoutQuotes(written);
        quoted = argument.size() != written.size();
        const CString name = argument.empty() ? CString() : FullPathName(argument);
        pattern = u"*";
        CString root = name;
        if (!QueryIsDirectory(name) && !FileNamePart(name).empty()) {
            pattern = FileNamePart(name);
            root = DirectoryPart(name);
        }
        if (!QueryIsDirectory(root) || (pattern != u"*" && !IsPattern() && !ReadFileFacts(name))) {
            Fail(ERROR_PATH_NOT_FOUND, argument);
            return;
        }
        showsFiles = options.files || pattern != u"*" || !options.ranges.Empty();
        root = JoinPath(WithoutEndSeparators(root), u"");
        if (root.back() != u'\\')
            root += u'\\';
        totals.clear();
        entered.clear();
        if (options.totals)
            AddUp(root);
        Line(PaintedText()
                 .Append(CString(options.time ? TimeText(0).size() : 0, u' '))
                 .Append(SizeText(TotalOf(root)))
                 .Append(WithoutEndSeparators(root)));
        DrawInside(root, {}, 0);
        Flush();
    }

    int Finish() const
    {
        SetResultCounters(u"tree", {files, directories, errors});
        return errors != 0 ? result::error : result::success;
    }

private:
    struct Contents {
        std::vector<FoundFile> files;
        std::vector<FoundFile> directories;
    };

    bool IsPattern() const
    {
        return HasWildcards(pattern) || (!quoted && pattern.Find(u';') != CString::npos);
    }

    void Fail(unsigned code, std::u16string_view name)
    {
        Flush();
        ++errors;
        MVError(code, name);
    }

    void Line(const PaintedText& text)
    {
        if (options.pauses) {
            if (!pager.Line(text))
                throw OutputRefused{GetLastError()};
            return;
        }
        waiting.Append(text).Append(u"\r\n");
        if (waiting.text.size() >= outputBlock)
            Flush();
    }

    void Flush()
    {
        if (!waiting.text.empty() && !Print(waiting))
            throw OutputRefused{GetLastError()};
        waiting.Clear();
    }

    // Names that could pass for patterns or lists are meant as they are.
    std::vector<FoundFile> Search(const CString& directory, const CString& names, const AttributeMasks& masks,
                                  bool ranged)
    {
        FILESEARCH search;
        search.attributes = masks;
        if (ranged)
            search.ranges = options.ranges;
        StartSearch(search, Format(quoted ? u"\"%s%s\"" : u"\"%s\"%s", directory, names));
        SearchedDirectory found;
        if (!NextDirectory(search, found))
            return {};
        if (found.found.error != 0)
            Fail(found.found.error, WithoutEndSeparators(directory));
        return std::move(found.found.files);
    }

    Contents Read(const CString& directory)
    {
        const bool allFiles = pattern == u"*" && options.ranges.Empty() && options.attributes.required == 0 &&
                              options.attributes.forbidden == 0 && options.attributes.anyOf == 0;
        AttributeMasks masks;
        masks.included = options.hidden ? AttributeMasks::all : AttributeMasks::usual;
        if (!showsFiles || !allFiles)
            masks.required = file_attribute::directory;
        Contents contents;
        for (FoundFile& found : Search(directory, u"*", masks, false))
            (found.facts.IsDirectory() ? contents.directories : contents.files).push_back(std::move(found));
        if (showsFiles && !allFiles) {
            masks = options.attributes;
            masks.forbidden |= file_attribute::directory;
            masks.included |= options.hidden ? AttributeMasks::all : 0;
            contents.files = Search(directory, pattern, masks, true);
        }
        return contents;
    }

    // The file sizes of all directories below, in the totals of each one above.
    void AddUp(const CString& root)
    {
        FILESEARCH search;
        search.attributes = AttributeMasks::Everything();
        search.attributes.forbidden = file_attribute::directory;
        search.deepest = allLevels;
        StartSearch(search, Format(u"\"%s*\"", root));
        SearchedDirectory found;
        while (NextDirectory(search, found)) {
            std::uint64_t bytes = 0;
            for (const FoundFile& file : found.found.files)
                bytes += file.facts.size;
            std::u16string_view name = found.found.name;
            while (name.size() >= root.size()) {
                totals[std::u16string(name)] += bytes;
                const std::size_t above = name.rfind(u'\\', name.size() - 2);
                name = name.substr(0, above == name.npos ? 0 : above + 1);
            }
        }
    }

    std::optional<std::uint64_t> TotalOf(const CString& directory)
    {
        if (!options.totals)
            return std::nullopt;
        return totals[std::u16string(directory.view())];
    }

    // Times and sizes stand in columns in front of the lines.
    CString SizeText(const std::optional<std::uint64_t>& size) const
    {
        if (!options.sizes && !options.totals)
            return {};
        CString text = size ? Format(u"%u", *size) : CString();
        AddCommas(text);
        return Format(u"%15s  ", text);
    }

    CString TimeText(std::uint64_t time) { return FormatFileTime(clock.ToLocal(time), country) + u"  "; }

    CString Columns(const EntryFacts& facts, const std::optional<std::uint64_t>& size)
    {
        if (!options.time)
            return SizeText(size);
        const std::uint64_t time = *options.time == WhichTime::Created    ? facts.created
                                   : *options.time == WhichTime::Accessed ? facts.accessed
                                                                          : facts.written;
        return TimeText(time) + SizeText(size);
    }

    void DrawEntry(const CString& columns, const CString& directory, const CString& branch,
                   const FoundFile& entry)
    {
        PaintedText line;
        line.Append(columns).Append(options.bare ? directory : branch);
        Line(line.Append(entry.name, colors.Of(entry.name, entry.facts.attributes)));
    }

    void DrawInside(const CString& directory, const CString& prefix, int depth)
    {
        if (watched)
            Flush();
        const Contents contents = Read(directory);
        const bool deeper = !contents.directories.empty();
        const CString filePrefix = prefix + (deeper ? parts.past : blankPart);
        for (const FoundFile& file : contents.files) {
            const auto size = options.sizes ? std::optional(file.facts.size) : std::nullopt;
            DrawEntry(Columns(file.facts, size), directory, filePrefix, file);
            ++files;
        }
        // A gap parts files from what follows.
        if (!contents.files.empty() && !options.bare) {
            const CString columns(Columns({}, {}).size(), u' ');
            Line(PaintedText().Append((columns + (deeper ? filePrefix : prefix)).TrimRight()));
        }
        for (const FoundFile& found : contents.directories) {
            const bool last = &found == &contents.directories.back();
            const CString name = Format(u"%s%s\\", directory, found.name);
            DrawEntry(Columns(found.facts, TotalOf(name)), directory,
                      prefix + (last ? parts.lastBranch : parts.branch), found);
            ++directories;
            if (depth + 1 < options.deepest && MayEnter(name, found.facts))
                DrawInside(name, prefix + (last ? blankPart : parts.past), depth + 1);
        }
    }

    // A link is entered once, and never one that leads to a directory above it.
    bool MayEnter(const CString& directory, const EntryFacts& facts)
    {
        if ((facts.attributes & file_attribute::reparsePoint) == 0)
            return true;
        if (!aIniFile.DirJunctions)
            return false;
        const auto target = questions.Identify(directory);
        if (!target || std::find(entered.begin(), entered.end(), *target) != entered.end())
            return false;
        std::u16string_view above = directory;
        for (std::size_t end = above.rfind(u'\\', above.size() - 2); end != above.npos && end > 1;
             end = above.rfind(u'\\', above.size() - 2)) {
            above = above.substr(0, end + 1);
            if (questions.Identify(above) == target)
                return false;
        }
        entered.push_back(*target);
        return true;
    }

public:
    struct OutputRefused {
        unsigned reason; // a Windows error number
    };

private:
    const TreeOptions& options;
    const LineParts& parts;
    NationalSettings country;
    Pager pager;
    SystemDirectories questions;
    SystemRangeClock clock;
    ListingColors colors;
    PaintedText waiting; // lines that are not written yet
    bool watched = IsConsole(1);
    CString pattern;
    bool quoted = false; // ";" and "=" belong to the pattern
    bool showsFiles = false;
    std::unordered_map<std::u16string, std::uint64_t> totals; // bytes, by full names with a separator
    std::vector<DirectoryIdentity> entered;                   // targets of links
    std::int64_t files = 0;
    std::int64_t directories = 0;
    std::int64_t errors = 0;
};

// Takes the switches with texts out of the arguments. 0, or the result of a reported error.
int TakeTexts(CString& arguments, TreeOptions& options)
{
    options.plain = TakeSwitchWord(arguments, u"A");
    if (const int code = TakeAttributeSwitches(arguments, options.attributes))
        return code;
    CString text;
    while (TakeSwitchLetters(arguments, u"L", text)) {
        const std::optional<std::int64_t> levels = ParseInteger(text);
        if (levels.value_or(0) < 1 || *levels > allLevels)
            return MVError(errors::invalidNumber, text);
        options.deepest = static_cast<int>(*levels);
    }
    while (TakeSwitchLetters(arguments, u"T", text)) {
        const char16_t letter = text.empty() ? u'w' : LowerCase(text[0]);
        if (text.size() > 1 || std::u16string_view(u"acw").find(letter) == std::u16string_view::npos)
            return MVError(errors::invalidSwitch, CString(u"/T") + text);
        options.time = letter == u'a'   ? WhichTime::Accessed
                       : letter == u'c' ? WhichTime::Created
                                        : WhichTime::Written;
    }
    return result::success;
}

} // namespace

int Tree_Command(CString& arguments)
{
    TreeOptions options;
    if (const int code = GetRange(arguments, &options.ranges, 0))
        return code;
    if (const int code = TakeTexts(arguments, options))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"BFHPSZ", flags))
        return code;
    options.bare = (flags & 1) != 0;
    options.files = (flags & 2) != 0;
    options.hidden = (flags & 4) != 0;
    options.pauses = (flags & 8) != 0;
    options.sizes = (flags & 16) != 0;
    options.totals = (flags & 32) != 0;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        names.emplace_back(u".");
    TreeDrawing drawing(options);
    try {
        for (const CString& name : names)
            drawing.Draw(name);
    } catch (const TreeDrawing::OutputRefused& refused) {
        return MVError(refused.reason);
    }
    return drawing.Finish();
}
