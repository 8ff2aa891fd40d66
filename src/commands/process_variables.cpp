#include "commands/process_variables.h"

#include <algorithm>

#include <windows.h>

#include "commands/definitions.h"
#include "core/command_switches.h"
#include "core/process_choice.h"
#include "engine/results.h"
#include "lang/function_messages.h"
#include "platform/process_family.h"
#include "platform/process_list.h"
#include "platform/process_memory.h"
#include "text/compare.h"
#include "text/format.h"

const CommandHelp setpHelp = {
    u"Shows, sets or removes variables of another process.",
    u"SETP [/P:process] [name]\n"
    u"SETP [/O] [/P:process] name=[value]\n"
    u"SETP /R [/O] [/P:process] [file ...]",
    u"/O          leave variables alone that exist already\n"
    u"/P:process  the process, by its number or the name of its program; without it, the one that started "
    u"this shell\n"
    u"/R          read lines \"name=value\" from files or standard input\n"
    u"Without \"=\" all variables are shown whose names begin with the text or match its wildcards. Nothing "
    u"behind the \"=\" removes the variable. The process sees a change the next time it looks; many "
    u"programs look only when they start. It must belong to the same user, and have the same word size when "
    u"it is changed.",
    u"setp\n"
    u"setp path\n"
    u"setp greeting=Hello\n"
    u"setp /p:explorer EDITOR=notepad.exe",
};

const CommandHelp unsetpHelp = {
    u"Removes variables of another process.",
    u"UNSETP [/P:process] [/Q] name ...\n"
    u"UNSETP /R [/P:process] [/Q] [file ...]",
    u"/P:process  the process, by its number or the name of its program; without it, the one that started "
    u"this shell\n"
    u"/Q          no message when nothing was there to remove\n"
    u"/R          read the names from files or standard input\n"
    u"Names may hold the wildcards *, ? and [...].",
    u"unsetp greeting\n"
    u"unsetp /p:explorer EDITOR",
};

namespace {

constexpr unsigned readRights = PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ;
constexpr unsigned writeRights =
    readRights | PROCESS_QUERY_INFORMATION | PROCESS_CREATE_THREAD | PROCESS_VM_OPERATION | PROCESS_VM_WRITE;

class ProcessStore : public DefinitionStore {
public:
    explicit ProcessStore(unsigned which) : process(which) {}
    bool Exists() const override { return true; }

    std::vector<CString> Entries() const override
    {
        std::vector<CString> entries;
        const OwnedHandle handle = OpenProcessFor(process, readRights);
        if (handle)
            ReadProcessEnvironment(handle.Get(), entries);
        std::erase_if(entries, [](const CString& entry) { return entry.front() == u'='; });
        return entries;
    }

    bool Find(std::u16string_view name, NameMatch, CString& entry) const override
    {
        const std::vector<CString> entries = Entries();
        const auto found = std::find_if(entries.begin(), entries.end(), [&](const CString& one) {
            return EqualNoCase(EntryName(one), EntryName(name));
        });
        if (found != entries.end())
            entry = *found;
        return found != entries.end();
    }

    int Define(CString& entry, std::u16string_view) override
    {
        if (!NormalizeEntry(entry, EntryKind::Environment))
            return MVError(errors::syntax, entry);
        const OwnedHandle handle = OpenProcessFor(process, writeRights);
        const CString value = EntryValue(entry);
        const bool done = handle && SetProcessVariable(handle.Get(), EntryName(entry),
                                                       value.empty() ? nullptr : value.c_str());
        return done ? result::success : MVError(0, EntryName(entry));
    }

private:
    unsigned process;
};

// 0 and the process that /P asks for, or the result of a reported error.
int ChooseProcess(CString& arguments, unsigned& process)
{
    CString name;
    const bool named = TakeSwitchText(arguments, u"P", name);
    process = named ? FindProcess(name) : ParentProcess();
    const OwnedHandle handle = OpenProcessFor(process, readRights);
    std::vector<CString> entries;
    if (process == 0 || (!handle && GetLastError() == ERROR_INVALID_PARAMETER))
        return MVError(errors::noProcess, name);
    if (!handle || !ReadProcessEnvironment(handle.Get(), entries))
        return MVError(0, named ? name : Format(u"%u", process));
    return result::success;
}

} // namespace

int Setp_Command(CString& arguments)
{
    unsigned process = 0;
    std::uint64_t switches = 0;
    if (const int code = ChooseProcess(arguments, process))
        return code;
    if (const int code = ReadSwitches(arguments, u"OR", switches, SwitchPlace::Leading))
        return code;
    DefinitionRequest request;
    request.stores.push_back(std::make_unique<ProcessStore>(process));
    request.nameEndsAtBlank = false;
    request.queryByPrefix = true;
    request.keepExisting = (switches & 1) != 0;
    request.fromFiles = (switches & 2) != 0;
    const int code = RunDefinitions(arguments, request);
    if (code == definition_result::usage)
        return UsageError();
    return code == definition_result::notDefined ? MVError(errors::noProcessVariable, arguments) : code;
}

int Unsetp_Command(CString& arguments)
{
    unsigned process = 0;
    std::uint64_t switches = 0;
    if (const int code = ChooseProcess(arguments, process))
        return code;
    if (const int code = ReadSwitches(arguments, u"QR", switches, SwitchPlace::Leading))
        return code;
    RemovalRequest request;
    request.stores.push_back(std::make_unique<ProcessStore>(process));
    request.fromFiles = (switches & 2) != 0;
    const int code = RemoveDefinitions(arguments, request);
    if (code == definition_result::usage)
        return UsageError();
    if (code == definition_result::notDefined)
        return (switches & 1) != 0 ? result::error : MVError(errors::noProcessVariable, arguments);
    return code;
}
