// The answers that variable functions give, and the errors that many of them share.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/tables.h"
#include "lang/errors.h"
#include "lang/function_messages.h"
#include "text/format.h"

namespace answer {

inline int Text(FunctionCall& call, std::u16string_view text)
{
    call.value = text;
    return 0;
}

// For texts from outside, which may hold "%" without meaning a reference.
inline int ForeignText(FunctionCall& call, std::u16string_view text)
{
    call.value = text;
    for (std::size_t at = text.find(u'\0'); at != text.npos; at = text.find(u'\0', at + 1))
        call.value.Set(at, u'\uFFFD'); // a NUL would end the line for whoever reads it next
    return function_result::neverRescan;
}

inline int Number(FunctionCall& call, std::int64_t number) { return Text(call, Format(u"%d", number)); }
inline int Flag(FunctionCall& call, bool flag) { return Text(call, flag ? u"1" : u"0"); }

constexpr int missingArgument = static_cast<int>(errors::missingArgument);
constexpr int invalidNumber = static_cast<int>(errors::invalidNumber);
constexpr int invalidDate = static_cast<int>(errors::invalidDate);
constexpr int invalidForm = static_cast<int>(errors::unknownDateForm);
constexpr int invalidTime = static_cast<int>(errors::invalidTime);
constexpr int tooLong = static_cast<int>(errors::lineTooLong);

} // namespace answer
