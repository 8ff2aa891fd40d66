#include "console/system_completion.h"

#include <algorithm>

#include "config/directives.h"
#include "console/completion.h"
#include "console/completion_scripts.h"
#include "core/alias_extras.h"
#include "core/command_lookup.h"
#include "core/path_search.h"
#include "engine/inifile.h"
#include "engine/internal_entry.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "files/directory_source.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/machine_names.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

constexpr unsigned everyServer = 0xFFFFFFFF; // SV_TYPE_ALL
constexpr unsigned domains = 0x80000000;     // SV_TYPE_DOMAIN_ENUM

CompletionSettings SettingsInForce()
{
    CompletionSettings settings;
    settings.appendToDir = aIniFile.AppendToDir != 0;
    settings.completeAliases = aIniFile.CompleteAliases != 0;
    settings.completeAllFiles = aIniFile.CompleteAllFiles != 0;
    settings.completeHiddenDirs = aIniFile.CompleteHidden != 0 || aIniFile.CompleteHiddenDirs != 0;
    settings.completeHiddenFiles = aIniFile.CompleteHidden != 0 || aIniFile.CompleteHiddenFiles != 0;
    settings.completeInternals = aIniFile.CompleteInternals != 0;
    settings.completePaths = aIniFile.CompletePaths != 0;
    settings.completePercents = aIniFile.CompletePercents != 0;
    settings.filesCaseSensitive = aIniFile.FilesCaseSensitive != 0;
    settings.shortNames = aIniFile.Win32SFNSearch != 0;
    settings.tabX = aIniFile.TabX == choice::tabX::none  ? ArgumentKnowledge::None
                    : aIniFile.TabX == choice::tabX::all ? ArgumentKnowledge::All
                                                         : ArgumentKnowledge::Selected;
    // The variable is for those who want other lists in some shells.
    if (!ReadEnvironment(u"FileCompletion", settings.fileCompletion))
        settings.fileCompletion = aIniFile.FileCompletion;
    return settings;
}

template <typename Row> std::vector<CString> RowNames(const Row* rows, int count)
{
    std::vector<CString> names;
    for (int i = 0; i < count; ++i)
        names.emplace_back(rows[i].name);
    return names;
}

std::vector<CString> EnabledCommands()
{
    std::vector<CString> names;
    for (int i = 0; i < nInternalCommands; ++i)
        if (IsCommandEnabled(aInternalCommands[i]))
            names.emplace_back(aInternalCommands[i].name);
    return names;
}

std::vector<CString> VariableNames()
{
    std::vector<CString> names;
    for (const CString& entry : EnvironmentEntries())
        if (entry.front() != u'=')
            names.push_back(entry.Substr(0, EnvironmentNameEnd(entry)));
    return names;
}

// Of the local and the global list. "*" marks where an alias may be cut short; keys have no names to type.
std::vector<CString> ListNames(ListKind kind)
{
    std::vector<CString> names;
    for (const ListScope scope : {ListScope::Local, ListScope::Global})
        for (const CString& entry : ListEntries(StoreOf(kind, scope))) {
            CString name(EntryName(entry));
            if (IsKeyAlias(name))
                continue;
            if (const std::size_t mark = name.Find(u'*'); mark != npos && mark > 0)
                name.Erase(mark, 1);
            names.push_back(std::move(name));
        }
    return names;
}

std::vector<CString> SettingNames()
{
    std::vector<CString> names;
    for (const Directive& directive : aDirectives)
        names.emplace_back(directive.name);
    return names;
}

// The names of machines are what the network tells at the first question; asking takes seconds.
std::vector<CString> MachineNames()
{
    std::vector<CString> names;
    if (aIniFile.ServerCompletion == choice::serverCompletion::none)
        return names;
    if (aIniFile.ServerCompletion == choice::serverCompletion::local) {
        ListServers({}, everyServer, names);
        return names;
    }
    std::vector<CString> known;
    ListServers({}, domains, known);
    for (const CString& domain : known) {
        std::vector<CString> machines;
        ListServers(domain, everyServer, machines);
        names.insert(names.end(), machines.begin(), machines.end());
    }
    return names;
}

