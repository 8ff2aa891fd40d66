// Expanding text and calculating: declared here for every floor, defined in expand/ and core/.
#pragma once

#include <string_view>

#include "text/cstring.h"

// Replaces every reference in the line by its value, in place. 0, or an error code that was reported; the
// line is then left as far as it was rewritten. `nested` tells that the text is part of another reference.
int VariableExpansion(CString& line, bool nested = false);

// Replaces the first word of the command, while it names an alias, by the alias's value. 0, or the result of
// an error that was reported.
int ExpandAliases(CString& command);

// Calculates the expression and puts the formatted result in its place; an error code (reported) leaves the
// text as it was. `integers` is the way of SET /A: whole numbers, bare variable names, assignments.
int EvaluateExpression(CString& text, bool integers = false);

// Whether the evaluator reads the text as one number.
bool QueryIsNumeric(std::u16string_view text);
// Puts the separator of thousands into the whole part of a number, in place.
void AddCommas(CString& number);
