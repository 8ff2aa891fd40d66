#include "commands/select.h"

#include <windows.h>

#include <algorithm>

#include "commands/file_order.h"
#include "commands/file_texts.h"
#include "commands/search_switches.h"
#include "console/popup_style.h"
#include "core/command_switches.h"
#include "engine/command_entry.h"
#include "engine/expansion_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/descriptions.h"
#include "files/file_search.h"
#include "lang/console_messages.h"
#include "platform/console.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/references.h"
#include "text/scanner.h"
#include "text/words.h"

const CommandHelp selectHelp = {
    u"Shows files in a list on the screen and runs a command for those that are marked.",
    u"SELECT [range ...] [/A[:]attributes] [/D] [/F] [/L] [/M] [/N] [/O[:]order] [/S[levels]] [/T[:]time] "
    u"[/X] [/1] [command] (name ...) [rest of the command]\n"
    u"SELECT [switches] [command] [name ...] [rest of the command]     (brackets as such)",
    u"/A  files with these attributes; without it neither directories nor hidden and system files\n"
    u"/D  no descriptions\n"
    u"/F  hand over full names\n"
    u"/L  names in lower case\n"
    u"/M  all files are marked at first\n"
    u"/N  show the commands instead of running them\n" //
    FILE_ORDER_HELP                                    //
    u"/S  directories below as well; with a number, so many levels of them\n"
    u"/T  which time is shown and sorted by: C creation, A last access, W last write\n"
    u"/X  hand over short names\n"
    u"/1  one file alone, that at the bar\n"
    u"With parentheses the command runs once for each marked file, whose name takes their place; with "
    u"brackets it runs once with the names of all. Names with blanks get quotes.\n"
    u"In the list Space marks, + and - mark and unmark, * turns all marks over, / takes all off; typed "
    u"letters show only the names that hold them. Enter runs the command for the marked files, or for the "
    u"one at the bar when none is marked; Esc leaves, and the result is then 2.",
    u"select del (*.bak)\n"
    u"select /o:-d copy [*.txt] d:\\backup\n"
    u"select /s /[d-7] notepad (*.log)\n"
    u"select /1 /a:d cd (*)",
};

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

struct SelectRequest {
    CString before; // of the command
    CString names;
    CString behind;
    bool together = false; // the marked files are one argument list

    AttributeMasks attributes;
    RANGES ranges;
    std::vector<FileSortKey> order;
    WhichTime time = WhichTime::Written;
    int deepest = 0;
    bool descriptions = true;
    bool fullNames = false;
    bool lowerCase = false;
    bool allMarked = false;
    bool shows = false;
    bool shortNames = false;
    bool onlyOne = false;
};

// The names that the list shows, and what the command is given for each.
struct Choices {
    std::vector<CString> names;
    std::vector<CString> facts;
    std::vector<CString> arguments;
};

int ReadTime(CString& arguments, WhichTime& time)
{
    CString text;
    while (TakeSwitchLetters(arguments, u"T", text)) {
        const std::u16string_view letter =
            text.view().starts_with(u':') ? text.view().substr(1) : text.view();
        if (EqualNoCase(letter, u"C"))
            time = WhichTime::Created;
        else if (EqualNoCase(letter, u"A"))
            time = WhichTime::Accessed;
        else if (EqualNoCase(letter, u"W"))
            time = WhichTime::Written;
        else
            return MVError(errors::invalidSwitch, Format(u"%cT%s", CurrentSyntax().switchChar, text));
    }
    return 0;
}

// The "(" or "[" that opens the list of files, outside quotes and references; npos when there is none.
std::size_t FindList(std::u16string_view text, const Syntax& syntax)
{
    for (std::size_t at = 0; at < text.size();) {
        at = scan(text, u"%([", quotes::both, syntax, at);
        if (at == npos || text[at] != u'%')
            return at;
        at = PassReference(text, at, syntax);
    }
    return npos;
}

// Where the command begins, behind SELECT's own switches and ranges.
std::size_t PassSwitches(std::u16string_view text, const Syntax& syntax)
{
    std::size_t at = 0;
    for (;;) {
        const Word word = NextBlankWord(text, at);
        if (word.length == 0 || text[word.start] != syntax.switchChar)
            return at;
        const bool range = word.length > 1 && text[word.start + 1] == u'[';
        const std::size_t close = range ? FindClosing(text, word.start + 1, quotes::both, syntax) : npos;
        at = close == npos ? word.end() : close + 1;
    }
}

// Parts what follows the switches into the command and the list of files. False when there is no list.
bool FindParts(std::u16string_view text, SelectRequest& request)
{
    const Syntax syntax = CurrentSyntax();
    const std::size_t open = FindList(text, syntax);
    const std::size_t close = open == npos ? npos : FindClosing(text, open, quotes::both, syntax);
    if (close == npos)
        return false;
    request.together = text[open] == u'[';
    request.before = CString(text.substr(0, open)).TrimLeft();
    request.names = text.substr(open + 1, close - open - 1);
    request.behind = text.substr(close + 1);
    return true;
}

