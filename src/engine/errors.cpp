#include <algorithm>

#include <windows.h>

#include "engine/inifile.h"
#include "engine/logs.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/console.h"
#include "platform/lazy_library.h"
#include "text/cell_width.h"
#include "text/format.h"

namespace {

constexpr unsigned firstOwnCode = 0x20000000u;
constexpr unsigned lastOwnCode = 0x3FFFFFFFu;

bool IsOwnCode(unsigned code) { return code >= firstOwnCode && code <= lastOwnCode; }

// The text that a module, or the system, has for a number; empty when it has none.
CString TextFrom(unsigned code, HMODULE module)
{
    const DWORD english = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
    const DWORD flags =
        FORMAT_MESSAGE_IGNORE_INSERTS | (module ? FORMAT_MESSAGE_FROM_HMODULE : FORMAT_MESSAGE_FROM_SYSTEM);
    CString text;
    constexpr DWORD longest = 4096;
    auto fetch = [&](DWORD language) {
        return FormatMessageW(flags, module, code, language, reinterpret_cast<wchar_t*>(text.Edit(longest)),
                              longest, nullptr);
    };
    DWORD length = aIniFile.EnglishMessages ? fetch(english) : 0;
    if (length == 0)
        length = fetch(0);
    text.SetLength(length);
    return text.TrimRight(u" \r\n");
}

CString SystemText(unsigned code)
{
    const CString text = TextFrom(code, nullptr);
    return text.empty() ? Format(u"Error %u", code) : text;
}

// What the number means as a status of the kernel; such texts stand in the system's lowest library.
CString StatusText(unsigned code)
{
    constexpr unsigned severities = 0xC0000000u; // statuses that are no plain successes
    if ((code & severities) == 0)
        return {};
    static LazyLibrary systemLayer(L"ntdll.dll");
    static LazyFunction<ULONG WINAPI(LONG)> errorOfStatus(systemLayer, "RtlNtStatusToDosError");
    const CString text = TextFrom(code, GetModuleHandleW(L"ntdll.dll"));
    const unsigned number = errorOfStatus(static_cast<LONG>(code));
    if (number == 0 || number == ERROR_MR_MID_NOT_FOUND)
        return text;
    // Programs see the Windows error that the status becomes.
    return Format(text.empty() ? u"%s%u: %s" : u"%s (%u: %s)", text, number, SystemText(number));
}

constexpr std::size_t longestShown = 500; // units of an argument; what failed is known by then

// Puts the argument where the text asks for it, else behind it.
CString WithArgument(CString text, std::u16string_view whole)
{
    const CString cut = whole.size() > longestShown ? Format(u"%.*s...", longestShown, whole) : CString();
    const std::u16string_view argument = cut.empty() ? whole : cut.view();
    const std::size_t place = text.Find(u"%1");
    if (place != CString::npos)
        return text.Replace(place, 2, argument);
    if (argument.empty())
        return text;
    return argument.front() == u'"' ? Format(u"%s %s", text, argument) : Format(u"%s \"%s\"", text, argument);
}

// Hands the error to the batch file's ON ERROR or ON ERRORMSG command, which runs when the failing command
// has ended; true when it takes the place of the message.
bool TellBatchFile(BATCH_FRAME* frame)
{
    if (!frame || frame->onSet == 0)
        return false;
    for (const OnEvent event : {OnEvent::Error, OnEvent::ErrorMsg}) {
        if ((frame->onSet & ~frame->onRunning & OnBit(event)) == 0)
            continue;
        frame->onWaiting |= OnBit(event);
        return event == OnEvent::Error;
    }
    return false;
}

// The line end keeps the screen's own colours: a background would run on into the next line.
void ShowRow(std::u16string_view row)
{
    {
        const PassingColors colors(aIniFile.ErrorColors);
        PrintError(row);
    }
    PrintError(u"\r\n");
}

void ShowLine(std::u16string_view line, int column, int columns, int hanging)
{
    constexpr int narrowest = 16; // words hardly fit into that
    CString indent;
    for (int room = columns - 1 - column; columns > narrowest; room = columns - 1 - hanging) {
        const std::size_t end = WordsThatFit(line, room); // a row that is full would end twice
        if (end == line.size())
            break;
        ShowRow(indent + line.substr(0, end));
        line.remove_prefix(std::min(line.find_first_not_of(u' ', end), line.size()));
        indent = CString(static_cast<std::size_t>(hanging), u' ');
    }
    ShowRow(indent + line);
}

} // namespace

CString ErrorText(unsigned code)
{
    if (!IsOwnCode(code))
        return SystemText(code);
    CString text = LoadMessage(MessageNumber(code));
    return text.empty() ? Format(u"Error %u", MessageNumber(code)) : text;
}

void ShowMessage(std::u16string_view message, int hanging)
{
    const auto screen = IsConsole(2) ? ReadScreenFacts() : std::nullopt;
    if (!screen) {
        PrintError(CString(message).Append(u"\r\n"));
        return;
    }
    int column = screen->cursorColumn;
    while (!message.empty()) {
        const std::size_t end = std::min(message.find(u"\r\n"), message.size());
        ShowLine(message.substr(0, end), column, screen->columns, hanging);
        message.remove_prefix(std::min(end + 2, message.size()));
        column = 0;
    }
}

int MVError(unsigned code, std::u16string_view argument)
{
    if (static_cast<int>(code) < 1)
        code = GetLastError();
    if (!IsOwnCode(code))
        Tls().lastSystemError = code;
    CString line;
    if ((aIniFile.Debug & debug_bits::systemCodes) != 0)
        line = Format(u"ORV: %s", IsOwnCode(code) ? u"" : u"(Sys) ");
    line.Append(WithArgument(ErrorText(code), argument));
    line.TrimRight(u"\r\n");
    WriteLogLine(Log::Errors, line);
    if (!TellBatchFile(Tls().Frame()))
        ShowMessage(line);
    return result::error;
}

int BatchTextError(unsigned code, std::u16string_view argument, unsigned line)
{
    const BATCH_FRAME* frame = Tls().Frame();
    return frame ? MVError(code, Format(u"\"%s\" (%s, line %u)", argument, frame->fileName, line))
                 : MVError(code, argument);
}

int ErrorMsgBox(unsigned code, std::u16string_view argument) { return MVError(code, argument); }

void honk() { PrintError(u"\a"); }

CString WindowsErrorText(unsigned number) { return TextFrom(number, nullptr); }

int LookupWindowsErrors(unsigned number)
{
    const CString texts[] = {TextFrom(number, nullptr), StatusText(number),
                             IsOwnCode(number) ? LoadMessage(MessageNumber(number)) : CString()};
    bool known = false;
    for (const CString& text : texts) {
        if (!text.empty())
            PrintFormat(number < 0x80000000u ? u"%u  %s\r\n" : u"0x%08X  %s\r\n", number, text);
        known = known || !text.empty();
    }
    return known ? result::success : result::error;
}
