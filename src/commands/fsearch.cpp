#include "commands/fsearch.h"

#include <windows.h>

#include <utility>

#include "commands/ffind_options.h"
#include "commands/file_finding.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_source.h"
#include "files/file_search.h"
#include "files/name_pattern.h"
#include "files/regex.h"
#include "lang/file_messages.h"
#include "lang/function_messages.h"
#include "platform/directory.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "platform/search_service.h"
#include "platform/system_index.h"
#include "platform/volumes.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp fsearchHelp = {
    u"Finds files below a directory through the index of a search service.",
    u"FSEARCH [/G] [switches of FFIND] name ...",
    u"/G  search the directories themselves, whatever index there is\n"
    u"FSEARCH asks a running Everything service for the names, while the setting EverythingSearch allows "
    u"it, then the index of Windows Search, and where neither knows anything, it searches the directories, "
    u"and says so. Each name is looked for in its directory, or in the current one, and in all below. All "
    u"other switches, ranges and the searches of contents are those of FFIND, and what an index has told is "
    u"checked against them: a file that is gone or does not match is not shown. /S and /O mean nothing "
    u"here. The result counters are %_fsearch_files, %_fsearch_dirs and %_fsearch_errors.",
    u"fsearch *.docx\n"
    u"fsearch /b /t\"to do\" c:\\work\\*.txt\n"
    u"fsearch /g *.log",
};

const CommandHelp everythingHelp = {
    u"Finds files on all drives by a part of their names, through a running Everything service.",
    u"EVERYTHING [/A] [/B] [/C] [/G] [/L:number] [/M] [/P] [/R] [/W] text",
    u"/A  the text may stand anywhere in the full name, not only in the last part of it\n"
    u"/B  names alone\n"
    u"/C  letter case counts\n"
    u"/G  search the drives themselves\n"
    u"/L  so many files at most\n"
    u"/M  no totals\n"
    u"/P  wait for a key after each screen\n"
    u"/R  the text is a regular expression\n"
    u"/W  whole words only\n"
    u"The service takes the text in its own syntax: words parted by blanks must all be there, \"|\" is or, "
    u"\"!\" is not. When no service runs, the fixed drives are searched for names that hold the text, or "
    u"match it when it has wildcards, and the command says so; /A and /W mean nothing then. The result is 0 "
    u"when something was found, 1 otherwise.",
    u"everything readme\n"
    u"everything /l:20 *.iso\n"
    u"everything /r \"^img_[0-9]+\\.jpg$\"",
};

namespace {

std::optional<FoundFile> ReadFoundFile(const CString& path)
{
    const std::optional<FileFacts> facts = ReadFileFacts(path);
    if (!facts)
        return std::nullopt;
    FoundFile file;
    file.name = FileNamePart(path);
    file.facts.attributes = facts->attributes;
    file.facts.size = facts->IsDirectory() ? 0 : facts->size;
    file.facts.written = FileTimeNumber(facts->written);
    file.facts.accessed = FileTimeNumber(facts->accessed);
    file.facts.created = FileTimeNumber(facts->created);
    return file;
}

class QuestionsAboutFile : public RangeQuestions {
public:
    QuestionsAboutFile(std::u16string_view where, std::u16string_view which) : directory(where), name(which)
    {}
    std::uint64_t CompressedSize() override { return system.CompressedSize(directory, name); }
    CString Owner() override { return system.Owner(directory, name); }
    CString Description() override { return system.Description(directory, name); }

private:
    SystemDirectories system{false};
    std::u16string_view directory;
    std::u16string_view name;
};

// One name of the command line: where it is looked for, and what it is.
struct Wanted {
    CString directory; // full, with a separator at its end
    CString pattern;
};

Wanted ReadWanted(const CString& argument)
{
    const CString bare = WithoutOuterQuotes(argument);
    Wanted wanted;
    wanted.directory =
        JoinPath(FullPathName(HasDirectory(bare) ? CString(DirectoryPart(bare)) : CString(u".")), u"");
    wanted.pattern = FileNamePart(bare);
    if (wanted.pattern.empty())
        wanted.pattern = u"*";
    return wanted;
}

class IndexSearch {
public:
    IndexSearch(const FfindOptions& what, FileFinding& to) : options(what), finding(to) {}

    // False when no index knows anything of it.
    bool Search(const Wanted& wanted)
    {
        std::vector<CString> names;
        if (!AskService(wanted, names) &&
            !AskSystemIndex({wanted.directory, wanted.pattern, {}}, names, ThrowIfBroken))
            return false;
        const NamePattern pattern(wanted.pattern, static_cast<RegexSyntax>(aIniFile.RegularExpressions));
        for (const CString& name : names) {
            ThrowIfBroken();
            if (finding.IsStopped())
                break;
            if (BeginsNoCase(name, wanted.directory) && pattern.Matches(FileNamePart(name)))
                Check(name);
        }
        return true;
    }

private:
    static bool AskService(const Wanted& wanted, std::vector<CString>& names)
    {
        if (!aIniFile.EverythingSearch)
            return false;
        ServiceQuery query;
        query.text = Format(u"path:\"%s\" \"%s\"", wanted.directory, wanted.pattern);
        return AskSearchService(query, names, ThrowIfBroken) == ServiceAnswer::Answered && !names.empty();
    }

