#include "commands/option.h"

#include <algorithm>
#include <vector>

#include "commands/definitions.h"
#include "commands/option_effects.h"
#include "commands/pager.h"
#include "config/ini_file.h"
#include "config/ini_save.h"
#include "config/ini_writer.h"
#include "config/key_functions.h"
#include "config/setting_values.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/wildcards.h"
#include "lang/messages.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/words.h"

const CommandHelp optionHelp = {
    u"Shows and changes the settings of this shell.",
    u"OPTION [/P] [/V] [name ...]\n"
    u"OPTION [/U] name=value ...\n"
    u"OPTION /D [/U] name ...\n"
    u"OPTION /U [name ...]",
    u"/D  back to the default; with /U the lines that set it leave the INI file\n"
    u"/P  wait for a key after each screen\n"
    u"/U  write what is named into the INI file in use; without a name, all that OPTION and SETDOS have "
    u"changed. Comments and everything else in the file stay as they are\n"
    u"/V  show where the values come from: the default, a file and line, a start option, a command\n"
    u"/W  the same as /U\n"
    u"Names may hold the wildcards * and ?, but not where a value is given. A value with blanks or special "
    u"characters stands in double quotes. What lasts for this shell only is gone when it ends. //name=value "
    u"works as well. The functions that keys are bound to are settings, too, but are listed only by name.",
    u"option hist*\n"
    u"option /v commandsep escapechar\n"
    u"option histdups=last \"stdcolors=bright white on blue\"\n"
    u"option /u nextfile=\"Tab F9\"\n"
    u"option /d /u beep*",
};

namespace {

enum Switch : unsigned { backToDefault = 1, pauses = 2, update = 4, sources = 8, write = 16 };
constexpr std::u16string_view switchLetters = u"DPUVW";

struct Request {
    std::uint64_t switches = 0;
    std::vector<CString> words;

