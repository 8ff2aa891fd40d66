#include "commands/eset.h"

#include <vector>

#include "commands/definition_stores.h"
#include "commands/definitions.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/words.h"

const CommandHelp esetHelp = {
    u"Edits the value of variables, aliases or functions.",
    u"ESET [/D | /S | /U | /V] [/P] name ...\n"
    u"ESET /A | /F [/G | /L] name ...",
    u"/A  edit aliases\n"
    u"/D  the registry's variables for users who are not logged on\n"
    u"/F  edit functions\n"
    u"/G  in the global list only\n"
    u"/L  in the local list only\n"
    u"/P  edit the pieces of a search path one after the other, and add to it at the end\n"
    u"/S  the registry's variables for all users\n"
    u"/U  the registry's variables for this user\n"
    u"/V  the registry's variables for this user until log-off\n"
    u"The value is put on the line to be changed; Enter takes it. An empty line removes the variable, or "
    u"with /P the piece. Ctrl+C leaves everything as it was.",
    u"eset prompt\n"
    u"eset /p path\n"
    u"eset /a d",
};

namespace {

struct Kind {
    DefinitionStores stores;
    unsigned notDefined;
    bool isList;
};

Kind KindOf(std::uint64_t switches)
{
    auto has = [&](int bit) { return (switches >> bit & 1) != 0; }; // of "ADFGLPSUV"
    if (has(0) || has(2))
        return {ListStores(has(0) ? ListKind::Aliases : ListKind::Functions, has(4), has(3)),
                has(0) ? errors::notAnAlias : errors::notAFunction, true};
    Kind kind{{}, errors::notInEnvironment, false};
    constexpr std::pair<int, RegistryEnvironment> places[] = {{1, RegistryEnvironment::Default},
                                                              {6, RegistryEnvironment::System},
                                                              {7, RegistryEnvironment::User},
                                                              {8, RegistryEnvironment::Volatile}};
    for (const auto& [bit, place] : places)
        if (has(bit))
            kind.stores.push_back(std::make_unique<RegistryStore>(place));
    if (kind.stores.empty())
        kind.stores.push_back(std::make_unique<EnvironmentStore>());
    return kind;
}

// False at the end of the input.
bool EditText(CString& text, std::u16string_view prompt) { return EditConsoleText(text, prompt); }

// Semicolons in quotes do not part a path.
std::vector<CString> PiecesOf(std::u16string_view path)
{
    std::vector<CString> pieces;
    bool quoted = false;
    std::size_t start = 0;
    for (std::size_t at = 0; at <= path.size(); ++at) {
        if (at < path.size() && path[at] == u'"')
            quoted = !quoted;
        if (at < path.size() && (quoted || path[at] != u';'))
            continue;
        if (at > start)
            pieces.emplace_back(path.substr(start, at - start));
        start = at + 1;
    }
    return pieces;
}

bool EditPieces(CString& path)
{
    const std::vector<CString> pieces = PiecesOf(path);
    CString edited;
    for (std::size_t i = 0;; ++i) {
        CString piece = i < pieces.size() ? pieces[i] : CString();
        if (!EditText(piece, Format(u"%3d: ", i + 1)))
            return false;
        piece.Trim();
        if (!piece.empty())
            edited.Append(edited.empty() ? u"" : u";").Append(piece);
        else if (i >= pieces.size())
            break;
    }
    path = edited;
    return true;
}

// A list takes blanks and a back-quote off the front of a value unless back-quotes stand around it.
CString Protected(const CString& value)
{
    if (!IsBlank(value.front()) && value.front() != u'`')
        return value;
    CString quoted(u"`");
    return quoted.Append(value).Append(u'`');
}

int EditEntry(std::u16string_view name, const Kind& kind, bool piecewise)
{
    CString entry;
    DefinitionStore* holder = nullptr;
    for (std::size_t i = 0; i < kind.stores.size() && !holder; ++i)
        if (kind.stores[i]->Find(name, NameMatch::WholeName, entry))
            holder = kind.stores[i].get();
    if (!holder)
        return MVError(kind.notDefined, name);
    const CString oldValue(EntryValue(entry));
    CString value(oldValue);
    CString definition(EntryName(entry));
    definition.Append(u'=');
    if (!PrintLine(entry) || !(piecewise ? EditPieces(value) : EditText(value, definition)))
        return result::error;
    if (value == oldValue)
        return result::success;
    definition.Append(kind.isList ? Protected(value) : value);
    return holder->Define(definition, {}) == result::success ? result::success : result::error;
}

} // namespace

int Eset_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"ADFGLPSUV", switches, SwitchPlace::Leading))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    if (!IsConsole(0) || !IsConsole(1))
        return MVError(errors::needsConsole, Tls().commandName);
    const Kind kind = KindOf(switches);
    const bool piecewise = (switches >> 5 & 1) != 0;
    int code = result::success;
    for (const CString& name : names)
        if (EditEntry(WithoutQuotes(name), kind, piecewise) != result::success)
            code = result::error;
    return code;
}