// The switches stand in front of the command; what follows has switches of its own.
int ReadRequest(const CString& arguments, SelectRequest& request)
{
    const std::size_t commandStart = PassSwitches(arguments, CurrentSyntax());
    if (!FindParts(arguments.view().substr(commandStart), request))
        return MVError(errors::noFileList);
    CString switches = arguments.Substr(0, commandStart);
    CString text;
    int code = VariableExpansion(switches);
    if (code == 0)
        code = VariableExpansion(request.names);
    if (code == 0)
        code = GetRange(switches, &request.ranges, 0);
    const std::size_t length = switches.size();
    if (code == 0)
        code = TakeAttributeSwitches(switches, request.attributes);
    if (switches.size() == length)
        request.attributes.forbidden |= file_attribute::directory;
    while (code == 0 && TakeSwitchLetters(switches, u"O", text))
        code =
            ReadFileOrder(text.view().starts_with(u':') ? text.view().substr(1) : text.view(), request.order);
    if (code == 0)
        code = ReadTime(switches, request.time);
    if (code == 0)
        code = TakeDepthSwitch(switches, request.deepest);
    std::uint64_t flags = 0;
    if (code == 0)
        code = ReadSwitches(switches, u"DFLMNX1", flags);
    request.descriptions = (flags & 1) == 0 && aIniFile.Descriptions;
    request.fullNames = (flags & 2) != 0;
    request.lowerCase = (flags & 4) != 0;
    request.allMarked = (flags & 8) != 0;
    request.shows = (flags & 16) != 0;
    request.shortNames = (flags & 32) != 0;
    request.onlyOne = (flags & 64) != 0;
    return code;
}

// "%" in a name would begin a reference when the command runs.
CString AsArgument(CString name)
{
    const bool quoted = AddQuotes(name) != name;
    for (std::size_t at = name.Find(u'%'); at != npos; at = name.Find(u'%', at + 2))
        name.Insert(at, u"%");
    return quoted ? CString(u"\"") + name.view() + u"\"" : name;
}

CString HandedName(const SelectRequest& request, const SearchedDirectory& directory, const FoundFile& file)
{
    const CString& own = request.shortNames && !file.shortName.empty() ? file.shortName : file.name;
    CString name = (request.fullNames ? directory.found.name : directory.shown) + own.view();
    // What a walk finds below is named by way of the first directory.
    if (!request.fullNames && directory.found.depth > 0)
        name = directory.found.name + own.view();
    if (request.lowerCase)
        MakeLower(name);
    return name;
}

void AddDirectory(const SelectRequest& request, SearchedDirectory& directory, FileTexts& texts,
                  Choices& choices)
{
    if (directory.found.files.empty())
        return;
    SortFiles(directory.found.files, directory.found.name, request.order, request.time);
    std::optional<DirectoryDescriptions> descriptions;
    if (request.descriptions)
        descriptions.emplace(directory.found.name);
    for (const FoundFile& file : directory.found.files) {
        const CString name = HandedName(request, directory, file);
        CString facts = Format(u"%s %s", texts.DateAndTime(TimeOf(file.facts, request.time)),
                               texts.SizeColumn(file.facts, file.facts.size));
        if (descriptions)
            facts.Append(descriptions->Of(file.name));
        choices.names.push_back(name);
        choices.facts.push_back(facts.TrimRight());
        choices.arguments.push_back(AsArgument(name));
    }
}

int FindChoices(const SelectRequest& request, Choices& choices)
{
    FileTexts texts;
    for (const CString& name : SplitArguments(request.names, true, CurrentSyntax())) {
        FILESEARCH search;
        search.attributes = request.attributes;
        search.ranges = request.ranges;
        search.deepest = request.deepest;
        search.shortNames = request.shortNames;
        search.intoDirectories = true;
        SearchedDirectory directory;
        for (StartSearch(search, name); NextDirectory(search, directory);)
            AddDirectory(request, directory, texts, choices);
        if (search.error != 0)
            return MVError(search.error, search.failed);
    }
    return choices.names.empty() ? MVError(ERROR_FILE_NOT_FOUND, request.names) : result::success;
}

PopupResult Ask(const SelectRequest& request, const Choices& choices)
{
    PopupRequest popup = UsualPopup();
    popup.title = CString(request.before).Trim();
    popup.lines = choices.names;
    popup.notes = choices.facts;
    const ScreenFacts screen = ReadScreenFacts().value_or(ScreenFacts());
    popup.place = {0, 0, screen.windowRows, screen.windowColumns};
    popup.marks = !request.onlyOne;
    popup.allMarked = popup.marks && request.allMarked;
    popup.footer = LoadMessage(request.onlyOne ? message::selectOneKeys : message::selectKeys);
    return RunPopupList(std::move(popup));
}

int Run(const SelectRequest& request, const CString& names)
{
    const CString command = request.before + names.view() + request.behind.view();
    if (request.shows)
        return PrintLine(command) ? result::success : MVError(0);
    return Command_S(command, 0);
}

int Prepare(CString& arguments, SelectRequest& request, Choices& choices)
{
    if (const int code = ReadRequest(arguments.Trim(), request))
        return code;
    if (CString(request.before).Trim().empty() && CString(request.behind).Trim().empty() && !request.shows)
        return UsageError();
    if (!HasConsole() || !IsConsole(0))
        return MVError(errors::needsConsole);
    return FindChoices(request, choices);
}

} // namespace

int Select_Command(CString& arguments)
{
    SelectRequest request;
    Choices choices;
    // The error level is the commands' own, unless none runs.
    if (const int code = Prepare(arguments, request, choices))
        return Tls().errorLevel = code;
    const PopupResult picked = Ask(request, choices);
    if (picked.action == PopupAction::Cancelled)
        return Tls().errorLevel = result::error;
    CString together;
    if (request.shows)
        Tls().errorLevel = result::success;
    int code = result::success;
    for (const std::size_t line : picked.marked) {
        if (request.together) {
            together.Append(together.empty() ? u"" : u" ").Append(choices.arguments[line]);
            continue;
        }
        const int one = Run(request, choices.arguments[line]);
        if (EndsLine(one))
            return one;
        code = one != result::success ? one : code;
    }
    return request.together ? Run(request, together) : code;
}
