#include "commands/differ.h"

#include <map>

#include <windows.h>

#include "commands/differ_files.h"
#include "commands/file_texts.h"
#include "commands/listing_output.h"
#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_comparison.h"
#include "files/file_search.h"
#include "lang/file_messages.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp differHelp = {
    u"Shows what two directories or two files have apart.",
    u"DIFFER [range ...] [/A[:]attributes] [/D:which] [/K] [/M] [/P] [/Q] [/S[levels]] [/T] [/Z] directory "
    u"directory\n"
    u"DIFFER [/B] [/I] [/K] [/P] [/Q] [/U[lines]] [/W] file file",
    u"/A  files with attributes, as DIR /A tells\n"
    u"/B  byte by byte: the place and both bytes of every difference\n"
    u"/D  what is shown: L only in the left directory, R only in the right one, D different, S the same; "
    u"LRD if not told\n"
    u"/I  letter case does not count\n"
    u"/K  no header\n"
    u"/M  no totals\n"
    u"/P  wait for a key after each screen\n"
    u"/Q  show nothing, only answer\n"
    u"/S  directories below as well; with a number, so many levels of them\n"
    u"/T  files are the same when size and time of the last write are, to two seconds\n"
    u"/U  lines shown around a change, 3 if not told\n"
    u"/W  blanks do not count, but for whether there are any\n"
    u"/Z  files are the same when their sizes are\n"
    u"Directories are compared by the names in them, the left one may end in a pattern; files in them by "
    u"their bytes unless /T or /Z is given. What ranges and /A choose on one side is compared with what has "
    u"its name on the other. Without /S directories count only where the other side has a file of that name. "
    u"Texts are compared line by line, in whatever encodings they are: \"-\" marks a line of the left file, "
    u"\"+\" one of the right. A file and a directory: the file of that name in the directory is meant. The "
    u"result is 0 for no differences, 1 for some, and 2 when something could not be compared.",
    u"differ old.ini new.ini\n"
    u"differ /s c:\\work d:\\backup\n"
    u"differ /s /t /d:lr work\\*.c backup\n"
    u"differ /b a.bin b.bin",
};

namespace {

enum class SameWhen { Bytes, SizeAndTime, Size };

struct DifferOptions {
    FileDifferOptions files;
    AttributeMasks attributes;
    RANGES ranges;
    SameWhen sameWhen = SameWhen::Bytes;
    CString shown = u"LRD";
    int deepest = 0;
    bool totals = true;
    bool pauses = false;
};

int Refuse(char16_t letter, std::u16string_view text)
{
    return MVError(errors::invalidSwitch, Format(u"%c%c%s", CurrentSyntax().switchChar, letter, text));
}

int ReadTexts(CString& arguments, DifferOptions& options)
{
    CString text;
    if (TakeSwitchText(arguments, u"D", text)) {
        MakeUpper(text);
        if (text.empty() || text.view().find_first_not_of(u"LRDS") != CString::npos)
            return Refuse(u'D', text);
        options.shown = text;
    }
    if (TakeSwitchText(arguments, u"U", text)) {
        const auto lines = text.empty() ? 3 : ParseInteger(text);
        if (!lines || *lines < 0 || *lines > 1'000'000)
            return Refuse(u'U', text);
        options.files.context = static_cast<std::size_t>(*lines);
    }
    return result::success;
}

int ReadOptions(CString& arguments, DifferOptions& options)
{
    int code = GetRange(arguments, &options.ranges, 0);
    code = code ? code : ReadTexts(arguments, options);
    code = code ? code : TakeAttributeSwitches(arguments, options.attributes);
    code = code ? code : TakeDepthSwitch(arguments, options.deepest);
    constexpr std::u16string_view letters = u"BIKMPQTWZ";
    std::uint64_t flags = 0;
    code = code ? code : ReadSwitches(arguments, letters, flags);
    auto on = [&](char16_t letter) { return (flags >> letters.find(letter) & 1) != 0; };
    options.files.bytes = on(u'B');
    options.files.ignoresCase = on(u'I');
    options.files.ignoresBlanks = on(u'W');
    options.files.header = !on(u'K');
    options.files.quiet = on(u'Q');
    options.totals = !on(u'M');
    options.pauses = on(u'P');
    options.sameWhen = on(u'T') ? SameWhen::SizeAndTime : on(u'Z') ? SameWhen::Size : SameWhen::Bytes;
    return code;
}

class DirectoryDiffering {
public:
    DirectoryDiffering(const DifferOptions& what, ListingOutput& to) : options(what), output(to) {}

    int Run(const CString& left, std::u16string_view pattern, const CString& right);

private:
    struct Entry {
        std::optional<EntryFacts> left;
        std::optional<EntryFacts> right;
    };
    struct BeforeNoCase {
        bool operator()(const CString& a, const CString& b) const { return CompareNoCase(a, b) < 0; }
    };
    using Side = std::optional<EntryFacts> Entry::*;

    void Collect(const CString& root, std::u16string_view pattern, Side side);
    // What has the name there, though the selection passes over it; nothing for nothing.
    static std::optional<EntryFacts> Passed(const CString& root, const CString& name);
    // Nothing for two that could not be compared, which is reported.
    std::optional<bool> IsSame(const CString& name, const Entry& entry);
    void Show(char16_t letter, unsigned line, const CString& name);
    void ShowTotals() const;
    void Failed(unsigned code, std::u16string_view name)
    {
        output.Flush();
        MVError(code, name);
        failed = true;
    }

