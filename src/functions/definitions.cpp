// What the user has defined.
#include "functions/families.h"

#include "expand/lists.h"
#include "functions/answers.h"

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
