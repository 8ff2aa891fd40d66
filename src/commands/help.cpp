#include "commands/help.h"

#include <algorithm>
#include <vector>

#include "commands/help_subjects.h"
#include "commands/help_syntax.h"
#include "commands/help_text.h"
#include "commands/pager.h"
#include "commands/reference_text.h"
#include "commands/unbuilt.h"
#include "config/key_functions.h"
#include "console/completion_word.h"
#include "core/alias_extras.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/help_entry.h"
#include "engine/language_library.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "files/wildcards.h"
#include "lang/console_messages.h"
#include "platform/console_size.h"
#include "text/compare.h"
#include "text/words.h"

const CommandHelp helpHelp = {
    u"Shows what a command, function or variable does and how it is used.",
    u"HELP [/N]\n"
    u"HELP [/N] command ...\n"
    u"HELP [/N] subject ...\n"
    u"HELP [/N] @[function] ...\n"
    u"HELP [/N] _[variable] ...\n"
    u"HELP [/N] word ...\n"
    u"command /?",
    u"/N  do not wait for a key after each screen\n"
    u"Without arguments there is an overview with the subjects; HELP files lists the commands about files, "
    u"HELP all every command, HELP syntax tells how lines are written, HELP keyboard lists the keys of the "
    u"command line, HELP @ the functions and HELP _ the internal variables. The beginning of a subject's "
    u"name will do. Any other word, which may hold wildcards, lists the commands that have it in their "
    u"names, descriptions or usage, and the functions and variables that have it in their names. Of several "
    u"words each is told about in turn. For an alias or a function of your own HELP shows what it stands "
    u"for.\n"
    u"On the command line F1 shows the help for the word at the cursor. Commands whose names begin with "
    u"ECHO take \"/?\" as text: use HELP ECHO.",
    u"help\n"
    u"help pushd\n"
    u"help batch\n"
    u"help @left\n"
    u"help rename\n"
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

bool IsBuilt(const BUILTIN& row) { return row.help && row.help != &unbuiltHelp; }

// A word in capitals stands in usage lines as it is typed: ELSE, ENDIFF.
bool HoldsWord(std::u16string_view usage, std::u16string_view word)
{
    CString typed(word);
    MakeUpper(typed);
    for (std::size_t at = usage.find(typed); at != usage.npos; at = usage.find(typed, at + 1)) {
        const std::size_t end = at + typed.size();
        if ((at == 0 || !IsLetter(usage[at - 1])) && (end == usage.size() || !IsLetter(usage[end])))
            return true;
    }
    return false;
}

// A line each for the commands that can be used and are wanted.
template <typename Wanted> CString CommandList(Wanted wanted)
{
    CString text;
    for (int i = 0; i < nInternalCommands; ++i) {
        const BUILTIN& row = aInternalCommands[i];
        if (IsBuilt(row) && wanted(row))
            text += Format(u"%-14s  %s\n", row.name, row.help->summary);
    }
    return text;
}

CString SubjectList(const HelpSubject& subject)
{
    return CommandList([&](const BUILTIN& row) { return &HelpSubjectOf(row.name) == &subject; });
}

// What a newcomer should know, and how to go on.
CString Overview(int width)
{
    CString text = HelpParagraph(
        u"A line begins with the name of a command, an alias or a program; what stands behind it are its "
        u"arguments and switches, parted by blanks. Enter runs the line.",
        width);
    AppendHelpSection(text, u"More help",
                      u"HELP command   what a command does, for example HELP DIR; so does  command /?\n"
                      u"HELP subject   the commands about a subject; the subjects are listed below\n"
                      u"HELP all       every command with what it does; COMMANDS lists the names alone\n"
                      u"HELP word      what the word may mean: commands, functions, variables\n"
                      u"HELP @         the functions, as %@upper[text]; HELP @upper tells about one\n"
                      u"HELP _         the internal variables, as %_cwd; HELP _cwd tells about one\n"
                      u"HELP syntax    several commands on a line, redirection, pipes, special characters\n"
                      u"HELP keyboard  the keys of the command line: Tab completes names, Up recalls lines",
                      width);
    CString subjects;
    for (const HelpSubject& subject : helpSubjects)
        if (!SubjectList(subject).empty())
            subjects += Format(u"%-13s  %s\n", subject.name, subject.title);
    AppendHelpSection(text, u"Subjects", subjects, width);
    AppendHelpSection(text, u"First steps",
                      u"dir                      what is in this directory\n"
                      u"cd \\windows              go to another one; cd .. goes up\n"
                      u"copy report.txt d:\\      copy a file; move, ren and del do what they say\n"
                      u"set name=value           a variable; echo %name shows it\n"
                      u"dir /? > help.txt        \">\" writes into a file what would be shown\n"
                      u"exit                     leave",
                      width);
    return text;
}

// The functions of the command line's keys and the keys that they have now.
CString KeyList()
{
    CString text;
    for (int i = 0; i < static_cast<int>(nKeyFunctions); ++i) {
        const KeyFunctionRow& row = aKeyFunctions[static_cast<std::size_t>(i)];
        const std::u16string_view keys = aKeyBindings.Keys(i);
        if ((row.category & key_category::lineEditor) != 0 && !keys.empty())
            text += Format(u"%-25s  %s (%s)\n", keys, row.description, row.name);
    }
    return text;
}

// One line for each row of a table that the reference tells about and that is wanted by its name; `mark`
// stands in front of the names.
template <typename Row, typename Wanted>
CString ReferenceList(std::u16string_view mark, const Row* rows, int count, Wanted wanted)
{
    const std::vector<CString> pages = ReferencePages();
    CString text;
    for (int i = 0; i < count; ++i) {
        const CString name = CString(mark) + rows[i].name;
        if (!wanted(name))
            continue;
        for (const CString& page : pages)
            if (const std::u16string_view section = ReferenceSection(page, name); !section.empty()) {
                text += Format(u"%-17s  %s\n", name, ReferenceSummary(section));
                break;
            }
    }
    return text;
}

template <typename Wanted> CString FunctionList(Wanted wanted)
{
    return ReferenceList(u"@", aVariableFunctions, nVariableFunctions, wanted);
}

template <typename Wanted> CString VariableList(Wanted wanted)
{
    return ReferenceList(u"_", aInternalVariables, nInternalVariables, wanted);
}

// What a word or a pattern that names nothing may have meant: commands by what they are called and do and by
// the words of their usage, functions and variables by their names.
CString FoundByWord(std::u16string_view word)
{
    const bool isPattern = word.find_first_of(u"*?") != word.npos;
    const auto named = [&](std::u16string_view name) {
        return isPattern ? WildcardComparison(word, name, false, true) == 0
                         : FindNoCase(name, word) != CString::npos;
    };
    const auto tells = [&](std::u16string_view text) {
        return !isPattern && FindNoCase(text, word) != CString::npos;
    };
    return CommandList([&](const BUILTIN& row) {
               return named(row.name) || tells(row.help->summary) || HoldsWord(row.help->usage, word);
           }) +
           FunctionList(named) + VariableList(named);
}

// A line that fills the last column would break twice.
int HelpWidth() { return IsConsole(1) ? OutputSize().columns - 1 : 0; }

// A screen at a time where a person reads it.
int Show(std::u16string_view text, bool pauses = true)
{
    Pager pager(pauses);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u'\n'), text.size() - 1) + 1;
        if (!pager.Piece(text.substr(0, end)))
            return MVError(0);
        text.remove_prefix(end);
    }
    return result::success;
}

