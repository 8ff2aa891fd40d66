#include "commands/system_report.h"

#include <windows.h>

#include "core/command_switches.h"
#include "core/pseudo_devices.h"
#include "engine/break.h"
#include "engine/expansion_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "lang/function_messages.h"
#include "platform/clock.h"
#include "platform/file_facts.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp lookuperrorsHelp = {
    u"Shows what the numbers of errors mean.",
    u"LOOKUPERRORS number ...\n"
    u"LOOKUPERRORS text",
    u"A number is that of a Windows error, an NTSTATUS or an HRESULT, decimal, negative or hexadecimal "
    u"(0x); every meaning that it has is shown. A text is looked for in the texts of all Windows errors.",
    u"lookuperrors 5\n"
    u"lookuperrors 0xC0000005 -2147024891\n"
    u"lookuperrors sharing",
};

const CommandHelp memoryHelp = {
    u"Shows the memory of the machine and of the shell's lists.",
    u"MEMORY",
    u"First the machine: the memory in use, physical memory, what may be committed (with the paging file), "
    u"and the addresses of this process. Then the shell: room and use of the lists of aliases, functions "
    u"and both histories, in bytes.",
    u"memory",
};

const CommandHelp tmpHelp = {
    u"Shows or deletes the temporary files TMP0: to TMP2: of this shell.",
    u"TMP [/D] [number ...]",
    u"/D  delete the files\n"
    u"Without numbers all of them are meant. They hold what was redirected to the devices of these names "
    u"and are deleted when the shell ends.",
    u"tmp\n"
    u"dir > tmp1: & tmp 1\n"
    u"tmp /d 1",
};

const CommandHelp uptimeHelp = {
    u"Shows how long the system has been running.",
    u"UPTIME [/S]",
    u"/S  the seconds only",
    u"uptime\n"
    u"uptime /s",
};

namespace {

CString Grouped(std::uint64_t number)
{
    CString text = Format(u"%I64u", number);
    AddCommas(text);
    return text;
}

bool PrintAmount(std::uint64_t number, unsigned label)
{
    return PrintFormat(u"%22s %s\r\n", Grouped(number), LoadMessage(label));
}

// A list that exists: its room and what is free of it.
void PrintList(ListKind kind, ListScope scope, unsigned label)
{
    const ListBlock block = QueryListBlock(kind, scope);
    if (!block)
        return;
    const std::size_t room = block.capacity * sizeof(char16_t);
    const std::size_t used = (EndOfList(block.View()) + 1) * sizeof(char16_t);
    const CString place = LoadMessage(scope == ListScope::Local ? message::listLocal : message::listGlobal);
    PrintFormat(u"%22s %s (%s)\r\n", Grouped(room), LoadMessage(label), place);
    PrintAmount(room > used ? room - used : 0, message::memoryFree);
}

int SearchErrors(std::u16string_view text)
{
    constexpr unsigned lastError = 16000; // Windows' own numbers end below
    bool found = false;
    for (unsigned number = 1; number < lastError; ++number) {
        ThrowIfBroken();
        const CString meaning = WindowsErrorText(number);
        if (FindNoCase(meaning, text) == CString::npos)
            continue;
        found = true;
        if (!PrintFormat(u"%u  %s\r\n", number, meaning))
            return MVError(0);
    }
    return found ? result::success : MVError(errors::noSuchError, text);
}

// The decimal, negative or hexadecimal number of an error.
std::optional<unsigned> ErrorNumber(std::u16string_view text)
{
    std::size_t used = 0;
    const auto number = BeginsNoCase(text, u"0x") ? ReadInteger(text, &used) : ReadDecimal(text, &used);
    if (!number || used != text.size() || *number < INT32_MIN || *number > 0xFFFFFFFFll)
        return std::nullopt;
    return static_cast<unsigned>(*number);
}

int ShowTemporary(int index)
{
    const CString name = TemporaryDeviceFile(index);
    const auto facts = ReadFileFacts(name);
    const CString size = facts ? Grouped(facts->size) : CString(u"-");
    return PrintFormat(u"TMP%d:  %14s  %s\r\n", index, size, name) ? result::success : MVError(0);
}

int DeleteTemporary(int index)
{
    const CString name = TemporaryDeviceFile(index);
    const bool gone = DeleteFileW(name.w()) || GetLastError() == ERROR_FILE_NOT_FOUND;
    return gone ? result::success : MVError(0, name);
}

} // namespace

