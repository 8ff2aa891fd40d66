// The evaluator in the engine: its settings, arrays and variables.
#include "engine/expansion_entry.h"

#include "engine/country.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "expand/evaluator.h"
#include "expand/lists.h"
#include "platform/environment.h"

namespace {

class EngineNames : public EvaluatorNames {
public:
    bool ArrayElement(std::u16string_view name, std::u16string_view indexes, CString& value,
                      int& code) override
    {
        if (QueryArrayVariable(name) < 0)
            return false;
        code = QueryArrayElement(name, indexes, value);
        return true;
    }
    bool Variable(std::u16string_view name, CString& value) override { return ReadEnvironment(name, value); }
    int SetVariable(std::u16string_view name, std::u16string_view value) override
    {
        CString entry(name);
        entry.Append(u'=').Append(value);
        const int code = SetEVariable(entry);
        return code == protectedVariable ? 0 : code;
    }
};

} // namespace

int EvaluateExpression(CString& text, bool integers)
{
    EngineNames names;
    EvaluatorResult answer;
    if (integers) {
        answer = EvaluateWhole(text, names);
    } else {
        const EvaluatorSettings settings{aIniFile.EvalMin, aIniFile.EvalMax, Country().decimal};
        answer = EvaluateDecimal(text, settings, names);
    }
    if (answer.code != 0 && !answer.reported)
        MVError(static_cast<unsigned>(answer.code), text);
    return answer.code;
}

bool QueryIsNumeric(std::u16string_view text) { return IsNumericText(text, Country().decimal); }

void AddCommas(CString& number)
{
    const NationalSettings country = Country();
    SeparateThousands(number, country.decimal, country.thousands);
}