CString CommandText(const BUILTIN& row, int width)
{
    return HelpText(NamesOf(row), row.help ? *row.help : unbuiltHelp, width);
}

// Of a command, a function or a variable of that name.
CString ExactText(std::u16string_view name, int width)
{
    if (const int index = FindRow(aInternalCommands, nInternalCommands, name); index >= 0)
        return CommandText(aInternalCommands[index], width);
    for (const CString& page : ReferencePages())
        if (const std::u16string_view section = ReferenceSection(page, name); !section.empty())
            return ReferenceText(name, section, width);
    return {};
}

// What an alias, of a key too, or a function of the person's own stands for, and below it the help of what it
// hides, or else of the command that an alias begins with.
CString DefinedText(std::u16string_view name, int width)
{
    CString value;
    if (name.front() == u'@' && GetFunction(name.substr(1), value))
        return HelpParagraph(Format(u"%s is a function of your own: %s", name, value), width);
    const CString alias = name.front() == u'@' ? KeyAliasName(name) : CString(name);
    if (alias.empty() || !GetAlias(alias, value))
        return {};
    const CString text = HelpParagraph(Format(u"%s is an alias: %s", alias, value), width);
    CString more = ExactText(alias, width);
    if (more.empty())
        more = ExactText(GetNthArgument(value.TrimLeft(u" \t*@"), 0, CurrentSyntax()), width);
    return more.empty() ? text : text + u"\r\n" + more;
}

