#include "console/completion.h"

#include <algorithm>
#include <unordered_set>

#include "console/completion_files.h"
#include "console/completion_hint.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

constexpr std::u16string_view settingMark = u"//"; // OPTION //name

// What the table of commands does not say.
struct MoreHint {
    std::u16string_view command;
    std::u16string_view hint;
};
constexpr MoreHint moreHints[] = {
    {u"DIRENV", u"[1*] variables"},   {u"HELP", u"[1*] topics"},     {u"OPTION", u"[1*] settings"},
    {u"SETLOCAL", u"[1*] variables"}, {u"LOCAL", u"[1*] variables"}, {u"WHICH", u"[1*] commands"},
};

struct LessNoCase {
    bool operator()(const CString& a, const CString& b) const { return CompareNoCase(a, b) < 0; }
};

// The names of commands and the like in the letter case that the person writes in.
CString InCaseOf(std::u16string_view typed, CString name)
{
    const auto lower = [](char16_t unit) { return UpperCase(unit) != unit; };
    if (typed.empty() || std::any_of(typed.begin(), typed.end(), lower))
        MakeLower(name);
    return name;
}

class Completer {
public:
    Completer(std::u16string_view wholeLine, std::size_t cursorAt, CompletionWorld& theWorld)
        : line(wholeLine), cursor(cursorAt), world(theWorld), settings(theWorld.Settings()),
          word(FindCompletionWord(wholeLine, cursorAt, settings.completePercents, theWorld.CurrentSyntax(),
                                  theWorld))
    {}

    CompletionOffer Run(CompletionKind kind)
    {
        if (kind == CompletionKind::ShortNames)
            AddFiles({.shortNames = true});
        else if (kind == CompletionKind::Directories)
            AddFiles({.files = false});
        else if (kind == CompletionKind::SearchPath)
            AddPrograms();
        else {
            candidates = world.AskCompletionFiles(word, line, cursor);
            if (candidates.empty())
                AddByPlace();
            else
                mayRepeat = true;
        }
        return Finish();
    }

private:
    CompletionOffer Finish()
    {
        if (mayRepeat)
            RemoveEqual();
        if (word.touchesNext)
            for (CompletionCandidate& candidate : candidates)
                candidate.text += u' ';
        return {word.start, word.end, std::move(candidates), word.quoteAt, word.forQuotes};
    }

    void RemoveEqual()
    {
        std::unordered_set<CString, NoCaseHash, NoCaseEqual> known;
        std::erase_if(candidates, [&](const CompletionCandidate& candidate) {
            return !known.insert(candidate.text).second;
        });
    }

    void AddFiles(const FileChoice& choice)
    {
        mayRepeat = mayRepeat || !candidates.empty() || word.text.view().starts_with(u"\\\\");
        AddFileNames(word, choice, world, candidates);
    }

    void AddByPlace()
    {
        switch (word.place) {
        case WordPlace::Command: return AddCommandPlace();
        case WordPlace::Argument: return AddArgument();
        case WordPlace::Redirection: return AddFiles({});
        case WordPlace::Variable: return AddVariableReferences();
        case WordPlace::Function: return AddFunctionReferences();
        }
    }

    void AddCommandPlace()
    {
        const bool bare = !HasDirectory(word.text) && !word.quoted;
        if (bare && !word.text.empty()) {
            if (settings.completeInternals)
                AddNames(CompletionNames::Internals, {}, {});
            if (settings.completeAliases)
                AddNames(CompletionNames::Aliases, {}, {});
        }
        const bool all = settings.completeAllFiles || word.startsFile;
        AddFiles({.extensions = all ? std::nullopt : std::optional(Executables())});
        if (bare && !word.text.empty())
            AddPrograms();
    }

    std::vector<CString> Executables()
    {
        std::vector<CString> extensions = world.ExecutableExtensions();
        for (CString& extension : extensions)
            if (extension.front() == u'.')
                extension.Erase(0, 1);
        return extensions;
    }

    void AddPrograms()
    {
        const FileChoice choice{.directories = false,
                                .extensions =
                                    settings.completeAllFiles ? std::nullopt : std::optional(Executables())};
        mayRepeat = true;
        for (const CString& folder : world.SearchFolders())
            AddFolderFiles(folder, word, choice, world, candidates);
    }

    // The names that begin with what has been typed behind `mark`, with something in front and behind.
    void AddNames(CompletionNames kind, std::u16string_view mark, std::u16string_view behind)
    {
        mayRepeat = true;
        const std::u16string_view typed = word.text.view().substr(std::min(mark.size(), word.text.size()));
        std::vector<CString> names = world.Names(kind);
        std::sort(names.begin(), names.end(), LessNoCase());
        const bool asTyped = kind == CompletionNames::Internals ||
                             kind == CompletionNames::BuiltInFunctions ||
                             kind == CompletionNames::InternalVariables;
        for (const CString& name : names) {
            if (!BeginsNoCase(name, typed))
                continue;
            CString text(mark);
            text.Append(asTyped ? InCaseOf(typed, name) : name).Append(behind);
            candidates.push_back({std::move(text), name, false, {}});
        }
    }

