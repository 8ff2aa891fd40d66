// Lines of files as functions answer them.
#pragma once

#include "expand/expansion.h"
#include "functions/file_answers.h"
#include "lang/errors.h"

// What is answered in the place of a line behind the last one: an empty line is an empty text.
constexpr std::u16string_view endOfFile = u"**EOF**";

inline int AnswerLine(FunctionCall& call, std::u16string_view line, bool atEnd)
{
    return line.size() > longestExpansion ? Refuse(errors::lineTooLong)
                                          : answer::ForeignText(call, atEnd ? endOfFile : line);
}
