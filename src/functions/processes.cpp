// Processes, memory and the messages of errors.
//
// A process is given by its number or by the name of its program, without regard to extension, wildcards
// allowed: the first that matches counts.
#include "functions/families.h"

#include <windows.h>

#include "core/process_choice.h"
#include "engine/results.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/function_messages.h"
#include "platform/file_details.h"
#include "platform/process_family.h"
#include "platform/process_list.h"
#include "text/compare.h"

namespace {

using View = std::u16string_view;

// 0 with the process, else the error to answer.
int ReadProcess(View argument, unsigned& process)
{
    const CString text = FileArgument(argument);
    if (text.empty())
        return Refuse(errors::missingArgument);
    process = FindProcess(text);
    return process == 0 ? Refuse(errors::noProcess) : 0;
}

// The process of a call of the pattern "s", and a number behind it that chooses one of `count` facts.
struct ProcessFact {
    unsigned process = 0;
    std::size_t fact = 0;
    int error = 0;

    ProcessFact(const FunctionCall& call, std::size_t count)
    {
        const FunctionArguments arguments(call, u"s|n");
        const std::int64_t n = arguments.Number(1);
        error = arguments.Error();
        if (!error && (n < 0 || n >= static_cast<std::int64_t>(count)))
            error = Refuse(errors::invalidNumber);
        if (!error)
            error = ReadProcess(arguments.Text(0), process);
        fact = static_cast<std::size_t>(n);
    }
};

CString LocalMoment(std::uint64_t time)
{
    FILETIME file = {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    SYSTEMTIME utc, local;
    if (time == 0 || !FileTimeToSystemTime(&file, &utc) ||
        !SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local))
        return {};
    return Format(u"%04u-%02u-%02u %02u:%02u:%02u", local.wYear, local.wMonth, local.wDay, local.wHour,
                  local.wMinute, local.wSecond);
}

const char16_t* PriorityName(unsigned priority)
{
    switch (priority) {
    case IDLE_PRIORITY_CLASS: return u"Low";
    case BELOW_NORMAL_PRIORITY_CLASS: return u"BelowNormal";
    case NORMAL_PRIORITY_CLASS: return u"Normal";
    case ABOVE_NORMAL_PRIORITY_CLASS: return u"AboveNormal";
    case HIGH_PRIORITY_CLASS: return u"High";
    case REALTIME_PRIORITY_CLASS: return u"RealTime";
    default: return u"";
    }
}

// "b", "k", "m" and "g": bytes, or so many times 1024 of them. Nothing for anything else.
std::optional<std::uint64_t> UnitOf(View text)
{
    constexpr View letters = u"bkmg";
    const CString unit = CString(text).Trim();
    if (unit.empty())
        return 1;
    const std::size_t power = letters.find(LowerCase(unit.front()));
    if (unit.size() != 1 || power == View::npos)
        return std::nullopt;
    return std::uint64_t{1} << 10 * power;
}

} // namespace

// @isproc[process]: 1 while it runs.
int Isproc_Function(FunctionCall& call)
{
    unsigned process = 0;
    const int error = ReadProcess(call.arguments, process);
    return error == Refuse(errors::missingArgument) ? error : answer::Flag(call, error == 0);
}

// @pid[program]: the numbers of all processes that run it, 0 when there is none.
int Pid_Function(FunctionCall& call)
{
    const CString wanted = FileArgument(call.arguments);
    if (wanted.empty())
        return Refuse(errors::missingArgument);
    CString text;
    for (const ProcessEntry& entry : AllProcesses())
        if (entry.process != 0 && ProgramMatches(wanted, entry.program))
            FormatInto(text, text.empty() ? u"%u" : u" %u", {entry.process});
    return answer::ForeignText(call, text.empty() ? View(u"0") : text.view());
}

// @ppid[process]: the process that started it; 0 when the system has forgotten.
int Ppid_Function(FunctionCall& call)
{
    unsigned process = 0;
    if (const int error = ReadProcess(call.arguments, process))
        return error;
    for (const ProcessEntry& entry : AllProcesses())
        if (entry.process == process)
            return answer::Number(call, entry.parent);
    return answer::Number(call, 0);
}

// @pidcommand[process]: its command line. @piduser[process]: the user that it runs as, "DOMAIN\name".
int Pidcommand_Function(FunctionCall& call)
{
    unsigned process = 0;
    if (const int error = ReadProcess(call.arguments, process))
        return error;
    const CString line = CommandLineOf(process);
    return line.empty() ? Refuse(GetLastError()) : answer::ForeignText(call, line);
}

int Piduser_Function(FunctionCall& call)
{
    unsigned process = 0;
    if (const int error = ReadProcess(call.arguments, process))
        return error;
    const CString user = UserOf(process);
    return user.empty() ? Refuse(GetLastError()) : answer::ForeignText(call, user);
}

// @priority[process]: Low, BelowNormal, Normal, AboveNormal, High or RealTime.
int Priority_Function(FunctionCall& call)
{
    unsigned process = 0;
    if (const int error = ReadProcess(call.arguments, process))
        return error;
    const unsigned priority = PriorityClassOf(process);
    return priority == 0 ? Refuse(GetLastError()) : answer::ForeignText(call, PriorityName(priority));
}

