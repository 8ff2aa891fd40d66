// Small answers that the internal variables share.
#pragma once

#include <type_traits>

#include "text/cstring.h"
#include "text/format.h"

inline bool AnswerText(CString& value, std::u16string_view text)
{
    value = text;
    return true;
}

template <typename Number> bool AnswerNumber(CString& value, Number number)
{
    value = Format(std::is_signed_v<Number> ? u"%d" : u"%u", number);
    return true;
}

inline bool AnswerFlag(CString& value, bool flag) { return AnswerText(value, flag ? u"1" : u"0"); }
