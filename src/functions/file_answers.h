// What the functions about files and drives share: their subject, and their answers.
//
// Names and texts that come from a disk may hold anything: what a function of these families answers is never
// scanned for references.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/tables.h"
#include "text/cstring.h"
#include "text/format.h"

// The file's name without blanks and double quotes around it.
CString FileArgument(std::u16string_view piece);

inline int AnswerText(FunctionCall& call, std::u16string_view text)
{
    call.value = text;
    return function_result::neverRescan;
}

inline int AnswerNumber(FunctionCall& call, std::int64_t number)
{
    return AnswerText(call, Format(u"%d", number));
}

inline int AnswerFlag(FunctionCall& call, bool flag) { return AnswerText(call, flag ? u"1" : u"0"); }

// The codes of lang/messages.h as functions answer them.
inline int Refuse(unsigned code) { return static_cast<int>(code); }
