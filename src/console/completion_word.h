// The word of a command line that completion is asked about: where it stands, what has been typed of it, and
// to which argument of which command it belongs. Pure.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "text/cstring.h"
#include "text/syntax.h"

enum class WordPlace {
    Command,     // the name of a command
    Argument,    // anything behind it, the inside of a function's brackets included
    Redirection, // the file behind "<" or ">"
    Variable,    // behind "%"; the text begins there
    Function,    // behind "%@"
};

struct CompletionWord {
    WordPlace place = WordPlace::Command;
    std::size_t start = 0; // the part of the line that a candidate replaces
    std::size_t end = 0;
    CString text;                        // what stands of it before the cursor, quotes and escapes taken off
    bool quoted = false;                 // it begins with a double quote
    bool touchesNext = false;            // another word follows without a blank between
    bool inBrackets = false;             // an argument of a function
    bool isValue = false;                // it stands behind a "="
    bool startsFile = false;             // the command's name, where any document does as well (START)
    std::size_t quoteAt = CString::npos; // what CompletionOffer of completion_source.h says
    CString forQuotes;
    CString command;             // the name of the command that it belongs to, "" at Command
    std::vector<CString> before; // the words between the two, redirections left out
};

// What the shell knows about names.
class KnownCommands {
public:
    virtual ~KnownCommands() = default;
    virtual bool IsInternal(std::u16string_view name) = 0;
};

// Follows the line to the cursor: separators, parentheses, the commands that take commands (IF, FOR, CALL,
// START and so on), quotes, redirections, references to variables. Where a word goes on behind the cursor all
// of it is replaced. Without `references` the names behind "%" are parts of their words like others.
CompletionWord FindCompletionWord(std::u16string_view line, std::size_t cursor, bool references,
                                  const Syntax& syntax, KnownCommands& known);