    const DifferOptions& options;
    ListingOutput& output;
    CString roots[2];                               // full, with a separator at their ends
    std::map<CString, Entry, BeforeNoCase> entries; // by the names from the roots on
    std::map<char16_t, std::uint64_t> counts;
    bool failed = false;
};

void DirectoryDiffering::Collect(const CString& root, std::u16string_view pattern, Side side)
{
    FILESEARCH search;
    search.attributes = options.attributes;
    search.ranges = options.ranges;
    search.deepest = options.deepest;
    if (options.deepest == 0)
        search.attributes.forbidden |= file_attribute::directory;
    const CString name = AddQuotes(JoinPath(root, pattern));
    for (bool found = FindFiles(search, name); found; found = FindFiles(search))
        entries[search.name.Substr(root.size())].*side = search.file.facts;
    ForEachFailure(search, [this](unsigned code, const CString& failure) { Failed(code, failure); });
}

std::optional<EntryFacts> DirectoryDiffering::Passed(const CString& root, const CString& name)
{
    const auto facts = ReadFileFacts(PathOfEntry(root + DirectoryPart(name), FileNamePart(name)));
    if (!facts)
        return std::nullopt;
    EntryFacts entry;
    entry.attributes = facts->attributes;
    entry.size = facts->size;
    entry.written = FileTimeNumber(facts->written);
    return entry;
}

std::optional<bool> DirectoryDiffering::IsSame(const CString& name, const Entry& entry)
{
    if (entry.left->IsDirectory() || entry.right->IsDirectory())
        return entry.left->IsDirectory() == entry.right->IsDirectory();
    if (entry.left->size != entry.right->size)
        return false;
    if (options.sameWhen == SameWhen::Size || entry.left->size == 0)
        return true;
    if (options.sameWhen == SameWhen::SizeAndTime) {
        constexpr std::uint64_t tolerance = 20'000'000; // two seconds, as FAT tells times
        const std::uint64_t a = entry.left->written;
        const std::uint64_t b = entry.right->written;
        return (a > b ? a - b : b - a) <= tolerance;
    }
    const auto opened = [&](const CString& root) {
        return PathOfEntry(root + DirectoryPart(name), FileNamePart(name));
    };
    const FileComparison comparison = CompareFiles(opened(roots[0]), opened(roots[1]));
    if (!comparison.error)
        return comparison.same;
    Failed(comparison.error, comparison.failed);
    return std::nullopt;
}

void DirectoryDiffering::Show(char16_t letter, unsigned line, const CString& name)
{
    ++counts[letter];
    if (!options.files.quiet && options.shown.Find(letter) != CString::npos)
        output.Line(LoadMessage(line, name));
}

void DirectoryDiffering::ShowTotals() const
{
    struct Part {
        char16_t letter;
        unsigned text;
    };
    CString line;
    for (const Part& part : {Part{u'L', message::differOnlyLeft}, Part{u'R', message::differOnlyRight},
                             Part{u'D', message::differDifferent}, Part{u'S', message::differSame}}) {
        const auto count = counts.find(part.letter);
        line.Append(Format(line.empty() ? u"%16s %s" : u" %s %s",
                           FileTexts().Number(count == counts.end() ? 0 : count->second),
                           LoadMessage(part.text)));
    }
    output.Line(line);
}

int DirectoryDiffering::Run(const CString& left, std::u16string_view pattern, const CString& right)
{
    roots[0] = JoinPath(FullPathName(left), u"");
    roots[1] = JoinPath(FullPathName(right), u"");
    Collect(roots[0], pattern, &Entry::left);
    Collect(roots[1], pattern, &Entry::right);
    for (auto& [name, entry] : entries) {
        if (!entry.left)
            entry.left = Passed(roots[0], name);
        if (!entry.right)
            entry.right = Passed(roots[1], name);
        const bool directory = (entry.left ? entry.left : entry.right)->IsDirectory();
        const CString shown = directory ? name + u"\\" : name;
        if (!entry.right)
            Show(u'L', message::onlyLeft, shown);
        else if (!entry.left)
            Show(u'R', message::onlyRight, shown);
        else if (const std::optional<bool> same = IsSame(name, entry))
            *same ? Show(u'S', message::sameFiles, shown) : Show(u'D', message::differentFiles, shown);
        if (output.Refused())
            break;
    }
    if (options.totals && !options.files.quiet)
        ShowTotals();
    const bool differs = counts[u'L'] + counts[u'R'] + counts[u'D'] > 0;
    return failed ? differ_result::failed : differs ? differ_result::different : differ_result::same;
}

int DifferDirectories(const CString& left, const CString& right, const DifferOptions& options,
                      ListingOutput& output)
{
    if (QueryIsDirectory(left))
        return DirectoryDiffering(options, output).Run(left, u"*", right);
    const CString directory(DirectoryPart(left));
    return DirectoryDiffering(options, output)
        .Run(directory.empty() ? CString(u".") : directory, FileNamePart(left), right);
}

} // namespace

int Differ_Command(CString& arguments)
{
    DifferOptions options;
    if (const int code = ReadOptions(arguments, options))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.size() != 2)
        return UsageError();
    CString left = WithoutQuotes(names[0]);
    CString right = WithoutQuotes(names[1]);
    if (left.empty() || right.empty())
        return UsageError();
    const bool leftDirectory = QueryIsDirectory(left);
    const bool rightDirectory = QueryIsDirectory(right);
    ListingOutput output(options.pauses);
    int code = differ_result::same;
    if ((leftDirectory || HasWildcards(left)) && rightDirectory) {
        code = DifferDirectories(left, right, options, output);
    } else {
        if (leftDirectory)
            left = JoinPath(left, FileNamePart(right));
        if (rightDirectory)
            right = JoinPath(right, FileNamePart(left));
        code = DifferFiles(left, right, options.files, output);
        if (code == differ_result::same && !options.files.quiet && options.files.header)
            output.Line(LoadMessage(message::filesAreSame));
    }
    return output.Flush() ? code : MVError(0);
}
