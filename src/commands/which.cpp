#include "commands/which.h"

#include <algorithm>
#include <vector>

#include "core/associations.h"
#include "core/command_lookup.h"
#include "core/command_switches.h"
#include "core/extension_variables.h"
#include "core/path_search.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "files/directory_name.h"
#include "lang/messages.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp whichHelp = {
    u"Tells what a name would run as a command.",
    u"WHICH [/A] name...",
    u"/A  everything of that name: aliases, functions, internal commands, and all files along the path\n"
    u"Names that change the drive or the directory are told as well. A \"*\" in front passes over aliases. "
    u"The error level is 2 when one of the names is unknown.",
    u"which dir notepad\n"
    u"which /a find",
};

namespace {

bool Tell(unsigned number, std::u16string_view name, std::u16string_view what = {})
{
    return PrintLine(LoadMessage(number, name).Append(what));
}

// How a file that was found would run.
void TellFile(const CString& name, const CString& file)
{
    const std::u16string_view extension = ExtensionPart(file);
    auto isOneOf = [&](std::initializer_list<std::u16string_view> list) {
        return std::any_of(list.begin(), list.end(),
                           [&](std::u16string_view known) { return EqualNoCase(known, extension); });
    };
    Association association;
    CString command;
    if (isOneOf({u".com", u".exe"}))
        Tell(message::whichProgram, name, file);
    else if (isOneOf({u".btm", u".bat", u".cmd"}))
        Tell(message::whichBatchFile, name, file);
    else if (command = FindExtensionCommand(EnvironmentEntries(u"."), extension);
             !command.empty() && command.front() != u'*')
        Tell(message::whichExtension, name, command.Append(u' ').Append(AddQuotes(file)));
    else if (MyFindExecutable(file, association))
        Tell(message::whichAssociated, file, association.program);
    else
        Tell(message::whichFile, name, file);
}

bool IsDrive(std::u16string_view name) { return name.size() == 2 && DriveLetter(name) != 0; }

bool ChangesDirectory(const CString& name)
{
    return name == u"-" || (aIniFile.AutoCDD && QueryIsDirectory(name));
}

// In the order in which the shell would look. False when nothing has that name.
bool TellName(const CString& word, bool all)
{
    CString name = WithoutQuotes(word);
    bool known = false;
    auto goesOn = [&] { return all || !known; };
    CString value;
    const bool passesAliases = name.size() > 1 && name.front() == u'*';
    if (passesAliases)
        name.Erase(0, 1);
    else if (GetAlias(name, value))
        known = Tell(message::whichAlias, name, value);
    if (goesOn() && IsDrive(name))
        known = Tell(message::whichDrive, name);
    if (goesOn() && FindInternalCommand(name, false) >= 0)
        known = Tell(message::whichInternal, name);
    const std::u16string_view function = name.front() == u'@' ? name.view().substr(1) : name.view();
    if (goesOn() && !function.empty() && GetFunction(function, value))
        known = Tell(message::whichFunction, name, value);
    if (!goesOn())
        return true;
    std::vector<CString> files;
    if (all)
        files = SearchAllPaths(name);
    else if (CString file = SearchPaths(name); !file.empty())
        files.push_back(std::move(file));
    for (const CString& file : files)
        TellFile(name, file);
    known = known || !files.empty();
    if (goesOn() && ChangesDirectory(name))
        known = Tell(message::whichDirectory, name);
    return known;
}

} // namespace

int Which_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"A", flags); code != 0)
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    int code = result::success;
    for (const CString& name : names) {
        if (TellName(name, flags != 0))
            continue;
        Tell(message::whichUnknown, name);
        code = result::error;
    }
    return code;
}
