// The grammar of conditions: IF, IFF, the condition handler and %[[...]]. Pure; what a condition asks of the
// world is asked through ConditionWorld.
//
// The text is read word by word from the left and only what has been read is expanded, so that the command
// behind the condition stays as it was written until it runs.
#pragma once

#include <optional>
#include <string_view>

#include "text/cstring.h"
#include "text/syntax.h"

enum class ConditionTest {
    Exist,
    IsFile,
    IsDirectory,
    IsInternal,
    IsPlugin,
    Plugin,
    IsAlias,
    IsFunction,
    IsLibrary,
    IsBatch,
    IsLabel,
    Defined,
    ExtensionVersion,
    IsVisible,
    IsWindow,
    IsHung,
    IsApplication,
    IsSymbolicLink,
    IsReadable,
    IsWriteable
};

class ConditionWorld {
public:
    virtual ~ConditionWorld() = default;

    // Expands one word of the condition in place; false after an error, which has been reported.
    virtual bool Expand(CString& word) = 0;
    virtual bool Test(ConditionTest test, std::u16string_view argument) = 0;
    virtual int ErrorLevel() = 0;
    // The sign of the difference of two numbers that are too long or too broken for whole arithmetic.
    virtual int CompareNumbers(std::u16string_view left, std::u16string_view right) = 0;
    // Nothing when the pattern is not a regular expression.
    virtual std::optional<bool> Matches(std::u16string_view text, std::u16string_view pattern) = 0;
};

namespace condition {
constexpr int holds = 1;
constexpr int fails = 0;
constexpr int syntaxError = -1;
} // namespace condition

struct ConditionRules {
    bool expand = true;          // references in the words are expanded
    bool bareNumber = false;     // a lone number is a condition (IFF)
    bool needsCommand = false;   // something must follow (IF)
    bool exactEqual = false;     // a lone "=" minds letter case
    char16_t decimalChar = u'.'; // in numbers; a period is always one, too
    Syntax syntax;
};

// Reads the condition at the start of `text` and cuts it out, with the blanks behind it. An answer of
// namespace condition; after a syntax error the text is partly cut.
int ParseCondition(CString& text, const ConditionRules& rules, ConditionWorld& world);

// Where the word that starts at `from` ends in text that is not expanded yet: at a blank or line feed that
// stands neither in quotes nor inside a reference.
std::size_t EndOfRawWord(std::u16string_view text, std::size_t from, const Syntax& syntax);