// "" when nothing is known of the topic.
CString TopicText(std::u16string_view name, int width)
{
    if (name.empty())
        return Overview(width);
    const auto every = [](std::u16string_view) { return true; };
    if (name == u"@")
        return HelpParagraph(FunctionList(every), width);
    if (name == u"_")
        return HelpParagraph(VariableList(every), width);
    if (const CString text = DefinedText(name, width); !text.empty())
        return text;
    if (const CString text = ExactText(name, width); !text.empty())
        return text;
    if (EqualNoCase(name, u"all"))
        return HelpParagraph(CommandList([](const BUILTIN&) { return true; }), width);
    if (name.size() > 2 && BeginsNoCase(u"keyboard", name))
        return HelpParagraph(KeyList(), width);
    if (IsSyntaxWord(name))
        return SyntaxPage(width);
    if (const HelpSubject* subject = FindHelpSubject(name))
        return HelpParagraph(SubjectList(*subject), width);
    return HelpParagraph(FoundByWord(name), width);
}

// One empty name where none is given. Of "@left[abc, 2]" the function counts, and a switch behind a name, as
// in "help dir /o", is told about with the name.
std::vector<CString> TopicNames(CString text)
{
    for (std::size_t at = text.Find(u'['); at != CString::npos; at = text.Find(u'[', at)) {
        const std::size_t end = text.Find(u']', at);
        text.Erase(at, end == CString::npos ? text.size() - at : end + 1 - at);
    }
    std::vector<CString> names;
    for (const CString& argument : SplitArguments(text, false, CurrentSyntax()))
        if (names.empty() || argument.front() != CurrentSyntax().switchChar)
            names.push_back(WithoutQuotes(argument));
    if (names.empty())
        names.emplace_back();
    return names;
}

class TableCommands : public KnownCommands {
public:
    bool IsInternal(std::u16string_view name) override
    {
        return FindRow(aInternalCommands, nInternalCommands, name) >= 0;
    }
};

// "@name" of the innermost function whose brackets hold the place; "" for none.
std::u16string_view FunctionAround(std::u16string_view line, std::size_t at)
{
    for (int closed = 0; at-- > 0;) {
        if (line[at] == u']')
            ++closed;
        else if (line[at] == u'[' && closed > 0)
            --closed;
        else if (line[at] == u'[') {
            const std::size_t percent = line.rfind(u"%@", at);
            const std::u16string_view name =
                percent == line.npos ? std::u16string_view() : line.substr(percent + 1, at - percent - 1);
            if (!name.empty() && name.find_first_of(u" %[]\"") == name.npos)
                return name;
        }
    }
    return {};
}

} // namespace

int NTInternalHelp(const BUILTIN& row) { return Show(CommandText(row, HelpWidth())); }

void ShowHelpForPlace(std::u16string_view line, std::size_t cursor)
{
    TableCommands commands;
    const CompletionWord word = FindCompletionWord(line, cursor, true, CurrentSyntax(), commands);
    std::u16string_view name = line.substr(word.start, word.end - word.start);
    if (word.place == WordPlace::Variable || word.place == WordPlace::Function) {
        const std::size_t first = std::min(name.find_first_not_of(u"%["), name.size());
        name = name.substr(first, name.find_last_not_of(u"%[]") + 1 - first);
    } else if (const std::u16string_view function = FunctionAround(line, cursor); !function.empty()) {
        name = function;
    } else if (word.place != WordPlace::Command && !EqualNoCase(word.command, u"HELP")) {
        name = word.command;
    }
    const CString text = name.empty() ? CString() : TopicText(name, HelpWidth());
    try {
        Show(text.empty() ? Overview(HelpWidth()) : text);
    } catch (const ListingLeft&) { // the line goes on being edited
    }
}

int Help_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"N", flags, SwitchPlace::Leading))
        return code;
    CString text;
    std::vector<CString> unknown;
    for (const CString& name : TopicNames(arguments)) {
        const CString told = TopicText(name, HelpWidth());
        if (told.empty())
            unknown.push_back(name);
        else
            text.Append(text.empty() ? u"" : u"\r\n").Append(told);
    }
    int code = Show(text, flags == 0);
    for (const CString& name : unknown)
        code = MVError(name[0] == u'@' ? errors::unknownFunction : errors::noHelp, name);
    return code;
}
