#include "commands/jobs.h"

#include <algorithm>

#include <windows.h>

#include "core/command_switches.h"
#include "core/jobs.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"
#include "platform/clock.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp jobsHelp = {
    u"Shows, ends or waits for what the shell has started and does not wait for.",
    u"JOBS [/A] [/P] [number ...]\n"
    u"JOBS /K | /W number ... | *",
    u"/A  also those that have ended since this was last asked for, with their exit codes\n"
    u"/K  ends the jobs, with all the processes that they have started\n"
    u"/P  shows the processes of each job\n"
    u"/W  waits for the jobs to end; the error level is the exit code of the last one\n"
    u"A job is what START (without /WAIT) or DETACH has started. Shown are its number, the process ID, the "
    u"time since it began and the command. A number beyond 999 may also be a process ID; * stands for all "
    u"jobs. The shell may end before its jobs. The result is 0, with /W the last exit code, and 2 when "
    u"there is no such job or it cannot be ended.",
    u"detach backup.exe & jobs\n"
    u"jobs /p 2\n"
    u"jobs /k *\n"
    u"jobs /w 1",
};

namespace {

enum : std::uint64_t { showEnded = 1, endThem = 2, showProcesses = 4, waitForThem = 8 };
constexpr std::int64_t lowestProcessId = 1000;

CString ProcessName(unsigned id)
{
    const OwnedHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    CString name;
    DWORD length = 32768;
    if (!process ||
        !QueryFullProcessImageNameW(process.Get(), 0, reinterpret_cast<wchar_t*>(name.Edit(length)), &length))
        length = 0;
    name.SetLength(length);
    return CString(FileNamePart(name));
}

CString Age(const Job& job)
{
    const std::uint64_t seconds = (Ticks() - job.started) / 1000;
    return Format(u"%u:%02u:%02u", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

CString Lines(const Job& job, std::uint64_t switches)
{
    const unsigned id = GetProcessId(job.process.Get());
    CString lines;
    if (IsRunning(job)) {
        lines = Format(u"[%d]  %5u  %s  %s\r\n", job.number, id, Age(job), job.command);
        for (const unsigned process : (switches & showProcesses) ? ProcessesOf(job) : std::vector<unsigned>())
            lines.Append(Format(u"     %5u  %s\r\n", process, ProcessName(process)));
        return lines;
    }
    const CString state =
        LoadMessage(message::jobEnded, Format(u"%d", static_cast<int>(job.process.ExitCode().value_or(0))));
    return Format(u"[%d]  %5u  %s  %s\r\n", job.number, id, state, job.command);
}

bool IsMeant(const Job& job, std::int64_t number)
{
    return job.number == number || (number >= lowestProcessId && GetProcessId(job.process.Get()) == number);
}

// The jobs that the words name, by their places in the list; all of them for "*" and where `allByDefault`.
int FindJobs(std::u16string_view words, bool allByDefault, std::vector<std::size_t>& found)
{
    const std::vector<Job>& jobs = Jobs().jobs;
    const std::vector<CString> names = SplitArguments(words, true, CurrentSyntax());
    const bool all = names.empty() ? allByDefault : names.size() == 1 && names[0] == u"*";
    for (std::size_t i = 0; all && i < jobs.size(); ++i)
        found.push_back(i);
    if (all)
        return result::success;
    if (names.empty())
        return UsageError();
    for (const CString& name : names) {
        const auto number = ParseInteger(name);
        const auto job = std::find_if(jobs.begin(), jobs.end(),
                                      [&](const Job& each) { return number && IsMeant(each, *number); });
        if (job == jobs.end())
            return MVError(errors::noSuchJob, name);
        found.push_back(static_cast<std::size_t>(job - jobs.begin()));
    }
    return result::success;
}

int Show(const std::vector<std::size_t>& which, std::uint64_t switches)
{
    CString text;
    for (const std::size_t i : which)
        if ((switches & showEnded) != 0 || IsRunning(Jobs().jobs[i]))
            text.Append(Lines(Jobs().jobs[i], switches));
    return text.empty() || Print(text) ? result::success : MVError(0);
}

int End(const std::vector<std::size_t>& which)
{
    int code = result::success;
    for (const std::size_t i : which)
        if (Job& job = Jobs().jobs[i]; IsRunning(job) && !EndJob(job))
            code = MVError(0, job.command);
    return code;
}

int Wait(const std::vector<std::size_t>& which)
{
    unsigned code = 0;
    for (const std::size_t i : which) {
        if (!Jobs().jobs[i].process.Wait(tty_yield))
            return MVError(0, Jobs().jobs[i].command);
        code = Jobs().jobs[i].process.ExitCode().value_or(0);
    }
    Tls().errorLevel = static_cast<int>(code);
    return ResultOfExitCode(code);
}

// Those that have ended are told about once.
void Forget()
{
    std::vector<Job>& jobs = Jobs().jobs;
    jobs.erase(std::remove_if(jobs.begin(), jobs.end(), [](const Job& job) { return !IsRunning(job); }),
               jobs.end());
}

} // namespace

int Jobs_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"AKPW", switches))
        return code;
    const bool acts = (switches & (endThem | waitForThem)) != 0;
    if ((switches & endThem) != 0 && (switches & waitForThem) != 0)
        return UsageError();
    std::vector<std::size_t> which;
    if (const int code = FindJobs(arguments, !acts, which))
        return code;
    const int code = (switches & endThem) != 0       ? End(which)
                     : (switches & waitForThem) != 0 ? Wait(which)
                                                     : Show(which, switches);
    if ((switches & (showEnded | waitForThem)) != 0)
        Forget();
    return code;
}