    void Check(const CString& path)
    {
        const std::optional<FoundFile> file = ReadFoundFile(path);
        if (!file || !options.attributes.Select(file->facts.attributes))
            return;
        QuestionsAboutFile questions(DirectoryPart(path), file->name);
        if (options.ranges.Empty() || IsInRanges(options.ranges, file->name, file->facts, clock, questions))
            finding.Look(path, *file);
    }

    const FfindOptions& options;
    FileFinding& finding;
    SystemRangeClock clock;
};

struct EverythingOptions {
    ServiceQuery query;
    bool walks = false;
};

int ReadOptions(CString& arguments, EverythingOptions& options, FfindOptions& shown)
{
    CString text;
    if (TakeSwitchText(arguments, u"L", text)) {
        const auto most = ParseInteger(text);
        if (!most || *most < 1 || *most > UINT32_MAX)
            return MVError(errors::invalidNumber, text);
        options.query.most = static_cast<std::uint32_t>(*most);
    }
    std::uint64_t flags = 0;
    constexpr std::u16string_view letters = u"ABCGMPRW";
    if (const int code = ReadSwitches(arguments, letters, flags))
        return code;
    auto on = [&](char16_t letter) { return (flags >> letters.find(letter) & 1) != 0; };
    options.query.matchesPath = on(u'A');
    options.query.matchesCase = on(u'C');
    options.query.isRegex = on(u'R');
    options.query.wholeWords = on(u'W');
    options.walks = on(u'G');
    shown.bare = on(u'B');
    shown.totals = !on(u'M') && !on(u'B');
    shown.pauses = on(u'P');
    shown.attributes = AttributeMasks::Everything();
    shown.deepest = allLevels;
    options.query.text = WithoutOuterQuotes(arguments.Trim());
    return options.query.text.empty() ? UsageError() : result::success;
}

// Names that hold the text, or match it, on all fixed drives. 0, or the result of a reported error.
int SearchDrives(const EverythingOptions& options, FileFinding& finding)
{
    CString pattern = options.query.text;
    const auto syntax = static_cast<RegexSyntax>(aIniFile.RegularExpressions);
    if (options.query.isRegex && !Regex(pattern, syntax, RegexMatch::Whole, RegexCase::Ignore).IsValid())
        return MVError(errors::invalidRegex, pattern);
    if (options.query.isRegex)
        pattern = u"::" + pattern;
    else if (!HasWildcards(pattern))
        pattern = Format(u"\"*%s*\"", pattern);
    for (const char16_t letter : AllDrives())
        if (DriveKind(Format(u"%c:\\", letter)) == DRIVE_FIXED && !finding.IsStopped())
            finding.FindIn(Format(u"%c:\\%s", letter, pattern));
    return result::success;
}

} // namespace

int Fsearch_Command(CString& arguments)
{
    const bool walks = TakeSwitchWord(arguments, u"G");
    FfindOptions options;
    if (const int code = ReadFfindOptions(arguments, options))
        return code;
    const std::vector<CString> names =
        NamesOnDrives(options, SplitArguments(arguments, true, CurrentSyntax()));
    if (names.empty())
        return UsageError();
    options.deepest = allLevels;
    FileFinding finding(u"fsearch", options);
    IndexSearch index(options, finding);
    bool told = false;
    for (const CString& name : names) {
        // No name, as of a variable that is not set, finds nothing; an index would be asked for everything.
        if (!walks && !WithoutQuotes(name).empty()) {
            if (index.Search(ReadWanted(name)))
                continue;
            if (!std::exchange(told, true))
                PrintError(LoadMessage(message::noIndexer) + u"\r\n");
        }
        finding.FindIn(name);
    }
    return finding.Finish();
}

int Everything_Command(CString& arguments)
{
    EverythingOptions options;
    FfindOptions shown;
    if (const int code = ReadOptions(arguments, options, shown))
        return code;
    FileFinding finding(u"fsearch", shown);
    finding.StopAfter(options.query.most);
    std::vector<CString> names;
    const ServiceAnswer answer =
        options.walks ? ServiceAnswer::NoService : AskSearchService(options.query, names, ThrowIfBroken);
    if (answer == ServiceAnswer::NoAnswer)
        return MVError(errors::searchServiceFailed);
    if (answer == ServiceAnswer::NoService) {
        if (!options.walks)
            PrintError(LoadMessage(message::noSearchService) + u"\r\n");
        if (const int code = SearchDrives(options, finding))
            return code;
    }
    for (const CString& name : names)
        if (const std::optional<FoundFile> file = ReadFoundFile(name); file && !finding.IsStopped())
            finding.Look(name, *file);
    return finding.Finish();
}