class SystemWorld : public CompletionWorld {
public:
    bool IsInternal(std::u16string_view name) override { return FindCommand(name) != nullptr; }
    const CompletionSettings& Settings() override { return settings; }
    const Syntax& CurrentSyntax() override { return syntax; }

    std::vector<CString> Names(CompletionNames kind) override
    {
        switch (kind) {
        case CompletionNames::Internals: return EnabledCommands();
        case CompletionNames::Aliases: return ListNames(ListKind::Aliases);
        case CompletionNames::Functions: return ListNames(ListKind::Functions);
        case CompletionNames::Variables: return VariableNames();
        case CompletionNames::InternalVariables: return RowNames(aInternalVariables, nInternalVariables);
        case CompletionNames::BuiltInFunctions: return RowNames(aVariableFunctions, nVariableFunctions);
        case CompletionNames::Settings: return SettingNames();
        }
        return {};
    }

    const BUILTIN* FindCommand(std::u16string_view name) override
    {
        int row = FindRow(aInternalCommands, nInternalCommands, name);
        // What an alias stands for takes the same arguments.
        if (CString value; row < 0 && GetAlias(name, value))
            row = FindRow(aInternalCommands, nInternalCommands,
                          GetNthArgument(value.TrimLeft(u" \t*@"), 0, syntax));
        return row < 0 || !IsCommandEnabled(aInternalCommands[row]) ? nullptr : &aInternalCommands[row];
    }

    // Names alone: a function might do anything, and modifiers do not stand in names of files.
    CString ExpandVariables(std::u16string_view text) override
    {
        CString expanded;
        while (!text.empty()) {
            const std::size_t open = std::min(text.find(u'%'), text.size());
            const std::size_t close = text.find(u'%', std::min(open + 1, text.size()));
            expanded.Append(text.substr(0, open));
            if (close == npos) {
                expanded.Append(text.substr(open));
                break;
            }
            const std::u16string_view name = text.substr(open + 1, close - open - 1);
            CString value;
            if (name.empty())
                expanded += u'%';
            else if (ReadEnvironment(name, value) || InternalVariableValue(name, value))
                expanded += value;
            else
                expanded.Append(text.substr(open, close + 1 - open));
            text.remove_prefix(close + 1);
        }
        return expanded;
    }

    CString FullName(std::u16string_view name) override { return FullPathName(name); }

    CString HomeDirectory() override
    {
        CString home;
        ReadEnvironment(u"USERPROFILE", home);
        return home;
    }

    DirectorySource& Directories(bool shortNames) override { return shortNames ? withShortNames : plain; }
    std::vector<CString> SearchFolders() override { return ProgramFolders(); }
    std::vector<CString> ExecutableExtensions() override { return ::ExecutableExtensions(); }
    std::vector<CString> Machines() override { return MachineNames(); }

    std::vector<CString> Shares(std::u16string_view machine) override
    {
        std::vector<CString> names;
        if (aIniFile.ServerCompletion != choice::serverCompletion::none)
            ListShares(machine, aIniFile.CompleteHidden != 0, names);
        return names;
    }

    std::vector<CompletionCandidate> AskCompletionFiles(const CompletionWord& word, std::u16string_view line,
                                                        std::size_t cursor) override
    {
        return AskCompletionScripts(word, line, cursor);
    }

private:
    CompletionSettings settings = SettingsInForce();
    Syntax syntax = ::CurrentSyntax();
    SystemDirectories plain{false};
    SystemDirectories withShortNames{true};
};

} // namespace

CompletionOffer SystemCompletion::Offer(std::u16string_view line, std::size_t cursor, CompletionKind kind)
{
    SystemWorld world;
    return Complete(line, cursor, kind, world);
}
