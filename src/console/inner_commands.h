// The commands that stand in other commands: behind IF, ELSE, FOR, DO, CALL, START and so on. Pure.
#pragma once

#include <cstddef>
#include <string_view>

#include "text/syntax.h"

// Walks over whole words of a text; a word that touches its end is not whole.
class WholeWords {
public:
    WholeWords(std::u16string_view line, std::size_t from, const Syntax& syntaxInForce);

    bool Next();
    bool NextArgument(); // switches left out

    std::u16string_view text;
    std::size_t at; // behind the word
    std::size_t start = 0;
    std::u16string_view word;
    const Syntax& syntax;
};

// Where a command begins, and whether START takes it: any file will do then, and a text in quotes may be a
// title.
struct CommandStart {
    std::size_t at = 0;
    bool anyFile = false;
    bool mayBeTitle = false;
};

// The command that the one beginning at `command` takes; false when it takes none, or the text, which need
// not go on to its end, ends in front of it.
bool FindTakenCommand(std::u16string_view text, std::size_t command, const Syntax& syntax,
                      CommandStart& taken);
// The innermost command that the end of the text stands in; the outermost begins at or behind `from`.
CommandStart FindInnerCommand(std::u16string_view text, std::size_t from, const Syntax& syntax);