    void AddVariableReferences()
    {
        const bool bracket = word.text.view().starts_with(u"%[");
        const std::u16string_view mark = bracket ? u"%[" : u"%";
        const std::u16string_view closing = bracket ? u"]" : u"%";
        AddNames(CompletionNames::Variables, mark, closing);
        if (word.text.size() > mark.size() && word.text[mark.size()] == u'_')
            AddNames(CompletionNames::InternalVariables, bracket ? u"%[_" : u"%_", closing);
    }

    void AddFunctionReferences()
    {
        AddNames(CompletionNames::BuiltInFunctions, u"%@", u"[");
        AddNames(CompletionNames::Functions, u"%@", u"[");
    }

    void AddArgument()
    {
        if (AddSwitches())
            return;
        const bool knows = settings.tabX != ArgumentKnowledge::None && !word.inBrackets;
        const CString own = knows ? FileCompletionHint(settings.fileCompletion, word.command) : CString();
        if (!own.empty()) {
            ArgumentKinds kinds = ReadCompletionHint(own, word.before, world.CurrentSyntax().switchChar);
            kinds.directories = kinds.directories || !kinds.extensions.empty();
            return AddKinds(kinds);
        }
        const BUILTIN* row = knows ? world.FindCommand(word.command) : nullptr;
        if (row && word.isValue && EqualNoCase(row->name, u"ALIAS"))
            return AddCommandPlace();
        const std::u16string_view hint = row && !word.isValue ? HintOf(*row) : std::u16string_view();
        if (hint.empty())
            AddFiles({});
        else
            AddKinds(ReadCompletionHint(hint, word.before, world.CurrentSyntax().switchChar));
        if (candidates.empty() && settings.tabX == ArgumentKnowledge::All && !word.text.empty())
            AddAnyName();
    }

    static std::u16string_view HintOf(const BUILTIN& row)
    {
        for (const MoreHint& more : moreHints)
            if (EqualNoCase(more.command, row.name))
                return more.hint;
        return row.hint;
    }

    // "dir /": the switches that the command's help tells about.
    bool AddSwitches()
    {
        const std::u16string_view typed = word.text;
        if (typed.empty() || typed[0] != world.CurrentSyntax().switchChar || word.inBrackets ||
            line.substr(word.start, cursor - word.start) != typed)
            return false;
        const BUILTIN* row = world.FindCommand(word.command);
        if (!row || !row->help || typed.starts_with(settingMark))
            return false;
        const std::size_t last = typed.rfind(typed[0]);
        for (const SwitchTopic& topic : SwitchesOfHelp(row->help->switches))
            if (BeginsNoCase(topic.name.view().substr(1), typed.substr(last + 1))) {
                CString text(typed.substr(0, last + 1));
                text.Append(InCaseOf(typed.substr(last + 1), topic.name.Substr(1)));
                candidates.push_back({std::move(text), topic.name, false, topic.what});
            }
        return !candidates.empty();
    }

    void AddKinds(const ArgumentKinds& kinds)
    {
        if (kinds.aliases)
            AddNames(CompletionNames::Aliases, {}, {});
        if (kinds.functions)
            AddNames(CompletionNames::Functions, {}, {});
        if (kinds.variables)
            AddNames(CompletionNames::Variables, {}, {});
        if (kinds.settings)
            AddNames(CompletionNames::Settings,
                     word.text.view().starts_with(settingMark) ? settingMark : std::u16string_view(), {});
        if (kinds.topics)
            AddTopics();
        if (kinds.commands) {
            AddNames(CompletionNames::Internals, {}, {});
            AddNames(CompletionNames::Aliases, {}, {});
            AddPrograms();
        }
        if (kinds.files)
            AddFiles({});
        else if (!kinds.extensions.empty())
            AddFiles({.directories = kinds.directories, .extensions = kinds.extensions});
        else if (kinds.directories)
            AddFiles({.files = false});
    }

    void AddTopics()
    {
        const char16_t mark = word.text.front();
        if (mark == u'@')
            AddNames(CompletionNames::BuiltInFunctions, u"@", {});
        else if (mark == u'_')
            AddNames(CompletionNames::InternalVariables, u"_", {});
        else {
            AddNames(CompletionNames::Internals, {}, {});
            AddNames(CompletionNames::Aliases, {}, {});
        }
    }

    // Where nothing else fits and TabX is All.
    void AddAnyName()
    {
        for (const CompletionNames kind :
             {CompletionNames::Internals, CompletionNames::Aliases, CompletionNames::Variables})
            AddNames(kind, {}, {});
    }

    std::u16string_view line;
    std::size_t cursor;
    CompletionWorld& world;
    const CompletionSettings& settings;
    CompletionWord word;
    std::vector<CompletionCandidate> candidates;
    bool mayRepeat = false; // a single folder holds each name once
};

} // namespace

CompletionOffer Complete(std::u16string_view line, std::size_t cursor, CompletionKind kind,
                         CompletionWorld& world)
{
    cursor = std::min(cursor, line.size());
    return Completer(line, cursor, world).Run(kind);
}
