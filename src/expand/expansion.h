// Variable expansion: every reference of a line replaced by its value.
//
// The rules stand here, without the world: what a name means, what a function answers and what a file shows
// is asked through ExpansionWorld. The engine's world is in expansion_world.h; tests bring their own.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/state.h"
#include "expand/parameters.h"
#include "expand/path_modifiers.h"
#include "text/cstring.h"
#include "text/syntax.h"

// No line grows beyond this many units while it is expanded.
constexpr std::size_t longestExpansion = 0x100000;

// The settings that expansion follows, fetched once per line.
struct ExpansionSettings {
    Syntax syntax;
    unsigned mask = 0; // expansion_mask bits
    bool cmdVariables = false;
    bool delayedExpansion = false;
    bool pseudoVariables = false;
};

class ExpansionWorld : public PathSource {
public:
    virtual ExpansionSettings Settings() = 0;
    virtual ExpansionProgress& Progress() = 0; // of this thread

    // Each answers whether there is such a variable, and if so its value. They are asked in this order.
    virtual bool SubroutineParameter(std::u16string_view name, CString& value) = 0;
    virtual bool EnvironmentVariable(std::u16string_view name, CString& value) = 0;
    virtual bool ComputedVariable(std::u16string_view name, CString& value) = 0;
    // The variable of a FOR loop that runs.
    virtual bool LoopVariable(char16_t name, CString& value) = 0;
    // False when no batch file runs.
    virtual bool BatchParameters(Parameters& parameters) = 0;

    virtual bool IsArray(std::u16string_view name) = 0;
    // Answers as function_result of engine/tables.h tells.
    virtual int CallFunction(std::u16string_view name, std::u16string_view arguments, CString& value) = 0;
    // These report their errors themselves. `indexes` is the text between the brackets.
    virtual int ArrayElement(std::u16string_view name, std::u16string_view indexes, CString& value) = 0;
    virtual int Evaluate(CString& expression) = 0;
    virtual int TestCondition(CString& condition) = 0;
    virtual int ExpandAliases(CString& line) = 0;

    virtual void SetEndLocal(bool on) = 0; // the mask's bit while ENDLOCAL is expanded
    virtual int Report(unsigned code, std::u16string_view argument) = 0;
};

// Replaces every reference in the line, in place. 0, or the code of an error that was reported; the line is
// then left as far as it was rewritten. `nested` tells that the text is a piece of a line, not a whole one.
int VariableExpansion(CString& line, bool nested, ExpansionWorld& world);

// The same for the body of a user function, whose parameters take the place of a batch file's.
int ExpandFunctionBody(CString& body, const Parameters& parameters, ExpansionWorld& world);
