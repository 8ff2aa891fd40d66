// Where one command of a line ends and how it is joined to the next. Pure.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/syntax.h"

enum class Connector {
    None,       // the line ends here
    Sequence,   // "&", the separator character, "%+" or the line feed between the lines of a block
    And,        // "&&"
    Or,         // "||"
    Pipe,       // "|"
    PipeErrors, // "&| " or "|&": standard error goes into the pipe too
};

struct Separator {
    std::size_t at = std::u16string_view::npos; // where the command ends; npos for None
    std::size_t length = 0;                     // of the separator itself
    Connector connector = Connector::None;

    std::size_t Behind() const { return at + length; }
};

// How the first command of the text keeps separators that belong to it.
enum class CommandShape {
    Plain,
    Parentheses, // a group or a command that takes blocks: what stands in parentheses is its own
    If,          // the same, and with the compatibility switch on "&&" and "||" belong to it as well
    TextLine,    // takes the rest of its text line: IF and FOR in .BAT and .CMD files
};

// The end of the first command at or after `from`. Quotes hide separators; `unclosed` as for scan.
Separator FindSeparator(std::u16string_view text, std::size_t from, CommandShape shape, const Syntax& syntax,
                        char16_t* unclosed = nullptr);
