// Escape sequences: the escape character and the letter behind it become the character they stand for.
//
// b backspace, c comma, e escape, f form feed, g bell, k back-quote, n line feed, q double quote,
// r carriage return, s space, t tab; anything else stands for itself. Letters mind no case. The first two
// functions work in place and do nothing while escapes are switched off.
#pragma once

#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

// For a bare text such as a file name or a function argument: every sequence counts.
void EscapeLine(CString& text, const Syntax& syntax);
// For the text of a command: inside double quotes and back-quotes the escape character is literal.
void UnEscapeLine(CString& line, const Syntax& syntax);
// The way back, for text that becomes part of a command line once more: what it returns is expanded and
// unescaped to `text` again, and neither parts nor redirects the command that holds it.
CString ProtectText(std::u16string_view text, const Syntax& syntax);
