// Lines for the prompt: typed at the console, or read from standard input when that leads elsewhere.
#include <algorithm>
#include <string>

#include <windows.h>

#include "console/console_modes.h"
#include "console/prompt_line.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/country.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/state.h"
#include "files/text_encoding.h"
#include "platform/clock.h"
#include "platform/codepage.h"
#include "platform/console.h"
#include "platform/console_keys.h"
#include "platform/console_typing.h"
#include "platform/standard_handles.h"

namespace {

constexpr char16_t controlZ = 0x1A;
constexpr char16_t byteOrderMark = 0xFEFF;

// The read can be over before the event that cut it has come through.
void WaitForBreak()
{
    constexpr std::uint64_t longest = 500;
    SleepWithPoll(longest, [] { return !QueryBreak(); });
    ThrowIfBroken();
}

// Ctrl+Z ends a line, and where it begins one the input, as on every console; a prompt goes on with the next
// line.
bool TakeEnd(CString& line, LinePurpose purpose)
{
    const bool ends = line.front() == controlZ && purpose != LinePurpose::Command;
    line.Truncate(line.view().find(controlZ));
    return !ends;
}

bool ReadFromConsole(CString& line, std::u16string_view prompt, LinePurpose purpose)
{
    PrepareConsole();
    UpdateTitleAndIcon({});
    QueryCountryInfo();
    EditorRequest request;
    request.prompt = prompt;
    request.text = line;
    request.command = purpose == LinePurpose::Command;
    EditorAnswer answer;
    if (!aIniFile.ReadConsole && EditConsoleLine(answer, request)) {
        line = answer.line;
        return TakeEnd(line, purpose) && answer.outcome != EditorOutcome::Ended;
    }
    TypeIntoConsole(line);
    WriteToConsole(prompt);
    const PassingColors typed(aIniFile.InputColors);
    switch (ReadTypedLine(line, ThrowIfBroken)) {
    case TypedLine::Complete: return TakeEnd(line, purpose);
    case TypedLine::Cut: WaitForBreak(); return true;
    case TypedLine::Ended: break;
    }
    return false;
}

int FlagsOf(TextEncoding encoding)
{
    return encoding == TextEncoding::Utf16  ? next_line::utf16
           : encoding == TextEncoding::Utf8 ? next_line::utf8
                                            : 0;
}

// Judges the file by its beginning, and leaves it where it stood, behind its mark at least.
int RecogniseFile(HANDLE file)
{
    constexpr std::size_t judgedBytes = 65536;
    LARGE_INTEGER place = {};
    SetFilePointerEx(file, {}, &place, FILE_CURRENT);
    std::string block(judgedBytes, '\0');
    OVERLAPPED beginning = {};
    DWORD got = 0;
    if (!ReadFile(file, block.data(), static_cast<DWORD>(block.size()), &got, &beginning))
        got = 0;
    const RecognisedEncoding found = RecogniseTextFile(std::string_view(block).substr(0, got));
    place.QuadPart = std::max<LONGLONG>(place.QuadPart, static_cast<LONGLONG>(found.markLength));
    SetFilePointerEx(file, place, nullptr, FILE_BEGIN);
    return FlagsOf(found.encoding) | next_line::notPipe;
}

// Whether it is UTF-16 has to be known before the first line is read; a mark of that is taken out of the
// pipe.
int RecognisePipe(HANDLE pipe)
{
    constexpr DWORD step = 5;    // milliseconds
    constexpr int patience = 40; // steps to wait for the second byte, which may never come
    char head[512];
    DWORD got = 0;
    for (int steps = 0; steps < patience; steps += static_cast<int>(got)) {
        if (!PeekNamedPipe(pipe, head, sizeof head, &got, nullptr, nullptr) || got > 1)
            break;
        ThrowIfBroken();
        SleepEx(step, TRUE);
    }
    const RecognisedEncoding found = RecogniseTextFile({head, got});
    if (found.encoding != TextEncoding::Utf16)
        return 0;
    if (found.markLength > 0)
        ReadFile(pipe, head, static_cast<DWORD>(found.markLength), &got, nullptr);
    return next_line::utf16;
}

int InputFlags(HANDLE input)
{
    switch (KindOfHandle(input)) {
    case HandleKind::File: return RecogniseFile(input);
    case HandleKind::Pipe: return RecognisePipe(input);
    default: return 0;
    }
}

// Looks at the input when it has not been seen before; answers whether that was so.
bool MeetInput(HANDLE input)
{
    StandardInputEncoding& known = Tls().inputEncoding;
    if (known.handle == input)
        return false;
    known = {input, InputFlags(input)};
    return true;
}

bool ReadFromStandardInput(CString& line)
{
    const HANDLE input = StandardHandle(0);
    const bool first = MeetInput(input);
    const StandardInputEncoding& known = Tls().inputEncoding;
    if (GetNextLine(reinterpret_cast<std::intptr_t>(input), line, known.flags, {}, longestLine) == 0)
        return false;
    if (first && line.front() == byteOrderMark)
        line.Erase(0, 1);
    return line.front() != controlZ;
}

bool ReadBytes(HANDLE input, std::string& bytes, DWORD count)
{
    char read[4] = {};
    DWORD got = 0;
    if (!ReadFile(input, read, count, &got, nullptr) || got < count)
        return false;
    bytes.append(read, got);
    return true;
}

// How many bytes follow the first one of a character in UTF-8.
DWORD FollowingBytes(char first)
{
    const auto lead = static_cast<unsigned char>(first);
    return lead < 0xC2 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF5 ? 3 : 0;
}

// One character as it stands; the bytes of one in a code page may turn out to be several.
bool ReadEncoded(HANDLE input, int flags, CString& character)
{
    std::string bytes;
    const bool wide = (flags & next_line::utf16) != 0;
    if (!ReadBytes(input, bytes, wide ? 2 : 1))
        return false;
    if (wide) {
        character = CString(1, static_cast<char16_t>(static_cast<unsigned char>(bytes[0]) |
                                                     static_cast<unsigned char>(bytes[1]) << 8));
        return true;
    }
    if (const DWORD more = FollowingBytes(bytes[0]))
        ReadBytes(input, bytes, more);
    character = IsValidUtf8(bytes) ? FromUtf8(bytes) : FromCodePage(bytes, InputCodePage());
    return true;
}

} // namespace

bool ReadInputCharacter(CString& character)
{
    const HANDLE input = StandardHandle(0);
    MeetInput(input);
    do {
        ThrowIfBroken();
        if (!ReadEncoded(input, Tls().inputEncoding.flags, character))
            return false;
    } while (character == u"\r" || character.front() == byteOrderMark);
    return character.front() != controlZ;
}

bool AwaitInput(std::optional<std::uint64_t> milliseconds)
{
    if (!milliseconds || KindOfHandle(StandardHandle(0)) != HandleKind::Pipe)
        return true;
    return !SleepWithPoll(*milliseconds, [] {
        ThrowIfBroken();
        DWORD waiting = 0;
        return PeekNamedPipe(StandardHandle(0), nullptr, 0, nullptr, &waiting, nullptr) && waiting == 0;
    });
}

bool ReadConsoleLine(CString& line, std::u16string_view prompt, LinePurpose purpose)
{
    ThrowIfBroken();
    line.Clear();
    return IsConsole(0) ? ReadFromConsole(line, prompt, purpose) : ReadFromStandardInput(line);
}

bool EditConsoleText(CString& text, std::u16string_view prompt)
{
    ThrowIfBroken();
    return IsConsole(0) ? ReadFromConsole(text, prompt, LinePurpose::Answer) : ReadFromStandardInput(text);
}
