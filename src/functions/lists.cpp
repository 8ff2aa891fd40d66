// What the shell keeps: settings, colours, the history.
#include "functions/families.h"

#include <climits>

#include "config/colors.h"
#include "config/ini_file.h"
#include "console/extended_history.h"
#include "console/history.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/words.h"

// @option[name]: the value of a setting.
int Option_Function(FunctionCall& call)
{
    CString value;
    if (const int code = GetOptionValue(FileArgument(call.arguments), value))
        return code;
    return answer::ForeignText(call, value);
}

// @history[n[,word]]: the nth line of the history, the newest being 0; or one word of it.
int History_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n|n");
    if (arguments.Error())
        return arguments.Error();
    const std::vector<CString> lines = HistoryLines({});
    const std::int64_t n = arguments.Number(0);
    if (n < 0)
        return Refuse(errors::invalidNumber);
    if (n >= static_cast<std::int64_t>(lines.size()))
        return answer::ForeignText(call, {});
    const CString& line = lines[lines.size() - 1 - static_cast<std::size_t>(n)];
    if (!arguments.Has(1))
        return answer::ForeignText(call, line);
    const std::int64_t word = arguments.Number(1);
    if (word < 0 || word > INT_MAX)
        return Refuse(errors::invalidNumber);
    return answer::ForeignText(call, GetNthArgument(line, static_cast<int>(word), call.syntax));
}

// @xhistory[n[,what]]: the nth line of the extended history, the newest being 0; or its time, directory, exit
// code or duration in milliseconds.
int Xhistory_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n|t");
    if (arguments.Error())
        return arguments.Error();
    const std::vector<ExtendedEntry> entries = ExtendedHistory();
    const std::int64_t n = arguments.Number(0);
    if (n < 0)
        return Refuse(errors::invalidNumber);
    if (n >= std::ssize(entries))
        return answer::ForeignText(call, {});
    const ExtendedEntry& entry = entries[entries.size() - 1 - static_cast<std::size_t>(n)];
    const std::u16string_view what = arguments.Text(1);
    if (what.empty() || EqualNoCase(what, u"line"))
        return answer::ForeignText(call, entry.line);
    if (EqualNoCase(what, u"directory"))
        return answer::ForeignText(call, entry.directory);
    if (EqualNoCase(what, u"exit"))
        return answer::Number(call, entry.exitCode);
    if (EqualNoCase(what, u"duration"))
        return answer::Number(call, static_cast<std::int64_t>(entry.milliseconds));
    if (EqualNoCase(what, u"time"))
        return answer::Number(call, static_cast<std::int64_t>(entry.started));
    return Refuse(ERROR_INVALID_PARAMETER);
}

// @color[colours]: the number of "bright white on blue", background x 16 + foreground; of one colour alone
// its own.
int Color_Function(FunctionCall& call)
{
    const CString text = FileArgument(call.arguments);
    std::size_t at = 0;
    if (const auto pair = ParseColorPair(text))
        return answer::Number(call, *pair);
    const auto color = ReadColor(text, at);
    return color && at == text.size() ? answer::Number(call, *color) : Refuse(errors::invalidColor);
}
