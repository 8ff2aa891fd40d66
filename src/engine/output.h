// Writing text to the standard handles.
//
// A console always gets UTF-16; files and pipes get the output code page, UTF-8 or UTF-16 as the settings
// UTF8Output and UnicodeOutput say. Nothing is buffered between calls: write whole lines, not characters.
#pragma once

#include <string_view>

#include "text/cstring.h"
#include "text/format.h"

// False when the handle refused (a closed pipe, a full disk); the Windows error stands in the last error.
bool Print(std::u16string_view text);
bool PrintError(std::u16string_view text);
bool PrintLine(std::u16string_view text); // with "\r\n"

template <typename... Arguments> bool PrintFormat(std::u16string_view pattern, const Arguments&... arguments)
{
    return Print(Format(pattern, arguments...));
}

// Whether standard handle `number` (0 input, 1 output, 2 error) leads to a console; the answer is kept until
// the handle changes or ForgetHandleKinds is called, which whoever closes a standard handle must do.
bool IsConsole(int number);
void ForgetHandleKinds();

// The encoding of text that goes to files and pipes now.
enum class OutputEncoding : int;
OutputEncoding CurrentOutputEncoding();
