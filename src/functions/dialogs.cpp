// Boxes in which a person picks something. Where no person sits (standard input is no console) the answer is
// empty and no box is shown; so it is when the person cancels.
#include "functions/families.h"

#include "engine/output.h"
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
