// The texts of IF, FOR and DO: whatever they hold they are taken apart or refused, without reading past their
// end and without running away.
#include <cstdint>
#include <string>
#include <vector>

#include "batch/condition_parser.h"
#include "batch/do_header.h"
#include "batch/for_header.h"
#include "batch/for_tokens.h"
#include "batch/iff_blocks.h"
#include "text/encoding.h"

namespace {

// A world in which every reference stands for something that comes in pieces.
class AnyWorld : public ConditionWorld {
public:
    bool Expand(CString& word) override
    {
        if (word.Find(u'%') != CString::npos)
            word = ++calls % 3 == 0 ? u"" : u"a \"b";
        return calls < 100000;
    }
    bool Test(ConditionTest, std::u16string_view) override { return ++calls % 2 == 0; }
    int ErrorLevel() override { return 1; }
    int CompareNumbers(std::u16string_view, std::u16string_view) override { return 0; }
    std::optional<bool> Matches(std::u16string_view, std::u16string_view) override { return true; }

private:
    int calls = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const CString text = FromUtf8({reinterpret_cast<const char*>(data) + 1, size - 1});
    ConditionRules rules;
    rules.expand = (data[0] & 1) != 0;
    rules.bareNumber = (data[0] & 2) != 0;
    rules.needsCommand = (data[0] & 4) != 0;
    rules.syntax.openQuotes = (data[0] & 8) != 0;
    rules.syntax.cmdDelimiters = (data[0] & 16) != 0;
    AnyWorld world;
    CString condition(text);
    ParseCondition(condition, rules, world);

    ForHeader forHeader;
    if (ReadForHeader(text, rules.syntax, forHeader)) {
        SetReader reader{forHeader.set};
        for (std::u16string_view entry; reader.Next(entry);) {
        }
    }
    ForOptions options;
    std::vector<std::u16string_view> values;
    if (ReadForOptions(text, options))
        CutForLine(text, options, values);
    DoHeader doHeader;
    ReadDoHeader(text, rules.syntax, doHeader);
    ClassifyDoLine(text, rules.syntax);
    std::size_t end = 0;
    ReadLoopWord(text, end);
    ReadBlockWord(text, end);
    return 0;
}
