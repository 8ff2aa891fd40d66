#include "commands/help.h"

#include "commands/help_text.h"
#include "commands/unbuilt.h"
#include "engine/help_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/console_size.h"
#include "text/words.h"

const CommandHelp helpHelp = {
    u"Shows what a command does and how it is used, or lists all topics.",
    u"HELP [command]\n"
    u"command /?",
    u"Commands whose names begin with ECHO take \"/?\" as text: use HELP ECHO.",
    u"help\n"
    u"help pushd\n"
    u"cd /?",
};

namespace {

// The row's name, with the other names of the same command behind it.
CString NamesOf(const BUILTIN& row)
{
    CString names(row.name);
    if (row.help == &unbuiltHelp)
        return names;
    for (int i = 0; i < nInternalCommands; ++i)
        if (aInternalCommands[i].help == row.help && &aInternalCommands[i] != &row)
            names.Append(u", ").Append(aInternalCommands[i].name);
    return names;
}

// One line each for the commands that can be used, and how to go on.
CString TopicList()
{
    CString text;
    for (int i = 0; i < nInternalCommands; ++i) {
        const BUILTIN& row = aInternalCommands[i];
        if (row.help && row.help != &unbuiltHelp)
            text += Format(u"%-15s %s\r\n", row.name, row.help->summary);
    }
    return text += u"\r\nHELP command, or command /?, tells more. COMMANDS lists every name.\r\n";
}

int Show(std::u16string_view text) { return Print(text) ? result::success : MVError(0); }

} // namespace

int NTInternalHelp(const BUILTIN& row)
{
    // A line that fills the last column would break twice.
    const int width = IsConsole(1) ? OutputSize().columns - 1 : 0;
    return Show(HelpText(NamesOf(row), row.help ? *row.help : unbuiltHelp, width));
}

int Help_Command(CString& arguments)
{
    const CString name = GetNthArgument(arguments, 0, CurrentSyntax());
    if (name.empty())
        return Show(TopicList());
    const int index = FindRow(aInternalCommands, nInternalCommands, WithoutQuotes(name));
    return index < 0 ? MVError(errors::unknownCommand, name) : NTInternalHelp(aInternalCommands[index]);
}
