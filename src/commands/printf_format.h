// What PRINTF prints: a format with directives, used over and over until all arguments are printed. Pure.
//
//   %s text   %b text with escapes   %c first character   %d %i %u %o %x %X whole numbers
//   %e %E %f %F %g %G %a %A floating numbers   %% the percent sign
//
// with the flags - + blank 0 #, a width and a precision, each of which may be "*" for an argument. Escapes
// are \\ \" \a \b \e \f \r \t \v, \nnn octal, \xhh and \uhhhh; \n is a line end, CR and LF. A missing
// argument is nothing, or 0.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// The format and the arguments: parted by blanks outside double quotes and back-quotes. Quotes around a whole
// word are taken off.
std::vector<CString> SplitPrintfWords(std::u16string_view text);

struct PrintfAnswer {
    CString text;
    unsigned error = 0; // the code of a message, with what was wrong
    CString culprit;
};
PrintfAnswer FormatPrintf(std::u16string_view format, const std::vector<CString>& arguments);