// @processio[process[,n]]: 0 bytes read, 1 bytes written, 2 bytes of other kinds, 3 to 5 the calls for them.
int Processio_Function(FunctionCall& call)
{
    const ProcessFact wanted(call, 6);
    if (wanted.error)
        return wanted.error;
    const auto counters = ReadProcessCounters(wanted.process);
    if (!counters)
        return Refuse(GetLastError());
    const ULONGLONG facts[] = {counters->ReadTransferCount,   counters->WriteTransferCount,
                               counters->OtherTransferCount,  counters->ReadOperationCount,
                               counters->WriteOperationCount, counters->OtherOperationCount};
    return answer::ForeignText(call, Format(u"%I64u", facts[wanted.fact]));
}

// @processtime[process[,n]]: 0 when it was started, 1 when it ended (empty while it runs), 2 the milliseconds
// that it spent in the system and 3 in itself.
int Processtime_Function(FunctionCall& call)
{
    constexpr std::uint64_t unitsPerMillisecond = 10000;
    const ProcessFact wanted(call, 4);
    if (wanted.error)
        return wanted.error;
    const auto times = ReadProcessTimes(wanted.process);
    if (!times)
        return Refuse(GetLastError());
    switch (wanted.fact) {
    case 0: return answer::ForeignText(call, LocalMoment(times->created));
    case 1: return answer::ForeignText(call, LocalMoment(times->ended));
    case 2: return answer::ForeignText(call, Format(u"%I64u", times->kernel / unitsPerMillisecond));
    default: return answer::ForeignText(call, Format(u"%I64u", times->user / unitsPerMillisecond));
    }
}

// @handleinfo[process]: how many handles it has open.
int Handleinfo_Function(FunctionCall& call)
{
    unsigned process = 0;
    if (const int error = ReadProcess(call.arguments, process))
        return error;
    const auto count = HandleCountOf(process);
    return count ? answer::Number(call, *count) : Refuse(GetLastError());
}

// @console[process]: 1 when it shares this console.
int Console_Function(FunctionCall& call)
{
    unsigned process = 0;
    if (const int error = ReadProcess(call.arguments, process))
        return error;
    bool shares = false;
    for (const unsigned one : ConsoleProcesses())
        shares = shares || one == process;
    return answer::Flag(call, shares);
}

// @dosmem[unit]: the memory that is free for programs, in bytes or in units of b, k, m or g.
int Dosmem_Function(FunctionCall& call)
{
    const auto unit = UnitOf(call.arguments);
    MEMORYSTATUSEX memory = {};
    memory.dwLength = sizeof memory;
    if (!unit)
        return Refuse(errors::syntax);
    GlobalMemoryStatusEx(&memory);
    return answer::ForeignText(call, Format(u"%I64u", memory.ullAvailPhys / *unit));
}

// @winmemory[n]: 0 the memory in use in percent, 1 and 2 all and free memory in bytes, 3 and 4 the same with
// the paging file, 5 and 6 the same of the addresses of this process.
int Winmemory_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    MEMORYSTATUSEX memory = {};
    memory.dwLength = sizeof memory;
    GlobalMemoryStatusEx(&memory);
    const DWORDLONG facts[] = {memory.dwMemoryLoad,     memory.ullTotalPhys,     memory.ullAvailPhys,
                               memory.ullTotalPageFile, memory.ullAvailPageFile, memory.ullTotalVirtual,
                               memory.ullAvailVirtual};
    const std::int64_t n = arguments.Number(0);
    if (n < 0 || n >= static_cast<std::int64_t>(std::size(facts)))
        return Refuse(errors::invalidNumber);
    return answer::ForeignText(call, Format(u"%I64u", facts[n]));
}

// @errtext[n]: what Windows, or the shell, says for the number of an error.
int Errtext_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    return answer::ForeignText(call, ErrorText(static_cast<unsigned>(arguments.Number(0))));
}

// @debug[text]: hands the text to the program that debugs the shell, if one does, and answers 0.
int Debug_Function(FunctionCall& call)
{
    OutputDebugStringW(CString(call.arguments).w());
    return answer::Number(call, 0);
}

// @systemtime[n]: what the processors have done since the system started, all of them together, in
// milliseconds: 0 idle, 1 in the system, 2 in programs.
int Systemtime_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    FILETIME idle;
    FILETIME kernel; // idle time included
    FILETIME user;
    if (!GetSystemTimes(&idle, &kernel, &user))
        return SystemError();
    const std::uint64_t ticks[] = {FileTimeNumber(idle), FileTimeNumber(kernel) - FileTimeNumber(idle),
                                   FileTimeNumber(user)};
    const std::int64_t n = arguments.Number(0);
    if (n < 0 || n >= static_cast<std::int64_t>(std::size(ticks)))
        return Refuse(errors::invalidNumber);
    return answer::Number(call, static_cast<std::int64_t>(ticks[n] / 10'000));
}
