#include "commands/file_lock.h"

#include <algorithm>

#include <windows.h>

#include "commands/file_work.h"
#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "platform/file_users.h"
#include "platform/process_ending.h"
#include "platform/process_list.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp filelockHelp = {
    u"Shows which processes have files open, and ends these processes.",
    u"FILELOCK [range ...] [/A[:]attributes] [/B] [/C] [/F] [/S] [/Y] file ...",
    u"/A  files with attributes, as DIR /A tells; all are taken otherwise\n"
    u"/B  process numbers alone, each once\n"
    u"/C  end the processes after a question: their windows are asked to close, and what still runs after "
    u"five seconds is ended by force. What is not saved is lost\n"
    u"/F  with /C, by force at once\n"
    u"/S  in all subdirectories too\n"
    u"/Y  with /C, without questions\n"
    u"A directory stands for the files in it. Files that nobody has open are not shown. This shell itself "
    u"is never ended. The result is 0 when somebody has one of the files open, and with /C when all of them "
    u"are closed, else 2.",
    u"filelock C:\\work\\plan.doc\n"
    u"filelock /s D:\\data\\*\n"
    u"filelock /c report.xls",
};

namespace {

struct LockOptions {
    bool bare = false;
    bool closes = false;
    bool byForce = false;
    bool unasked = false;
};

class LockReport {
public:
    explicit LockReport(const LockOptions& how) : options(how) {}

    void Look(const FILESEARCH& search)
    {
        ThrowIfBroken();
        const std::vector<std::uint32_t> users = ProcessesUsing(search.fullName);
        if (users.empty())
            return;
        if (!options.bare)
            PrintLine(search.name);
        for (const std::uint32_t process : users)
            Show(process);
    }

    // 0, or the result of a reported error.
    int End()
    {
        if (!options.closes)
            return processes.empty() ? result::error : result::success;
        int code = result::success;
        for (const std::uint32_t process : processes)
            if (const int one = EndOne(process))
                code = one;
        return code;
    }

private:
    void Show(std::uint32_t process)
    {
        const bool seen = std::find(processes.begin(), processes.end(), process) != processes.end();
        if (!seen)
            processes.push_back(process);
        if (!options.bare)
            PrintLine(
                Format(u"  %8u  %-24s %s", process, FileNamePart(ProgramPathOf(process)), UserOf(process)));
        else if (!seen)
            PrintLine(Format(u"%u", process));
    }

    int EndOne(std::uint32_t process)
    {
        constexpr std::uint32_t patience = 5000; // milliseconds
        const CString shown = Format(u"%s (%u)", FileNamePart(ProgramPathOf(process)), process);
        if (process == GetCurrentProcessId())
            return MVError(errors::ownProcess, shown);
        if (!options.unasked && !MayAsk())
            return MVError(errors::endNeedsYes, shown);
        if (!options.unasked && QueryInputChar(message::askEndProcess, shown, u"YN", u'N') != u'Y')
            return result::error;
        const unsigned failed = EndProcess(process, options.byForce ? 0 : patience);
        return failed ? MVError(failed, shown) : result::success;
    }

    LockOptions options;
    std::vector<std::uint32_t> processes; // each once, in the order in which they were found
};

} // namespace

int Filelock_Command(CString& arguments)
{
    constexpr std::u16string_view letters = u"BCFSY";
    FILESEARCH search;
    search.attributes = AttributeMasks::Everything();
    if (const int code = TakeSelection(arguments, search))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, letters, flags))
        return code;
    const auto has = [&](char16_t letter) { return (flags >> letters.find(letter) & 1) != 0; };
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    if (has(u'S'))
        search.deepest = allLevels;
    search.attributes.forbidden |= file_attribute::directory;
    search.intoDirectories = true;
    LockReport report({has(u'B'), has(u'C'), has(u'F'), has(u'Y')});
    const int code = ForEachMatch(search, names, [&] { report.Look(search); });
    const int ended = report.End();
    return code ? code : ended;
}
