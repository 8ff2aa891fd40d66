#include "commands/thread.h"

#include <algorithm>

#include <windows.h>

#include "core/command_switches.h"
#include "core/threads.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/clock.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp threadHelp = {
    u"Runs a command beside those that follow, in a thread of the shell.",
    u"THREAD command\n"
    u"THREAD\n"
    u"THREAD /K | /W [number ...]",
    u"/K  tells threads to end, all or those named; programs that they wait for are ended\n"
    u"/W  waits for threads, all or those named; the error level is the result of the last one\n"
    u"Without a command the threads are shown with their numbers, the time since they began and what they "
    u"run. The command may be a group in parentheses, or a batch file. It has an error level of its own, "
    u"begins outside of any batch file and writes where this command would write; environment, directory, "
    u"aliases and settings are those of the shell. Threads take turns: another one runs when a command has "
    u"ended or waits for a program, a key or a time. EXIT in a thread ends the thread. The shell waits for "
    u"its threads before it ends; Ctrl+C, or the end of the console, ends them. The result is 0, with /W "
    u"the last thread's, and 2 when there is no such thread or none can be made.",
    u"thread copy c:\\big.iso d:\\\n"
    u"thread (dir /s c:\\ > list.txt & beep)\n"
    u"thread /w",
};

namespace {

enum : std::uint64_t { endThem = 1, waitForThem = 2 };

using ThreadPointer = std::shared_ptr<CommandThread>;

CString FirstLine(const CString& command)
{
    const std::size_t end = command.Find(u'\n');
    return end == CString::npos ? command : command.Substr(0, end) + u" ...";
}

int ShowThreads()
{
    CString text;
    for (const ThreadPointer& thread : Threads().threads) {
        const std::uint64_t seconds = (Ticks() - thread->started) / 1000;
        if (!thread->ended)
            text.Append(Format(u"[%d]  %u:%02u:%02u  %s\r\n", thread->number, seconds / 3600,
                               seconds / 60 % 60, seconds % 60, FirstLine(thread->command)));
    }
    return text.empty() || Print(text) ? result::success : MVError(0);
}

// The threads that the words name, or all.
int FindThreads(std::u16string_view words, std::vector<ThreadPointer>& found)
{
    const std::vector<ThreadPointer>& threads = Threads().threads;
    const std::vector<CString> names = SplitArguments(words, true, CurrentSyntax());
    // A thread that waited for itself would wait for ever.
    for (const ThreadPointer& thread : threads)
        if (names.empty() && thread->id != GetCurrentThreadId())
            found.push_back(thread);
    for (const CString& name : names) {
        const auto number = ParseInteger(name);
        const auto thread = std::find_if(threads.begin(), threads.end(), [&](const ThreadPointer& each) {
            return number && each->number == *number && each->id != GetCurrentThreadId();
        });
        if (thread == threads.end())
            return MVError(errors::noSuchThread, name);
        found.push_back(*thread);
    }
    return result::success;
}

int WaitFor(const std::vector<ThreadPointer>& which)
{
    int code = result::success;
    for (const ThreadPointer& thread : which) {
        WaitForThread(*thread);
        code = thread->code;
    }
    Tls().errorLevel = code;
    return ResultOfExitCode(static_cast<unsigned>(code));
}

// Those that were waited for are done with.
void Forget(const std::vector<ThreadPointer>& which)
{
    std::vector<ThreadPointer>& threads = Threads().threads;
    for (const ThreadPointer& thread : which)
        threads.erase(std::remove(threads.begin(), threads.end(), thread), threads.end());
}

} // namespace

int Thread_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"KW", switches, SwitchPlace::Leading))
        return code;
    arguments.Trim();
    if (switches == 0) {
        if (arguments.empty())
            return ShowThreads();
        const unsigned failed = StartThread(arguments);
        return failed == 0 ? result::success : MVError(failed, arguments);
    }
    if (switches == (endThem | waitForThem))
        return UsageError();
    std::vector<ThreadPointer> which;
    if (const int code = FindThreads(arguments, which))
        return code;
    if (switches == endThem) {
        for (const ThreadPointer& thread : which)
            AskToEnd(*thread);
        return result::success;
    }
    const int code = WaitFor(which);
    Forget(which);
    return code;
}
