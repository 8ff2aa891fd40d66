// Lines of the clipboards and of the shell's temporary files, and writing them.
#include "functions/families.h"

#include <windows.h>

#include "core/clipboards.h"
#include "core/pseudo_devices.h"
#include "engine/output.h"
#include "files/text_lines.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "platform/handle.h"
#include "platform/text_output.h"

namespace {

using View = std::u16string_view;

// Line `n` of the text from 0, without its end; nothing behind the last.
View LineOf(View text, std::int64_t n)
{
    while (n-- > 0) {
        const std::size_t end = text.find(u'\n');
        if (end == View::npos)
            return {};
        text.remove_prefix(end + 1);
    }
    View line = text.substr(0, text.find(u'\n'));
    if (line.ends_with(u'\r'))
        line.remove_suffix(1);
    return line;
}

// Reads "line[,number]" or "text,number"; `number` must be below `count`.
int ReadPlace(const FunctionArguments& arguments, std::int64_t number, int count)
{
    if (arguments.Error())
        return arguments.Error();
    return number < 0 || number >= count ? Refuse(errors::invalidNumber) : 0;
}

} // namespace

// @clip[line[,n]]: a line of clipboard n (0 is that of Windows, 1 to 9 are the shell's own).
int Clip_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n|n");
    const std::int64_t clipboard = arguments.Number(1);
    if (const int error = ReadPlace(arguments, clipboard, clipboardCount))
        return error;
    if (arguments.Number(0) < 0)
        return Refuse(errors::invalidNumber);
    CString text;
    if (!ReadClipboard(static_cast<int>(clipboard), text) && GetLastError() != ERROR_NOT_FOUND)
        return Refuse(GetLastError());
    return answer::ForeignText(call, LineOf(text, arguments.Number(0)));
}

// @clipw[text]: puts the text on the clipboard. @clipwn[text,n]: on clipboard n. Both answer 0.
int Clipw_Function(FunctionCall& call)
{
    return WriteClipboard(0, call.arguments) ? answer::Number(call, 0) : Refuse(GetLastError());
}

int Clipwn_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn");
    if (const int error = ReadPlace(arguments, arguments.Number(1), clipboardCount))
        return error;
    return WriteClipboard(static_cast<int>(arguments.Number(1)), arguments.Text(0)) ? answer::Number(call, 0)
                                                                                    : Refuse(GetLastError());
}

// @tmp[line[,n]]: a line of the temporary file TMPn:. @tmpwn[text,n]: makes the text its contents, answers 0.
int Tmp_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n|n");
    if (const int error = ReadPlace(arguments, arguments.Number(1), temporaryDevices))
        return error;
    if (arguments.Number(0) < 0)
        return Refuse(errors::invalidNumber);
    TextLines lines;
    View line;
    if (!lines.Open(TemporaryDeviceFile(static_cast<int>(arguments.Number(1)))))
        return answer::ForeignText(call, {});
    for (std::int64_t n = arguments.Number(0); n >= 0; --n)
        if (!lines.Next(line))
            return answer::ForeignText(call, {});
    return answer::ForeignText(call, line);
}

int Tmpwn_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn");
    if (const int error = ReadPlace(arguments, arguments.Number(1), temporaryDevices))
        return error;
    const CString name = TemporaryDeviceFile(static_cast<int>(arguments.Number(1)));
    const OwnedHandle file(CreateFileW(name.w(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                       FILE_ATTRIBUTE_TEMPORARY, nullptr));
    const CString text = CString(arguments.Text(0)) + u"\r\n";
    return file && WriteTextToFile(file.Get(), text, CurrentOutputEncoding()) ? answer::Number(call, 0)
                                                                              : Refuse(GetLastError());
}
