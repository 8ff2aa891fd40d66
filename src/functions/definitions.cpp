// What the user has defined.
#include "functions/families.h"

#include "expand/arrays.h"
#include "expand/lists.h"
#include "expand/typed_value.h"
#include "functions/answers.h"
#include "platform/environment.h"

namespace {

using Lookup = bool (*)(std::u16string_view name, CString& value, bool* isLocal);

// Empty when there is none of this name. References in a definition wait for their own time.
int AnswerDefinition(FunctionCall& call, Lookup find)
{
    const CString name = CString(call.arguments).Trim();
    if (name.empty())
        return answer::missingArgument;
    CString value;
    return answer::ForeignText(call, find(name, value, nullptr) ? value.view() : std::u16string_view());
}

} // namespace

// @alias[name], @function[name]: its definition.
int Alias_Function(FunctionCall& call) { return AnswerDefinition(call, GetAlias); }
int Function_Function(FunctionCall& call) { return AnswerDefinition(call, GetFunction); }

// @vartype[name]: the narrowest type of SET /T that the variable's value fits; "array" for an array, empty
// when there is no such variable.
int Vartype_Function(FunctionCall& call)
{
    const CString name = CString(call.arguments).Trim();
    if (name.empty())
        return answer::missingArgument;
    if (ArrayVariables().Find(name) >= 0)
        return answer::Text(call, u"array");
    CString value;
    if (!ReadEnvironment(name, value))
        return answer::Text(call, u"");
    // Every digit is a boolean or a character, too: what it counts as is more use.
    for (const std::u16string_view type : {u"integer", u"number", u"boolean", u"character"})
        if (CheckValueType(type, value) == TypeCheck::Fits)
            return answer::Text(call, type);
    return answer::Text(call, u"text");
}
