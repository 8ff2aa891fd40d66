// Taking a DO command apart. Pure; nothing is expanded here.
#pragma once

#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

enum class DoKind {
    Forever,
    Times,   // DO n
    Counter, // DO x = a TO b [BY c]
    While,   // tested before each pass
    Until,   // tested after each pass
    Walk     // DO x IN ...
};

struct DoHeader {
    DoKind kind = DoKind::Forever;
    CString variable;
    CString first; // the count, the start, the condition or the set
    CString last;  // TO
    CString step;  // BY; "" for 1
    CString body;  // between parentheses; "" when the lines up to ENDDO are the body
    bool hasBody = false;
};

// False when the text behind DO makes no sense.
bool ReadDoHeader(std::u16string_view text, const Syntax& syntax, DoHeader& header);

// What a line means to the search for the ENDDO of a loop.
enum class DoLine { Other, Opens, Closes, Text, Comment };
DoLine ClassifyDoLine(std::u16string_view line, const Syntax& syntax);

// The word inside a loop that the command begins with, or None; `end` is the place behind it.
enum class LoopWord { None, EndDo, Iterate, Leave, LeaveFor };
LoopWord ReadLoopWord(std::u16string_view command, std::size_t& end);
