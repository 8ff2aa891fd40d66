// Calling what a library exports.
#include "functions/families.h"

#include <array>
#include <deque>
#include <string>
#include <vector>

#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "platform/module.h"
#include "text/encoding.h"
#include "text/numbers.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t mostParameters = 8;
using Word = std::intptr_t;

// The words that are handed over, and the texts behind those that are addresses.
class Parameters {
public:
    // 0, or the error to answer.
    int Add(View piece)
    {
        if (count == words.size())
            return Refuse(errors::syntax);
        words[count++] = Take(piece);
        return 0;
    }

    // A callee that takes fewer words passes over the rest: they are in registers, or below what it reads.
    Word Call(FARPROC function) const
    {
        using Pointer = Word (*)(Word, Word, Word, Word, Word, Word, Word, Word);
        return reinterpret_cast<Pointer>(reinterpret_cast<void*>(function))(
            words[0], words[1], words[2], words[3], words[4], words[5], words[6], words[7]);
    }

private:
    // A number, or the address of a text: in UTF-16, with an "a" in front of its quotes in UTF-8.
    Word Take(View piece)
    {
        const CString trimmed = CString(piece).Trim();
        if (const auto number = ParseInteger(trimmed))
            return static_cast<Word>(*number);
        const bool narrow =
            trimmed.size() > 1 && (trimmed[0] == u'a' || trimmed[0] == u'A') && trimmed[1] == u'"';
        const View text = BareArgument(narrow ? trimmed.view().substr(1) : trimmed.view());
        if (narrow)
            return reinterpret_cast<Word>(narrowTexts.emplace_back(ToUtf8(text)).c_str());
        return reinterpret_cast<Word>(wideTexts.emplace_back(text).c_str());
    }

    std::array<Word, mostParameters> words = {};
    std::size_t count = 0;
    std::deque<std::string> narrowTexts;
    std::deque<std::u16string> wideTexts;
};

} // namespace

// @capi[library,function[,argument...]]: calls the function and gives what it answers as a whole number.
int Capi_Function(FunctionCall& call)
{
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    if (pieces.size() < 2)
        return answer::missingArgument;
    const CString libraryName = FileArgument(pieces[0]);
    const CString functionName = CString(pieces[1]).Trim();
    if (libraryName.empty() || functionName.empty())
        return answer::missingArgument;
    Parameters parameters;
    for (std::size_t i = 2; i < pieces.size(); ++i)
        if (const int error = parameters.Add(pieces[i]))
            return error;
    const Module library = Module::Load(libraryName);
    if (!library)
        return SystemError();
    const FARPROC function = library.Find(ToUtf8(functionName).c_str());
    return function ? answer::Number(call, parameters.Call(function)) : SystemError();
}
