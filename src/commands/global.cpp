#include "commands/global.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "commands/directory.h"
#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/console_entry.h"
#include "engine/expansion_entry.h"
#include "engine/internal_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_name.h"
#include "files/file_search.h"
#include "lang/file_messages.h"
#include "platform/directory.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp globalHelp = {
    u"Runs a command in a directory and in those below it.",
    u"GLOBAL [range ...] [/A[:]attributes] [/D:directory] [/H] [/I] [/J] [/N] [/P] [/Q] [/R] [/S[levels]] "
    u"command",
    u"/A  directories with attributes, as DIR /A tells\n"
    u"/D  start at this directory, not at the current one\n"
    u"/H  hidden and system directories too\n"
    u"/I  go on when the command fails\n"
    u"/J  not through junctions and links to directories\n"
    u"/N  run nothing, show only where the command would run\n"
    u"/P  ask in each directory: Y yes, N no, R the rest without asking, Esc or Q no more\n"
    u"/Q  do not show the directories\n"
    u"/R  directories before the one that they are in\n"
    u"/S  so many levels only; 0 is the start alone\n"
    u"The command may be a group in parentheses over several lines; it is expanded anew in each directory. "
    u"Ranges pick directories by date, owner or description; those whose names a range excludes are passed "
    u"over with all that is in them. GLOBAL ends with the first command that fails unless /I is given, and "
    u"comes back to the directory it was started in, whatever happens. The result is that of the last "
    u"command that failed. The result counters are %_global_dirs, where the command has run, and "
    u"%_global_errors, how often it failed.",
    u"global /i del *.bak\n"
    u"global /i /q (echo %_cwd & dir /b *.c)\n"
    u"global /h /i /[!.git] /s2 ren *.jpeg *.jpg\n"
    u"global /i /r rd empty",
};

namespace {

struct GlobalOptions {
    CString start;
    AttributeMasks attributes;
    RANGES ranges;
    int deepest = allLevels;
    bool ignoresErrors = false;
    bool avoidsLinks = false;
    bool pretends = false;
    bool asks = false;
    bool quiet = false;
    bool deepestFirst = false;
};

// Puts the directory back however the block is left.
class Homecoming {
public:
    Homecoming() : home(CurrentDirectory()) {}
    Homecoming(const Homecoming&) = delete;
    Homecoming& operator=(const Homecoming&) = delete;
    ~Homecoming() { MakeCurrent(home); }

private:
    CString home;
};

// The switches in front of the command: what stands behind its first word is the command's own.
CString TakeLeadingSwitches(CString& arguments)
{
    const Syntax syntax = CurrentSyntax();
    std::size_t at = 0;
    for (;;) {
        while (at < arguments.size() && IsBlank(arguments[at]))
            ++at;
        if (at >= arguments.size() || arguments[at] != syntax.switchChar)
            break;
        const bool range = arguments.view().substr(at + 1, 2).find(u'[') != CString::npos;
        const std::size_t close = range ? arguments.Find(u']', at) : CString::npos;
        at = close == CString::npos ? NextBlankWord(arguments, at).end() : close + 1;
    }
    CString switches = arguments.Substr(0, at);
    arguments.Erase(0, at);
    return switches;
}

int ReadOptions(CString& arguments, GlobalOptions& options)
{
    CString switches = TakeLeadingSwitches(arguments);
    if (const int code = VariableExpansion(switches))
        return code;
    CString start;
    const bool started = TakeSwitchText(switches, u"D", start);
    options.start = FullPathName(started ? CleanDirectoryName(start) : CurrentDirectory());
    if (const int code = GetRange(switches, &options.ranges, 0))
        return code;
    if (const int code = TakeAttributeSwitches(switches, options.attributes))
        return code;
    if (const int code = TakeDepthSwitch(switches, options.deepest))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(switches, u"HIJNPQR", flags))
        return code;
    if ((flags & 1) != 0)
        options.attributes = AttributeMasks::Everything();
    options.attributes.required |= file_attribute::directory;
    options.ignoresErrors = (flags & 2) != 0;
    options.avoidsLinks = (flags & 4) != 0;
    options.pretends = (flags & 8) != 0;
    options.asks = (flags & 16) != 0;
    options.quiet = (flags & 32) != 0;
    options.deepestFirst = (flags & 64) != 0;
    return result::success;
}

