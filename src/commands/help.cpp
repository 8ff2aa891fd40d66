#include "commands/help.h"

#include <vector>

#include "commands/help_text.h"
#include "commands/reference_text.h"
#include "commands/unbuilt.h"
#include "engine/help_entry.h"
#include "engine/language_library.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/console_size.h"
#include "text/words.h"

const CommandHelp helpHelp = {
    u"Shows what a command, function or variable does and how it is used, or lists all topics.",
    u"HELP [command]\n"
    u"HELP @[function]\n"
    u"HELP _[variable]\n"
    u"command /?",
    u"@  lists the variable functions\n"
    u"_  lists the internal variables\n"
    u"Commands whose names begin with ECHO take \"/?\" as text: use HELP ECHO.",
    u"help\n"
    u"help pushd\n"
    u"help @left\n"
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
    return text += u"\r\nHELP command, or command /?, tells more. COMMANDS lists every name.\r\n"
                   u"HELP @ lists the functions, HELP _ the variables.\r\n";
}

// One line for each row of a table that the reference tells about; `mark` stands in front of the names.
template <typename Row> CString ReferenceList(const CString& mark, const Row* rows, int count)
{
    const std::vector<CString> pages = ReferencePages();
    CString text;
    for (int i = 0; i < count; ++i) {
        const CString name = mark + rows[i].name;
        for (const CString& page : pages)
            if (const std::u16string_view section = ReferenceSection(page, name); !section.empty()) {
                text += Format(u"%-18s %s\r\n", name, ReferenceSummary(section));
                break;
            }
    }
    return text;
}

// A line that fills the last column would break twice.
int HelpWidth() { return IsConsole(1) ? OutputSize().columns - 1 : 0; }

int Show(std::u16string_view text) { return Print(text) ? result::success : MVError(0); }

} // namespace

int NTInternalHelp(const BUILTIN& row)
{
    return Show(HelpText(NamesOf(row), row.help ? *row.help : unbuiltHelp, HelpWidth()));
}

int Help_Command(CString& arguments)
{
    const CString topic = GetNthArgument(arguments, 0, CurrentSyntax());
    const CString name(WithoutQuotes(topic));
    if (name.empty())
        return Show(TopicList());
    if (name == u"@")
        return Show(ReferenceList(name, aVariableFunctions, nVariableFunctions));
    if (name == u"_")
        return Show(ReferenceList(name, aInternalVariables, nInternalVariables));
    const int index = FindRow(aInternalCommands, nInternalCommands, name);
    if (index >= 0)
        return NTInternalHelp(aInternalCommands[index]);
    for (const CString& page : ReferencePages())
        if (const std::u16string_view section = ReferenceSection(page, name); !section.empty())
            return Show(ReferenceText(name, section, HelpWidth()));
    return MVError(name[0] == u'@' ? errors::unknownFunction : errors::unknownCommand, name);
}
