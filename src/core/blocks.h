// Lines that continue a command: the rest of a block, and what follows an escape character at a line's end.
// CompleteBlock is declared in engine/command_entry.h.
#pragma once

#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

// The line that follows the one being run: from the batch file, or typed at the continuation prompt. False at
// the end of the input, and for a line that came from neither.
bool ReadFollowingLine(CString& line);

// What stands in front of such a line at the console: PROMPT2, or a text of ours.
CString ContinuationPrompt();

// Whether the text ends with an escape character that is not itself escaped.
bool EndsInEscape(std::u16string_view text, const Syntax& syntax);
