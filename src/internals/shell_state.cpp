// The state of the shell and of the batch file that runs.
#include "internals/families.h"

#include <algorithm>

#include <windows.h>

#include "engine/country.h"
#include "engine/inifile.h"
#include "engine/logs.h"
#include "engine/output.h"
#include "engine/state.h"
#include "engine/version.h"
#include "expand/list_keeper.h"
#include "files/descriptions.h"
#include "internals/values.h"
#include "movacore_version.h"
#include "platform/codepage.h"
#include "platform/console_size.h"
#include "platform/process_family.h"
#include "platform/process_list.h"
#include "platform/text_output.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

// The directory part of a full name, with its separator.
std::u16string_view DirectoryOf(std::u16string_view name)
{
    return name.substr(0, name.find_last_of(u"\\/:") + 1);
}

// How the text of the current batch file is kept.
enum class BatchType { None, File, Memory, Packed };

} // namespace

// The result of the last internal command; after a GOSUB what its RETURN gave.
bool LastResult_Variable(CString& value) { return AnswerNumber(value, Tls().lastInternalResult); }
// How many batch files run inside each other.
bool Batch_Variable(CString& value) { return AnswerNumber(value, Tls().batchIndex + 1); }

bool Batchlabel_Variable(CString& value)
{
    const BATCH_FRAME* frame = Tls().Frame();
    return AnswerText(value, frame && !frame->labels.empty() ? frame->labels.back().view() : u"");
}

// The line that runs, counted from 1; 0 outside batch files.
bool Batchline_Variable(CString& value)
{
    const BATCH_FRAME* frame = Tls().Frame();
    return AnswerNumber(value, frame ? frame->lineNumber : 0u);
}

bool Batchname_Variable(CString& value)
{
    const BATCH_FRAME* frame = Tls().Frame();
    return AnswerText(value, frame ? frame->fileName.view() : u"");
}

bool Batchpath_Variable(CString& value)
{
    const BATCH_FRAME* frame = Tls().Frame();
    return AnswerText(value, frame ? DirectoryOf(frame->fileName) : u"");
}

// 0 outside batch files, 1 when read line by line, 2 when held in memory, 3 when it was packed.
bool Batchtype_Variable(CString& value)
{
    const BATCH_FRAME* frame = Tls().Frame();
    BatchType type = BatchType::None;
    if (frame && (frame->flags & frame_flags::packed))
        type = BatchType::Packed;
    else if (frame)
        type = frame->file == batchFileInMemory ? BatchType::Memory : BatchType::File;
    return AnswerNumber(value, static_cast<int>(type));
}

// The batch file that called the current one.
bool Pbatchname_Variable(CString& value)
{
    const TLS_VARIABLES& state = Tls();
    const std::size_t index = static_cast<std::size_t>(state.batchIndex);
    return AnswerText(value, state.batchIndex > 0 ? state.frames[index - 1].fileName.view() : u"");
}

bool Echo_Variable(CString& value) { return AnswerFlag(value, QueryEcho()); }
bool Expansion_Variable(CString& value) { return AnswerNumber(value, aGlobals.expansionMask); }
// The code that the shell ends with, for the exit file.
bool Exit_Variable(CString& value) { return AnswerNumber(value, aGlobals.exitCode); }
bool Transient_Variable(CString& value) { return AnswerFlag(value, aGlobals.transient != 0); }
// Whether this shell is the right side of a pipe.
bool Pipe_Variable(CString& value) { return AnswerFlag(value, Tls().pipeChild); }
// 0 in a shell that no other shell started.
bool Shell_Variable(CString& value) { return AnswerFlag(value, aGlobals.secondary != 0); }
// Whether the global lists are kept when the last shell ends.
bool Shralias_Variable(CString& value) { return AnswerFlag(value, QueryListKeeper()); }
// The number of the last Windows error that was reported.
bool Syserr_Variable(CString& value) { return AnswerNumber(value, Tls().lastSystemError); }
// Process ids of the last START and the last DETACH, 0 before the first.
bool Startpid_Variable(CString& value) { return AnswerNumber(value, Tls().startedProcess); }
bool Detachpid_Variable(CString& value) { return AnswerNumber(value, Tls().detachedProcess); }

bool Cmdproc_Variable(CString& value) { return AnswerText(value, u"ORV"); }
bool Cmdspec_Variable(CString& value) { return AnswerText(value, aTexts.executable); }
bool Ininame_Variable(CString& value) { return AnswerText(value, aTexts.iniFile); }
bool Startpath_Variable(CString& value) { return AnswerText(value, aTexts.startDirectory); }
bool Orvrun_Variable(CString& value) { return AnswerText(value, DirectoryOf(aTexts.executable)); }

// The name of the files that descriptions are kept in.
bool Dname_Variable(CString& value) { return AnswerText(value, DescriptionFileName()); }

bool Version_Variable(CString& value)
{
    value = Format(u"%d.%d", shell_version::major, shell_version::minor);
    return true;
}

