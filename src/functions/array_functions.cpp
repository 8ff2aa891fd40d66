// Array variables asked about and filled.
#include "functions/families.h"

#include <vector>

#include "core/output_capture.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "files/text_lines.h"
#include "functions/answers.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "functions/word_cutting.h"

namespace {

// Makes an array of one dimension with these elements. 0, or a result that was reported.
int FillArray(const CString& name, const std::vector<CString>& elements)
{
    if (!IsArrayName(name))
        return -ReportArrayStatus(ArrayStatus::NotAnArray, name);
    ArrayIndexes index;
    index.count = 1;
    index.values[0] = static_cast<std::int64_t>(std::max<std::size_t>(elements.size(), 1));
    ArrayStatus status = ArrayVariables().Define(name, index);
    for (std::size_t i = 0; i < elements.size() && status == ArrayStatus::Ok; ++i) {
        index.values[0] = static_cast<std::int64_t>(i);
        status = ArrayVariables().Set(name, index, elements[i]);
    }
    return -ReportArrayStatus(status, name);
}

// Makes an array of the file's lines and answers their number.
int AnswerLinesAsArray(FunctionCall& call, std::int64_t& filled, std::u16string_view file,
                       const CString& name)
{
    constexpr std::size_t mostLines = 1'000'000;
    TextLines text;
    if (!text.Open(file))
        return SystemError();
    std::vector<CString> lines;
    for (std::u16string_view line; lines.size() < mostLines && text.Next(line);)
        lines.emplace_back(line);
    const int code = FillArray(name, lines);
    filled = code ? 0 : static_cast<std::int64_t>(lines.size());
    return code ? code : answer::Number(call, filled);
}

} // namespace

// @arrayinfo[name[,n]]: how many dimensions the array has, 0 when there is none; or the size of dimension n.
int Arrayinfo_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"t|n");
    if (arguments.Error())
        return arguments.Error();
    const int index = QueryArrayVariable(CString(arguments.Text(0)).Trim());
    const ArrayIndexes sizes = index < 0 ? ArrayIndexes() : ArrayVariables().At(index).sizes;
    if (!arguments.Has(1))
        return answer::Number(call, sizes.count);
    const std::int64_t n = arguments.Number(1) < 0 ? arguments.Number(1) + sizes.count : arguments.Number(1);
    return answer::Number(call, n >= 0 && n < sizes.count ? sizes.values[n] : 0);
}

// @arrayize[text,name[,"separators"]]: makes an array of the text's words and gives their number.
int Arrayize_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st|q");
    if (arguments.Error())
        return arguments.Error();
    std::vector<CString> words;
    for (const std::u16string_view word :
         SplitWords(arguments.Text(0), arguments.Has(2) ? arguments.Text(2) : usualSeparators))
        words.emplace_back(word);
    const int code = FillArray(CString(arguments.Text(1)).Trim(), words);
    return code ? code : answer::Number(call, static_cast<std::int64_t>(words.size()));
}

// @execarray[command,name]: makes an array of the lines that the command writes and gives their number.
int Execarray_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    OutputCapture capture;
    bool ran = false;
    capture.Run(CString(arguments.Text(0)), ran);
    if (!ran)
        return SystemError();
    return AnswerLinesAsArray(call, Tls().execArrayCount, capture.File(), CString(arguments.Text(1)).Trim());
}

// @filearray[file,name]: makes an array of the file's lines and gives their number.
int Filearray_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    return AnswerLinesAsArray(call, Tls().fileArrayCount, FileArgument(arguments.Text(0)),
                              CString(arguments.Text(1)).Trim());
}
