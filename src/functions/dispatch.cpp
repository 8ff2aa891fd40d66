#include "engine/function_entry.h"

#include <vector>

#include "engine/tables.h"
#include "expand/expansion.h"
#include "expand/expansion_world.h"
#include "expand/lists.h"
#include "functions/arguments.h"
#include "lang/errors.h"

namespace {

// The parameters of a user function are what stands between the commas, without blanks around it.
int CallUserFunction(std::u16string_view name, CString& body, std::u16string_view arguments,
                     const Syntax& syntax)
{
    std::vector<CString> entries{CString(name)};
    if (!arguments.empty()) {
        for (const std::u16string_view piece : SplitFunctionArguments(arguments, syntax))
            entries.push_back(CString(piece).Trim());
    }
    const Parameters parameters{entries.data(), entries.size(), 0, arguments, true, u','};
    return ExpandFunctionBody(body, parameters, EngineExpansionWorld());
}

} // namespace

int CallVariableFunction(std::u16string_view name, std::u16string_view arguments, CString& value,
                         const Syntax& syntax)
{
    const bool builtInOnly = !name.empty() && name[0] == u'*';
    if (builtInOnly)
        name.remove_prefix(1);
    CString body;
    if (!builtInOnly && GetFunction(name, body)) {
        const int code = CallUserFunction(name, body, arguments, syntax);
        value = body;
        // Its references are expanded; what they gave is not to be expanded once more.
        return code == 0 ? function_result::neverRescan : -code;
    }
    const int row = FindRow(aVariableFunctions, nVariableFunctions, name);
    if (row < 0)
        return static_cast<int>(errors::unknownFunction);
    if (!aVariableFunctions[row].function)
        return static_cast<int>(errors::unsupportedFunction);
    FunctionCall call{arguments, value, syntax};
    return aVariableFunctions[row].function(call);
}