int Lookuperrors_Command(CString& arguments)
{
    arguments.Trim();
    if (arguments.empty())
        return UsageError();
    const std::vector<CString> words = SplitArguments(arguments, true, CurrentSyntax());
    if (!ErrorNumber(words.front()))
        return SearchErrors(WithoutOuterQuotes(arguments));
    int code = result::success;
    for (const CString& word : words) {
        const auto number = ErrorNumber(word);
        if (!number)
            return MVError(errors::invalidNumber, word);
        if (LookupWindowsErrors(*number) != result::success)
            code = MVError(errors::noSuchError, word);
    }
    return code;
}

int Memory_Command(CString& arguments)
{
    arguments.Trim();
    if (!arguments.empty())
        return UsageError();
    MEMORYSTATUSEX memory = {};
    memory.dwLength = sizeof memory;
    if (!GlobalMemoryStatusEx(&memory))
        return MVError(0);
    PrintFormat(u"%20u %% %s\r\n\r\n", static_cast<unsigned>(memory.dwMemoryLoad),
                LoadMessage(message::memoryLoad));
    PrintAmount(memory.ullTotalPhys, message::memoryPhysical);
    PrintAmount(memory.ullAvailPhys, message::memoryFree);
    PrintAmount(memory.ullTotalPageFile, message::memoryCommit);
    PrintAmount(memory.ullAvailPageFile, message::memoryFree);
    PrintAmount(memory.ullTotalVirtual, message::memoryAddresses);
    PrintAmount(memory.ullAvailVirtual, message::memoryFree);
    Print(u"\r\n");
    constexpr struct {
        ListKind kind;
        unsigned label;
    } lists[] = {{ListKind::Aliases, message::memoryAliases},
                 {ListKind::Functions, message::memoryFunctions},
                 {ListKind::History, message::memoryHistory},
                 {ListKind::DirHistory, message::memoryDirHistory}};
    for (const auto& list : lists) {
        PrintList(list.kind, ListScope::Local, list.label);
        PrintList(list.kind, ListScope::Global, list.label);
    }
    return result::success;
}

int Tmp_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"D", switches))
        return code;
    std::vector<int> indexes;
    for (const CString& word : SplitArguments(arguments, true, CurrentSyntax())) {
        const auto number = ParseInteger(word);
        if (!number || *number < 0 || *number >= temporaryDevices)
            return MVError(errors::invalidNumber, word);
        indexes.push_back(static_cast<int>(*number));
    }
    if (indexes.empty())
        for (int index = 0; index < temporaryDevices; ++index)
            indexes.push_back(index);
    int code = result::success;
    for (const int index : indexes)
        if (const int failed = switches != 0 ? DeleteTemporary(index) : ShowTemporary(index))
            code = failed;
    return code;
}

int Uptime_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"S", switches))
        return code;
    if (!arguments.Trim().empty())
        return UsageError();
    const std::uint64_t seconds = Ticks() / 1000;
    CString text = Format(u"%I64u", seconds);
    if (switches == 0) {
        constexpr std::uint64_t day = 86400;
        text = Format(u"%I64u %s, %u:%02u:%02u", seconds / day,
                      LoadMessage(seconds / day == 1 ? message::uptimeDay : message::uptimeDays),
                      static_cast<unsigned>(seconds % day / 3600), static_cast<unsigned>(seconds % 3600 / 60),
                      static_cast<unsigned>(seconds % 60));
    }
    return PrintLine(text) ? result::success : MVError(0);
}
