// Windows, the machine, the user and this process.
#include "internals/families.h"

#include <windows.h>

#include "internals/dos_name.h"
#include "internals/values.h"
#include "platform/handle.h"
#include "platform/process_family.h"
#include "platform/process_rights.h"
#include "platform/system_version.h"
#include "platform/user_name.h"

namespace {

// Calls a system function of the form f(buffer, size) that answers the length, or the size it needs.
template <typename Function> bool AnswerSystemText(CString& value, Function function)
{
    CString text;
    DWORD length = 260;
    for (int attempt = 0; attempt < 2; ++attempt) {
        const DWORD room = length + 1;
        length = function(reinterpret_cast<wchar_t*>(text.Edit(room)), room);
        if (length < room)
            break;
    }
    text.SetLength(length);
    return AnswerText(value, text);
}

} // namespace

bool Dos_Variable(CString& value)
{
    const SystemVersion system = ReadSystemVersion();
    return AnswerText(value, DosName(system.major * 100 + system.minor, system.build, system.server));
}

bool Winver_Variable(CString& value)
{
    const SystemVersion system = ReadSystemVersion();
    value = Format(u"%u.%u", system.major, system.minor);
    return true;
}

bool Dosver_Variable(CString& value) { return Winver_Variable(value); }
bool Osbuild_Variable(CString& value) { return AnswerNumber(value, ReadSystemVersion().build); }

bool Osbuildex_Variable(CString& value)
{
    const SystemVersion system = ReadSystemVersion();
    value = Format(u"%u.%u", system.build, system.revision);
    return true;
}

bool Windir_Variable(CString& value) { return AnswerSystemText(value, GetSystemWindowsDirectoryW); }
bool Winsysdir_Variable(CString& value) { return AnswerSystemText(value, GetSystemDirectoryW); }
// The directory of 32-bit system files.
bool Wow64dir_Variable(CString& value) { return AnswerSystemText(value, GetSystemWow64DirectoryW); }

// The letter of the drive that Windows runs from.
bool Boot_Variable(CString& value)
{
    Windir_Variable(value);
    value.Truncate(1);
    return true;
}

// Milliseconds since the system started.
bool Winticks_Variable(CString& value)
{
    value = Format(u"%I64u", GetTickCount64());
    return true;
}

bool Winuser_Variable(CString& value) { return AnswerText(value, LoggedOnUser()); }

// The computer's name.
bool Host_Variable(CString& value)
{
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = L"";
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    GetComputerNameW(name, &size);
    return AnswerText(value, reinterpret_cast<const char16_t*>(name));
}

bool Pid_Variable(CString& value) { return AnswerNumber(value, GetCurrentProcessId()); }
bool Ppid_Variable(CString& value) { return AnswerNumber(value, ParentProcess()); }
bool Parent_Variable(CString& value) { return AnswerText(value, ProgramOfProcess(ParentProcess())); }

// The processor's architecture level, as the environment of every program shows it too.
bool Cpu_Variable(CString& value)
{
    SYSTEM_INFO system;
    GetNativeSystemInfo(&system);
    return AnswerNumber(value, static_cast<unsigned>(system.wProcessorLevel));
}

// Whether Windows is a 64-bit one.
bool X64_Variable(CString& value)
{
    SYSTEM_INFO system;
    GetNativeSystemInfo(&system);
    return AnswerFlag(value, system.wProcessorArchitecture != PROCESSOR_ARCHITECTURE_INTEL);
}

bool Elevated_Variable(CString& value) { return AnswerFlag(value, IsElevated()); }
