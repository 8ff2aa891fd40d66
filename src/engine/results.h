// The integers that commands answer with, and the one way to report an error.
//
// A handler's result tells both how it went and what is to become of the line; these names and the two
// questions below are the only places that know which number means which.
#pragma once

#include <string_view>

#include "lang/errors.h"

namespace result {
constexpr int success = 0;
constexpr int error = 2;                   // failed, already reported
constexpr int abandonLine = 4095;          // the rest of the line does not run
constexpr int handled = 26214;             // dealt with; counts as success
constexpr int fromSubroutine = 26215;      // GOSUB came back: success, and %_? is what RETURN gave
constexpr int abandonBatch = 31420;        // the line and the batch line loop end
constexpr int returned = 31421;            // from RETURN; the dispatcher makes it abandonBatch
constexpr int keepErrorLevel = 0x4F4F4F4F; // success that leaves the error level alone
constexpr int notInternal = -1;            // no internal command of that name
constexpr unsigned notMine = 0xFEDCBA98u;  // a plug-in does not know the name
} // namespace result

// Whether the rest of the line is to be abandoned.
constexpr bool EndsLine(int code) { return code == result::abandonLine || code == result::abandonBatch; }

// The exit code of a program or batch file as a result: any number, but none that would pass for one of the
// codes above.
constexpr int ResultOfExitCode(unsigned exitCode)
{
    const int code = static_cast<int>(exitCode);
    const bool reserved = EndsLine(code) || code == result::returned || code == result::handled ||
                          code == result::fromSubroutine || code == result::keepErrorLevel;
    return reserved ? result::error : code;
}

// Reports an error on standard error and answers result::error. Codes of lang/messages.h are the shell's
// own; others are Windows error numbers, and a code below 1 stands for the thread's last error. The argument
// takes the place of "%1" in the text, or follows it in quotes.
int MVError(unsigned code, std::u16string_view argument = {});
// A message on standard error, as MVError shows it: on a console in ErrorColors, and broken between words.
// Rows that go on with a line begin in column `hanging`.
void ShowMessage(std::u16string_view message, int hanging = 0);
// The same for a mistake in how the text of a batch file hangs together: inside one, its name and the line
// are told as well.
int BatchTextError(unsigned code, std::u16string_view argument, unsigned line);
inline int error(int code, std::u16string_view argument = {})
{
    return MVError(static_cast<unsigned>(code), argument);
}

// The text that MVError would print for a code, without argument and line end.
class CString;
CString ErrorText(unsigned code);
// The same message in a message box when the host is graphical, else on standard error.
int ErrorMsgBox(unsigned code, std::u16string_view argument = {});
// The error beep.
void honk();
// Windows' text for one of its error numbers; empty when it has none.
CString WindowsErrorText(unsigned number);
// Prints all that an error number means to Windows, its kernel or the shell (LOOKUPERRORS); result::error,
// not reported, when it means nothing.
int LookupWindowsErrors(unsigned number);
// A resource text by its number (3000 and up), "" when the language library lacks it.
CString LoadMessage(unsigned number);
// The same with the argument in the place of "%1".
CString LoadMessage(unsigned number, std::u16string_view argument);
