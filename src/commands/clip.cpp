#include "commands/clip.h"

#include <algorithm>
#include <string>

#include <windows.h>

#include "core/clipboards.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_reader.h"
#include "lang/console_messages.h"
#include "platform/standard_handles.h"
#include "text/compare.h"
#include "text/numbers.h"

const CommandHelp clipHelp = {
    u"Copies text to a clipboard, and shows or clears clipboards.",
    u"CLIP [/N:number] [/A] [/F:file | /T text]\n"
    u"CLIP [/N:number] [/C | /L | /S] [/M:number | /X:number]",
    u"/A  append to what is there\n"
    u"/C  clear it\n"
    u"/F  the contents of a text file\n"
    u"/L  list all clipboards: number, characters, and the first line\n"
    u"/M  make a copy on the clipboard of this number\n"
    u"/N  which clipboard: 0, that of Windows, unless told; 1 to 9 are this shell's own; /N:* with /C means "
    u"all\n"
    u"/S  show it\n"
    u"/T  the text that follows, to the end of the line\n"
    u"/X  exchange it with the clipboard of this number\n"
    u"Without any of these what comes through a pipe or from a redirected file is copied, or else the "
    u"clipboard is shown. CLIP0: to CLIP9: are names of the clipboards in redirections, CLIP: is CLIP0:.",
    u"dir /b | clip\n"
    u"clip /n:3 /t Dear Sir or Madam,\n"
    u"clip /s > notes.txt\n"
    u"type notes.txt > clip2: & clip /n:2 /x:0",
};

namespace {

constexpr int allClipboards = -1;

struct ClipRequest {
    int number = 0;
    bool append = false, clear = false, list = false, show = false, text = false;
    std::optional<CString> file;
    std::optional<int> copyTo, exchangeWith;
};

std::optional<int> ClipboardNumber(std::u16string_view text)
{
    if (text.size() != 1 || !IsDigit(text[0]))
        return std::nullopt;
    return text[0] - u'0';
}

// False when the switch is none, or its value makes no sense.
bool TakeSwitch(ClipRequest& request, std::u16string_view one)
{
    const auto is = [&](char16_t letter) { return one.size() == 1 && UpperCase(one[0]) == letter; };
    const auto number = [&](std::u16string_view name) {
        const auto value = SwitchValue(one, name);
        return value ? ClipboardNumber(*value) : std::nullopt;
    };
    if (is(u'A') || is(u'C') || is(u'L') || is(u'S') || is(u'T')) {
        request.append |= is(u'A');
        request.clear |= is(u'C');
        request.list |= is(u'L');
        request.show |= is(u'S');
        request.text |= is(u'T');
        return true;
    }
    if (const auto clipboard = number(u"N")) {
        request.number = *clipboard;
        return true;
    }
    if (SwitchValue(one, u"N") == CString(u"*")) {
        request.number = allClipboards;
        return true;
    }
    if (const auto clipboard = number(u"M"))
        return (request.copyTo = clipboard).has_value();
    if (const auto clipboard = number(u"X"))
        return (request.exchangeWith = clipboard).has_value();
    const auto file = SwitchValue(one, u"F");
    return file && !file->empty() && (request.file = file).has_value();
}

int ReadRequest(CString& arguments, ClipRequest& request)
{
    CString one;
    while (!request.text && TakeLeadingSwitch(arguments, one))
        if (!TakeSwitch(request, one))
            return RefuseSwitch(one);
    const int actions = request.clear + request.list + request.show + request.text +
                        request.file.has_value() + request.copyTo.has_value() +
                        request.exchangeWith.has_value();
    const bool allowed = actions <= 1 && (request.number != allClipboards || request.clear) &&
                         (request.text || arguments.Trim().empty());
    return allowed ? result::success : UsageError();
}

// The text, empty when there is none; the result of a reported error when the clipboard cannot be read.
int ReadText(int number, CString& text)
{
    text.Clear();
    const bool done = ReadClipboard(number, text) || GetLastError() == ERROR_NOT_FOUND;
    return done ? result::success : MVError(0, u"CLIP:");
}

int WriteText(int number, std::u16string_view text)
{
    if (number > 0 && Tls().pipeChild)
        return MVError(errors::clipboardOfPipe, Format(u"%d", number));
    return WriteClipboard(number, text) ? result::success : MVError(0, u"CLIP:");
}

int Put(const ClipRequest& request, std::u16string_view text)
{
    CString old;
    if (request.append)
        if (const int code = ReadText(request.number, old))
            return code;
    return WriteText(request.number, old + text);
}

int Show(int number)
{
    CString text;
    if (const int code = ReadText(number, text))
        return code;
    if (text.empty())
        return MVError(errors::clipboardEmpty, Format(u"%d", number));
    if (text.back() != u'\n')
        text.Append(u"\r\n");
    return Print(text) ? result::success : MVError(0);
}

int List()
{
    constexpr std::size_t longest = 60;
    for (int number = 0; number < clipboardCount; ++number) {
        CString text;
        if (const int code = ReadText(number, text))
            return code;
        const std::u16string_view line = text.view().substr(0, text.view().find_first_of(u"\r\n"));
        const CString shown = Format(u"%d %8u  %s", number, text.size(), line.substr(0, longest));
        if (!PrintLine(CString(shown).TrimRight()))
            return MVError(0);
    }
    return result::success;
}

int Clear(int number)
{
    int code = result::success;
    for (int each = 0; each < clipboardCount; ++each)
        if (number == allClipboards || number == each)
            code = std::max(code, WriteText(each, {}));
    return code;
}

int Copy(int from, int to, bool exchange)
{
    CString text;
    CString other;
    if (const int code = ReadText(from, text))
        return code;
    if (exchange)
        if (const int code = ReadText(to, other))
            return code;
    const int code = WriteText(to, text);
    return code || !exchange ? code : WriteText(from, other);
}

int PutFile(const ClipRequest& request)
{
    TextReader reader;
    CString text;
    CString piece;
    if (!reader.Open(*request.file))
        return MVError(0, *request.file);
    do {
        ThrowIfBroken();
        if (!reader.Read(piece))
            return MVError(0, *request.file);
        text.Append(piece);
    } while (!piece.empty());
    return Put(request, text);
}

// All that a pipe or file still has to give.
int PutInput(const ClipRequest& request)
{
    constexpr std::size_t firstBlock = 65536; // judged for its encoding
    std::string bytes;
    char block[4096];
    DWORD count = 0;
    while (ReadFile(StandardHandle(0), block, sizeof block, &count, nullptr) && count > 0) {
        ThrowIfBroken();
        bytes.append(block, count);
    }
    const RecognisedEncoding found = RecogniseEncoding(std::string_view(bytes).substr(0, firstBlock));
    return Put(request, DecodeText(std::string_view(bytes).substr(found.markLength), found.encoding));
}

bool IsInputGiven()
{
    const HandleKind kind = KindOfHandle(StandardHandle(0));
    return kind == HandleKind::Pipe || kind == HandleKind::File;
}

} // namespace

int Clip_Command(CString& arguments)
{
    ClipRequest request;
    if (const int code = ReadRequest(arguments, request))
        return code;
    if (request.list)
        return List();
    if (request.clear)
        return Clear(request.number);
    if (request.copyTo || request.exchangeWith)
        return Copy(request.number, request.copyTo ? *request.copyTo : *request.exchangeWith,
                    request.exchangeWith.has_value());
    if (request.text)
        return Put(request, arguments);
    if (request.file)
        return PutFile(request);
    return request.show || !IsInputGiven() ? Show(request.number) : PutInput(request);
}
