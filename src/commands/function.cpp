#include "commands/function.h"

#include "commands/list_commands.h"
#include "engine/results.h"
#include "engine/state.h"

const CommandHelp functionHelp = {
    u"Shows or defines variable functions of your own.",
    u"FUNCTION [/G | /L] [/P] [/S] [name]\n"
    u"FUNCTION [/G | /L] [/O] name[=]body\n"
    u"FUNCTION /R [/G | /L] [/O] [file ...]",
    u"/G  the global list, which all shells of this user share\n"
    u"/L  the local list of this shell\n"
    u"/O  leave functions alone that exist already\n"
    u"/P  wait for a key after each screen\n"
    u"/R  read definitions from files or standard input. Lines that begin with : or ; are comments, and a "
    u"line that ends with the escape character goes on in the next one\n"
    u"/S  show sorted by name\n"
    u"Definitions go to the local list when there is one, else to the global one. %@name[arguments] stands "
    u"for the body, in which %1, %2 and so on are the arguments. Back-quotes around the body keep its "
    u"variables for the time when it is used.",
    u"function twice=`%@eval[%1*2]`\n"
    u"echo %@twice[21]\n"
    u"function",
};

const CommandHelp unfunctionHelp = {
    u"Removes variable functions of your own.",
    u"UNFUNCTION [/G | /L] [/Q] name ...\n"
    u"UNFUNCTION /R [/G | /L] [/Q] [file ...]",
    u"/G  from the global list only\n"
    u"/L  from the local list only\n"
    u"/Q  no message when nothing was there to remove\n"
    u"/R  read the names from files or standard input\n"
    u"Names may hold the wildcards *, ? and [...]; * alone removes every function.",
    u"unfunction twice\n"
    u"unfunction *",
};

namespace {

constexpr ListCommand functions = {ListKind::Functions, errors::noFunctionList, errors::notAFunction};

// The dialog may be asked for behind the definition, too.
bool AsksForDialogBehind(std::u16string_view text)
{
    const char16_t request[] = {u' ', CurrentSyntax().switchChar, u'='};
    return text.find(std::u16string_view(request, 3)) != std::u16string_view::npos;
}

} // namespace

int Function_Command(CString& arguments)
{
    if (AsksForDialogBehind(arguments))
        return MVError(errors::unbuiltDialog, Tls().commandName);
    return DefineInList(arguments, functions);
}

int Unfunction_Command(CString& arguments) { return RemoveFromList(arguments, functions); }
