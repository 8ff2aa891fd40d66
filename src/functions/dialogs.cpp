// Boxes in which a person picks something. Where no person sits (standard input is no console) the answer is
// empty and no box is shown; so it is when the person cancels.
#include "functions/families.h"

#include <algorithm>

#include "console/popup_style.h"
#include "engine/output.h"
#include "expand/lists.h"
#include "files/text_lines.h"
#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "platform/dialogs.h"

namespace {

bool IsAttended() { return IsConsole(0); }

int AnswerFolder(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|q");
    if (arguments.Error())
        return arguments.Error();
    return answer::ForeignText(
        call, IsAttended() ? PickFolder(FileArgument(arguments.Text(0)), arguments.Text(1)) : CString());
}

constexpr std::size_t mostLines = 1'000'000;

int AnswerPicked(FunctionCall& call, std::vector<CString> lines, std::u16string_view title)
{
    if (!IsAttended())
        return answer::Text(call, {});
    PopupRequest popup = UsualPopup();
    popup.title = title;
    popup.lines = std::move(lines);
    const PopupResult picked = RunPopupList(std::move(popup));
    return answer::ForeignText(call, picked.action == PopupAction::Cancelled ? CString() : picked.text);
}

} // namespace

// @getfile[folder[,"pattern"]]: a file, by its full name. @getdir, @getfolder[folder[,"title"]]: a folder.
int Getfile_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|q");
    if (arguments.Error())
        return arguments.Error();
    return answer::ForeignText(
        call, IsAttended() ? PickFile(FileArgument(arguments.Text(0)), arguments.Text(1)) : CString());
}

int Getdir_Function(FunctionCall& call) { return AnswerFolder(call); }
int Getfolder_Function(FunctionCall& call) { return AnswerFolder(call); }

// @getdate[]: a day, "2026-01-31". @getdatetime[]: a day and a time, "2026-01-31 09:05:00".
int Getdate_Function(FunctionCall& call)
{
    const auto day = IsAttended() ? PickDate(false) : std::nullopt;
    return answer::Text(call, day ? Format(u"%04d-%02d-%02d", day->year, day->month, day->day) : CString());
}

int Getdatetime_Function(FunctionCall& call)
{
    const auto day = IsAttended() ? PickDate(true) : std::nullopt;
    return answer::Text(call, day ? Format(u"%04d-%02d-%02d %02d:%02d:%02d", day->year, day->month, day->day,
                                           day->hour, day->minute, day->second)
                                  : CString());
}

// @select[file[,"title"]]: the line of a text file that is picked in a list on the console.
int Select_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|q");
    if (arguments.Error())
        return arguments.Error();
    TextLines text;
    if (!text.Open(FileArgument(arguments.Text(0))))
        return SystemError();
    std::vector<CString> lines;
    for (std::u16string_view line; lines.size() < mostLines && text.Next(line);)
        lines.emplace_back(line);
    return AnswerPicked(call, std::move(lines), arguments.Text(1));
}

// @selectarray[array[,"title"]]: the same for the elements of an array of one dimension.
int Selectarray_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|q");
    if (arguments.Error())
        return arguments.Error();
    const CString name = CString(arguments.Text(0)).Trim();
    const int index = QueryArrayVariable(name);
    if (index < 0 || ArrayVariables().At(index).sizes.count != 1)
        return -ReportArrayStatus(ArrayStatus::NotAnArray, name);
    ArrayIndexes at{1, {}};
    const auto count = std::min<std::int64_t>(ArrayVariables().At(index).sizes.values[0],
                                              static_cast<std::int64_t>(mostLines));
    std::vector<CString> lines;
    for (at.values[0] = 0; at.values[0] < count; ++at.values[0]) {
        CString element;
        if (ArrayVariables().Get(name, at, element) == ArrayStatus::Ok && !element.empty())
            lines.push_back(std::move(element));
    }
    return AnswerPicked(call, std::move(lines), arguments.Text(1));
}
