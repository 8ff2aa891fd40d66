// Both evaluators over any text: they must end soon, leave the text alone when they fail and give numbers
// that they read again.
#include <cstdint>
#include <cstdlib>

#include "expand/evaluator.h"
#include "text/encoding.h"

namespace {

class Names : public EvaluatorNames {
public:
    bool ArrayElement(std::u16string_view, std::u16string_view indexes, CString& value, int&) override
    {
        value = indexes;
        return true;
    }
    bool Variable(std::u16string_view name, CString& value) override
    {
        value = name;
        return true;
    }
};

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    Names names;
    const CString expression = FromUtf8({reinterpret_cast<const char*>(data + 1), size - 1});
    CString text = expression;
    if (data[0] & 1) {
        if (EvaluateWhole(text, names).code != 0)
            Require(text == expression);
        else
            Require(IsNumericText(text, u'.'));
        return 0;
    }
    const EvaluatorSettings settings{data[0] & 6u, (data[0] & 6u) + (data[0] >> 3),
                                     data[0] & 8 ? u',' : u'.'};
    if (EvaluateDecimal(text, settings, names).code != 0) {
        Require(text == expression);
    } else if (text.size() < 1000 && expression.Find(u'=') == CString::npos) {
        // A result is a number, and its own value.
        Require(IsNumericText(text, settings.decimalChar));
        CString again = text;
        Require(EvaluateDecimal(again, settings, names).code == 0 && again == text);
    }
    return 0;
}