class TreeRun {
public:
    TreeRun(const GlobalOptions& what, const CString& line) : options(what), command(line), asks(what.asks) {}

    int Run();

private:
    // Directories as the walk comes to them, so that the command sees what it has changed itself.
    void Walk();
    bool IsExcluded(std::u16string_view directory) const;
    void Visit(const CString& directory);

    const GlobalOptions& options;
    CString command;
    bool asks;
    bool stopped = false;
    int code = result::success;
    ResultCounts counts;
};

bool TreeRun::IsExcluded(std::u16string_view directory) const
{
    std::u16string_view below = directory.substr(std::min(directory.size(), options.start.size()));
    while (!below.empty()) {
        const std::size_t end = std::min(below.find(u'\\'), below.size());
        const std::u16string_view name = below.substr(0, end);
        for (const auto& pattern : options.ranges.excludedNames)
            if (!name.empty() && pattern->Matches(name))
                return true;
        below.remove_prefix(std::min(end + 1, below.size()));
    }
    return false;
}

void TreeRun::Walk()
{
    FILESEARCH search;
    search.attributes = options.attributes;
    search.ranges = options.ranges;
    search.deepest = options.deepest;
    search.avoidsLinks = options.avoidsLinks;
    std::unordered_set<CString, NoCaseHash, NoCaseEqual> picked = {JoinPath(options.start, u"")};
    std::vector<CString> later;
    SearchedDirectory directory;
    for (StartSearch(search, JoinPath(options.start, u"*")); !stopped && NextDirectory(search, directory);) {
        for (const FoundFile& file : directory.found.files)
            picked.insert(JoinPath(JoinPath(directory.found.name, file.name), u""));
        if (!picked.erase(directory.found.name) || IsExcluded(directory.found.name))
            continue;
        if (options.deepestFirst)
            later.push_back(directory.found.name);
        else
            Visit(directory.found.name);
    }
    if (search.error != 0) {
        ++counts.errors;
        code = Tls().errorLevel = MVError(search.error, search.failed);
    }
    for (auto one = later.rbegin(); one != later.rend() && !stopped; ++one)
        Visit(*one);
}

void TreeRun::Visit(const CString& directory)
{
    ThrowIfBroken();
    const CString shown(WithoutEndSeparators(directory));
    if (asks) {
        const char16_t answer = QueryInputChar(message::askGlobal, shown, u"YNRQ", u'Q');
        stopped = answer == u'Q';
        asks = answer != u'R';
        if (answer == u'Q' || answer == u'N')
            return;
    } else if (!options.quiet) {
        PrintLine(LoadMessage(message::globalIn, shown));
    }
    ++counts.directories;
    if (options.pretends)
        return;
    int one = result::success;
    if (!MakeCurrent(directory))
        one = Tls().errorLevel = NoDirectory(shown);
    else
        one = Command_S(command, 0);
    if (EndsLine(one)) {
        stopped = true;
        code = one;
    } else if (one != result::success && one != result::handled && one != result::fromSubroutine &&
               one != result::keepErrorLevel) {
        ++counts.errors;
        code = one;
        stopped = !options.ignoresErrors;
    }
}

int TreeRun::Run()
{
    const Homecoming home;
    Walk();
    SetResultCounters(u"global", counts);
    return code;
}

int Prepare(CString& arguments, GlobalOptions& options)
{
    if (const int code = ReadOptions(arguments, options))
        return code;
    if (arguments.Trim().empty())
        return UsageError();
    if (!QueryIsDirectory(options.start)) {
        const int code = NoDirectory(options.start);
        SetResultCounters(u"global", {0, 0, 1});
        return code;
    }
    return options.asks && !MayAsk() ? MVError(errors::nobodyToAsk, options.start) : result::success;
}

} // namespace

int Global_Command(CString& arguments)
{
    GlobalOptions options;
    // The error level is the commands' own, unless none runs.
    if (const int code = Prepare(arguments, options))
        return Tls().errorLevel = code;
    return TreeRun(options, arguments).Run();
}