bool Orvver_Variable(CString& value) { return Version_Variable(value); }
bool Vermajor_Variable(CString& value) { return AnswerNumber(value, shell_version::major); }
bool Verminor_Variable(CString& value) { return AnswerNumber(value, shell_version::minor); }
bool Build_Variable(CString& value) { return AnswerNumber(value, MOVACORE_VERSION_BUILD); }

bool Columns_Variable(CString& value) { return AnswerNumber(value, OutputSize().columns); }
bool Rows_Variable(CString& value) { return AnswerNumber(value, OutputSize().rows); }
bool Codepage_Variable(CString& value) { return AnswerNumber(value, OutputCodePage()); }
bool Ansi_Variable(CString& value) { return AnswerFlag(value, aGlobals.ansiSequences != 0); }
// 1 when the handle leads to the console, 0 when it is redirected.
bool Stdin_Variable(CString& value) { return AnswerFlag(value, IsConsole(0)); }
bool Stdout_Variable(CString& value) { return AnswerFlag(value, IsConsole(1)); }
bool Stderr_Variable(CString& value) { return AnswerFlag(value, IsConsole(2)); }

// The version of the shell, its decimal point as the country writes it.
bool Qver_Variable(CString& value)
{
    value = Format(u"%d%c%d", shell_version::major, Country().decimal, shell_version::minor);
    return true;
}

// Whether this is an edition that runs scripts only: there is none.
bool Orvrt_Variable(CString& value) { return AnswerFlag(value, false); }
// No batch file is stepped through.
bool Bdebugger_Variable(CString& value) { return AnswerFlag(value, false); }
// What a Ruby script answered last, and of which type.
bool Rubytype_Variable(CString& value) { return AnswerText(value, u""); }
bool Rubyvalue_Variable(CString& value) { return AnswerText(value, u""); }

// Process id of the last program that the shell ran or started.
bool Childpid_Variable(CString& value) { return AnswerNumber(value, Tls().childProcess); }

// The line that runs, as it was typed; in a shell with commands on its own command line, those.
bool Cmdline_Variable(CString& value)
{
    return AnswerText(value, aTexts.newestLine.empty() ? aTexts.startCommand : aTexts.newestLine);
}

bool Logfile_Variable(CString& value) { return AnswerText(value, LogFileName(Log::Commands)); }
bool Hlogfile_Variable(CString& value) { return AnswerText(value, LogFileName(Log::TypedLines)); }

// The start-up and the exit file, once they have run.
bool Mvstart_Variable(CString& value) { return AnswerText(value, aTexts.startupFile); }
bool Mvexit_Variable(CString& value) { return AnswerText(value, aTexts.exitFile); }

// When this shell was started: "2026-11-21 09:05:00", local time.
bool Orvstart_Variable(CString& value)
{
    FILETIME created, ended, kernel, user;
    SYSTEMTIME utc, local;
    if (!GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user) ||
        !FileTimeToSystemTime(&created, &utc) || !SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local))
        return true;
    value = Format(u"%04u-%02u-%02u %02u:%02u:%02u", local.wYear, local.wMonth, local.wDay, local.wHour,
                   local.wMinute, local.wSecond);
    return true;
}

// The shortcut that the shell was started by.
bool Shortcut_Variable(CString& value)
{
    constexpr DWORD titleIsLink = 0x800; // of STARTUPINFO's flags
    STARTUPINFOW start = {};
    GetStartupInfoW(&start);
    if ((start.dwFlags & titleIsLink) != 0 && start.lpTitle)
        value = reinterpret_cast<const char16_t*>(start.lpTitle);
    return true;
}

// Whether files and pipes get UTF-16.
bool Unicode_Variable(CString& value)
{
    return AnswerFlag(value, CurrentOutputEncoding() == OutputEncoding::Utf16);
}

// How many shells share this console, run on this machine, and how many programs use the engine.
bool Shells_Variable(CString& value)
{
    unsigned count = 0;
    for (const unsigned process : ConsoleProcesses())
        count += EqualNoCase(ProgramOfProcess(process), FileNamePart(aTexts.executable)) ? 1 : 0;
    return AnswerNumber(value, std::max(count, 1u));
}

bool Orvinstances_Variable(CString& value)
{
    unsigned count = 0;
    for (const ProcessEntry& entry : AllProcesses())
        count += EqualNoCase(entry.program, u"ORV.EXE") ? 1 : 0;
    return AnswerNumber(value, count);
}

bool Movainstances_Variable(CString& value)
{
    return AnswerNumber(value, CountProcessesWithModule(u"Movacore.dll"));
}

// The exit code of the command that @execstr ran last, and how many elements @execarray and @filearray
// filled.
bool Execstr_Variable(CString& value) { return AnswerNumber(value, Tls().execStrResult); }
bool Execarray_Variable(CString& value) { return AnswerNumber(value, Tls().execArrayCount); }
bool Filearray_Variable(CString& value) { return AnswerNumber(value, Tls().fileArrayCount); }
