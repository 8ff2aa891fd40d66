// How a command's help looks: the layout of its summary, usage lines, switches and examples. Pure.
#pragma once

#include "engine/tables.h"

// The whole help text, lines ended by "\r\n". `names` heads it: the command and what else it is called.
// Lines are wrapped to `width` columns, with the words hanging below their own column; 0 leaves them whole.
CString HelpText(std::u16string_view names, const CommandHelp& help, int width);

// One of its sections: an empty line, the title, and the lines (ended or parted by '\n') below it; nothing
// when there are none.
void AppendHelpSection(CString& text, std::u16string_view title, std::u16string_view lines, int width);

// Lines wrapped to `width` columns, at the margin.
CString HelpParagraph(std::u16string_view lines, int width);