    bool Has(Switch one) const { return (switches & one) != 0; }
    bool Saves() const { return Has(update) || Has(write); }
};

int ReadRequest(std::u16string_view arguments, Request& request)
{
    const char16_t switchChar = CurrentSyntax().switchChar;
    for (Word at = NextBlankWord(arguments, 0); at.length > 0; at = NextBlankWord(arguments, at.end())) {
        CString word(arguments.substr(at.start, at.length));
        if (word.view().starts_with(u"//")) {
            request.words.push_back(word.Substr(2));
        } else if (word.front() == switchChar) {
            std::uint64_t read = 0;
            if (const int code = ReadSwitches(word, switchLetters, read))
                return code;
            request.switches |= read;
        } else {
            request.words.push_back(WithoutOuterQuotes(word));
        }
    }
    return result::success;
}

bool IsListed(const Directive& directive) { return directive.Type() != DirectiveType::Include; }

// The settings that a name, or a pattern, stands for.
SettingIndexes Matching(std::u16string_view pattern)
{
    SettingIndexes found;
    const bool isPattern = pattern.find_first_of(u"*?") != pattern.npos;
    for (int i = 0; i < static_cast<int>(nDirectives); ++i) {
        const Directive& directive = aDirectives[static_cast<std::size_t>(i)];
        const bool matches = isPattern ? WildcardComparison(pattern, directive.name, false, false) == 0
                                       : EqualNoCase(pattern, directive.name);
        if (matches && IsListed(directive))
            found.directives.push_back(i);
    }
    const int function = KeyBindings::Find(pattern);
    if (function >= 0 && found.directives.empty())
        found.keyFunctions.push_back(function);
    return found;
}

void Add(SettingIndexes& all, const SettingIndexes& more)
{
    all.directives.insert(all.directives.end(), more.directives.begin(), more.directives.end());
    all.keyFunctions.insert(all.keyFunctions.end(), more.keyFunctions.begin(), more.keyFunctions.end());
}

// Adds what each name stands for; a name that stands for nothing is reported.
int CollectNames(const std::vector<CString>& names, SettingIndexes& all)
{
    int code = result::success;
    for (const CString& name : names) {
        const SettingIndexes found = Matching(name);
        if (found.empty())
            code = MVError(errors::iniItem, name);
        Add(all, found);
    }
    return code;
}

CString ShownValue(const Directive& directive)
{
    CString value;
    if (directive.Type() == DirectiveType::Character || directive.Type() == DirectiveType::Color)
        value = IniValueText(directive, aIniFile);
    else
        FormatValue(directive, aIniFile, value);
    return value;
}

int Show(const SettingIndexes& what, const Request& request)
{
    Pager pager(request.Has(pauses));
    auto line = [&](std::u16string_view name, std::u16string_view value, const CString& source) {
        const CString text = Format(u"%s=%s", name, value);
        return pager.Line(request.Has(sources) ? Format(u"%-39s %s", text, source) : text);
    };
    for (const int index : what.directives) {
        const Directive& directive = aDirectives[static_cast<std::size_t>(index)];
        if (!line(directive.name, ShownValue(directive), SettingSourceText(index)))
            return MVError(0);
    }
    for (const int function : what.keyFunctions) {
        const CString source =
            aKeyBindings.IsDefault(function) ? LoadMessage(message::fromDefault) : CString();
        if (!line(aKeyFunctions[static_cast<std::size_t>(function)].name, aKeyBindings.Keys(function),
                  source))
            return MVError(0);
    }
    return result::success;
}

void Reset(const SettingIndexes& what)
{
    for (const int index : what.directives)
        ResetSetting(index);
    for (const int function : what.keyFunctions)
        aKeyBindings.Reset(function);
    ApplySettingEffects(what.directives);
}

SettingIndexes ChangedByCommands()
{
    SettingIndexes changed;
    for (int i = 0; i < static_cast<int>(nDirectives); ++i)
        if (aSettingSources.rows[static_cast<std::size_t>(i)].origin == SettingOrigin::Command)
            changed.directives.push_back(i);
    return changed;
}

int Set(std::u16string_view assignment, SettingIndexes& changed)
{
    const std::size_t equal = assignment.find(u'=');
    const std::u16string_view name = assignment.substr(0, equal);
    const CString value = WithoutOuterQuotes(assignment.substr(equal + 1));
    SettingIndexes meant;
    const int directive = FindDirective(name);
    const int function = directive < 0 ? KeyBindings::Find(name) : -1;
    if (name.empty())
        return UsageError();
    if (directive < 0 && function < 0)
        return MVError(errors::iniItem, name);
    (directive < 0 ? meant.keyFunctions : meant.directives).push_back(directive < 0 ? function : directive);
    if (const int code = ChangeSetting(name, value))
        return code;
    Add(changed, meant);
    return result::success;
}

// Sets what has a value and shows the rest.
int SetOrShow(const Request& request)
{
    SettingIndexes named;
    SettingIndexes shown;
    int code = result::success;
    for (const CString& word : request.words) {
        const bool isAssignment = word.Find(u'=') != CString::npos;
        const int answer =
            isAssignment ? Set(word, named) : CollectNames({word}, request.Saves() ? named : shown);
        code = answer != result::success ? answer : code;
    }
    if (!shown.empty())
        code = std::max(code, Show(shown, request));
    return request.Saves() && !named.empty() ? std::max(code, SaveToIniFile(named, IniSaving::Values)) : code;
}

int BackToDefault(const Request& request)
{
    SettingIndexes named;
    const bool assigns = std::any_of(request.words.begin(), request.words.end(),
                                     [](const CString& word) { return word.Find(u'=') != CString::npos; });
    if (assigns || request.words.empty())
        return UsageError();
    const int code = CollectNames(request.words, named);
    Reset(named);
    return request.Saves() && !named.empty() ? std::max(code, SaveToIniFile(named, IniSaving::Nothing))
                                             : code;
}

} // namespace

int Option_Command(CString& arguments)
{
    int code = result::success;
    if (RefuseDialog(arguments, code))
        return code;
    Request request;
    if (const int refused = ReadRequest(arguments, request))
        return refused;
    if (request.Has(backToDefault))
        return BackToDefault(request);
    if (!request.words.empty())
        return SetOrShow(request);
    return request.Saves() ? SaveToIniFile(ChangedByCommands(), IniSaving::Values)
                           : Show(Matching(u"*"), request);
}
