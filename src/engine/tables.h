// The row types of the big tables, and the tables themselves.
//
// Each table is constant, sorted by name without regard to case and checked when it compiles. The tables are
// defined on the floors that hold the handlers (commands/rows.cpp, internals/rows.cpp, functions/rows.cpp);
// lower floors reach them only through these declarations. What changes at run time stands in
// core/command_lookup.h.
#pragma once

#include <string_view>

#include "engine/results.h"
#include "text/compare.h"
#include "text/cstring.h"
#include "text/syntax.h"

// A command's help, kept beside its handler. `switches` and `examples` are lines parted by '\n'.
struct CommandHelp {
    const char16_t* summary;  // one sentence
    const char16_t* usage;    // one or more lines, without the word "Usage"
    const char16_t* switches; // "/A  what it does" per line, "" for none
    const char16_t* examples; // "" only where there is nothing to show
};

// Receives what follows the command's name; may change it. Answers a code of results.h.
using CommandHandler = int (*)(CString& arguments);

namespace command_flags {
constexpr unsigned expand = 0x1;   // variables are expanded before it runs
constexpr unsigned redirect = 0x2; // redirection is applied
constexpr unsigned stripBackQuotes = 0x4;
constexpr unsigned block = 0x10;       // may end with "(" and go on over the following lines
constexpr unsigned splitterBit = 0x20; // passed to the argument splitter; nothing tests it
constexpr unsigned batchOnly = 0x40;
constexpr unsigned setsErrorLevel = 0x100;
constexpr unsigned backslash = 0x200; // a "\" directly after the name still finds it
constexpr unsigned wholeLine = 0x400; // takes the rest of the line, separators and all
constexpr unsigned help = 0x2000;     // "/?" shows help
constexpr unsigned period = 0x4000;   // a "." directly after the name still finds it
constexpr unsigned dialog = 0x80000;  // has a dialog form
constexpr unsigned basic = 0x200000;  // member of the basic command set
// Holds text for a later line (CALL, ALIAS, DEFER ...): escape sequences are left for that line. Ours alone;
// queries about a row's flags do not show it. Commands without `expand` keep their text anyway.
constexpr unsigned keepText = 0x1000000;
// Its argument is a command that runs later or elsewhere: a group in parentheses belongs to it, over several
// lines if need be. Ours alone, too.
constexpr unsigned keepGroup = 0x2000000;
constexpr unsigned oursAlone = keepText | keepGroup;
} // namespace command_flags

struct BUILTIN {
    const char16_t* name;
    CommandHandler handler;
    unsigned flags;
    int enabled;          // 1; the enabled state at run time stands beside the table
    const char16_t* hint; // completion hint, "" when none
    const CommandHelp* help;
};

extern const BUILTIN aInternalCommands[];
extern const int nInternalCommands;

// The shared handler of rows whose command is not built yet: reports and answers result::error.
int Unbuilt_Command(CString& arguments);

// An internal variable: fills `value` and answers true; false when it has no value here (expands to nothing).
struct InternalVariableRow {
    const char16_t* name;          // without the leading "_"
    bool (*value)(CString& value); // null until its family stands
};
extern const InternalVariableRow aInternalVariables[];
extern const int nInternalVariables;

// A variable function: 0 with the value, a positive error code to report, a negative one already reported,
// or one of the two codes below.
namespace function_result {
constexpr int neverRescan = -6666;
constexpr int rescan = -6667;
} // namespace function_result

// What a function is given: the text between its brackets, already expanded, and the place for its answer.
struct FunctionCall {
    std::u16string_view arguments;
    CString& value;
    const Syntax& syntax;
};

struct VariableFunctionRow {
    const char16_t* name;                // without the "@"
    int (*function)(FunctionCall& call); // null until its family stands
};
extern const VariableFunctionRow aVariableFunctions[];
extern const int nVariableFunctions;

// The index of `name` among rows that have a `name` and are sorted as the tables above; -1 when absent.
template <typename Row> int FindRow(const Row* rows, int count, std::u16string_view name)
{
    int low = 0;
    int high = count - 1;
    while (low <= high) {
        const int middle = (low + high) / 2;
        const int order = CompareNoCase(name, rows[middle].name);
        if (order == 0)
            return middle;
        if (order < 0)
            high = middle - 1;
        else
            low = middle + 1;
    }
    return -1;
}

// For static_assert beside each table: strictly ascending without regard to (ASCII) case.
template <typename Row> constexpr bool IsSortedByName(const Row* rows, int count)
{
    auto fold = [](char16_t c) { return c >= u'a' && c <= u'z' ? char16_t(c - 32) : c; };
    for (int i = 1; i < count; ++i) {
        const char16_t* a = rows[i - 1].name;
        const char16_t* b = rows[i].name;
        while (*a && fold(*a) == fold(*b))
            ++a, ++b;
        if (fold(*a) >= fold(*b))
            return false;
    }
    return true;
}
