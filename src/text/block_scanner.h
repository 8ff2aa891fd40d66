// Following the parentheses of a block that runs over several lines.
//
// Whoever reads, cuts or runs a block uses this one set of rules, so that all agree where it ends. A "(" at
// the start of a command, or behind a blank in a command that takes blocks (IF, FOR, DO ...), opens a block
// and only an unescaped ")" closes it. Any other "(" is a mere character of its command: it takes the next
// ")", escaped or not, and is forgotten at the end of its command, so that "echo (text^)" harms no block.
// Comments (REM, "::") and the text of ECHOX count nothing. Quotes end with their line.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "text/syntax.h"

class BlockScanner {
public:
    explicit BlockScanner(const Syntax& syntaxInForce) : syntax(syntaxInForce) {}

    // Goes on over `text` from where the last call stopped; `text` is the same text as before, with more
    // behind it. Stops behind the ")" that closes the outermost block and answers its place, or npos when
    // the text ended first.
    std::size_t Feed(std::u16string_view text);
    // Whether a block stands open where the last call stopped.
    bool InBlock() const { return openBlocks > 0; }

private:
    enum class Kind { Block, Literal };
    enum class CommandKind { Unknown, Plain, TakesBlocks, Comment };

    void Open(std::u16string_view text);
    bool Close(bool escaped); // true when it closed the outermost block
    void EndCommand();
    void ReadCommandWord(std::u16string_view text);
    bool PassQuote(std::u16string_view text);

    Syntax syntax;
    std::size_t at = 0;
    std::vector<Kind> open;
    std::size_t openBlocks = 0;
    CommandKind command = CommandKind::Unknown;
};

// The ")" that closes the block opened at `open`; npos when it is never closed.
std::size_t FindBlockEnd(std::u16string_view text, std::size_t open, const Syntax& syntax);

// Whether a command that takes blocks stands unfinished at the end of the text.
bool EndsInsideBlock(std::u16string_view text, const Syntax& syntax);
