// A shell with a disk in memory, for completion.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "console/completion.h"
#include "text/compare.h"
#include "text/path_names.h"

inline const CommandHelp dirHelp = {
    u"", u"", u"/A  all\n/-C  plain\n/S, /P  more\n/Onames:x  order\nNo switch  here", u""};

inline const CommandHelp optionHelp = {u"", u"", u"/D  default", u""};

// A disk in memory; the current directory is C:\here. Names that end in "\" are directories, those that
// begin with "-" are hidden.
class FakeDirectories : public DirectorySource {
public:
    std::map<std::u16string, std::vector<std::u16string>> folders = {
        {u"c:\\here\\",
         {u"beta.txt", u"Alpha.txt", u"my file.txt", u"run.exe", u"-secret.txt", u"doc\\", u"-den\\",
          u"50%off.txt", u"a,b.zip"}},
        {u"c:\\here\\doc\\", {u"deep.txt", u"More docs\\"}},
        {u"c:\\", {u"here\\", u"hot.cmd"}},
        {u"c:\\tools\\", {u"runner.exe", u"runs.txt", u"Edit.com"}},
        {u"c:\\users\\me\\", {u"notes.txt"}},
    };
    unsigned Read(std::u16string_view directory, std::u16string_view, EntrySink& sink) override
    {
        CString folded(directory);
        MakeLower(folded);
        for (std::u16string name : folders[std::u16string(folded.view())]) {
            EntryFacts facts;
            if (name.back() == u'\\') {
                facts.attributes |= file_attribute::directory;
                name.pop_back();
            }
            if (name[0] == u'-') {
                facts.attributes |= file_attribute::hidden;
                name.erase(0, 1);
            }
            sink.Take({name, {}, facts});
        }
        return 0;
    }
    std::optional<DirectoryIdentity> Identify(std::u16string_view) override { return std::nullopt; }
    std::uint64_t CompressedSize(std::u16string_view, std::u16string_view) override { return 0; }
    CString Owner(std::u16string_view, std::u16string_view) override { return {}; }
    CString Description(std::u16string_view, std::u16string_view) override { return {}; }
};

class FakeCompletionWorld : public CompletionWorld {
public:
    CompletionSettings settings;
    Syntax syntax;
    FakeDirectories disk;
    std::vector<BUILTIN> rows = {
        {u"ALIAS", nullptr, 0, 1, u"[/r] * [1] aliases [2*] *", nullptr},
        {u"CD", nullptr, 0, 1, u"dirs", nullptr},
        {u"COPY", nullptr, 0, 1, u"", nullptr},
        {u"DIR", nullptr, 0, 1, u"", &dirHelp},
        {u"OPTION", nullptr, 0, 1, u"", &optionHelp},
        {u"SET", nullptr, 0, 1, u"[/r] * [1] variables [2*] *", nullptr},
        {u"UNZIP", nullptr, 0, 1, u"[1] zip dirs [2*] *", nullptr},
    };

    bool IsInternal(std::u16string_view name) override { return FindCommand(name) != nullptr; }
    const CompletionSettings& Settings() override { return settings; }
    const Syntax& CurrentSyntax() override { return syntax; }
    std::vector<CString> Names(CompletionNames kind) override
    {
        switch (kind) {
        case CompletionNames::Internals: return {u"DIR", u"DIRS"};
        case CompletionNames::Aliases: return {u"dirty", u"Dirty"}; // local and global
        case CompletionNames::Functions: return {u"leftmost"};
        case CompletionNames::Variables: return {u"PATH", u"PROMPT", u"Pad(1)"};
        case CompletionNames::InternalVariables: return {u"cwd", u"cwds"};
        case CompletionNames::BuiltInFunctions: return {u"LEFT", u"LEN"};
        case CompletionNames::Settings: return {u"BeepFreq"};
        }
        return {};
    }
    const BUILTIN* FindCommand(std::u16string_view name) override
    {
        const int row = FindRow(rows.data(), static_cast<int>(rows.size()), name);
        return row < 0 ? nullptr : &rows[static_cast<std::size_t>(row)];
    }
    CString ExpandVariables(std::u16string_view text) override
    {
        CString result(text);
        if (const std::size_t at = result.Find(u"%root%"); at != CString::npos)
            result.Replace(at, 6, u"C:");
        return result;
    }
    CString FullName(std::u16string_view name) override
    {
        CString full(name);
        if (!IsAbsolutePath(name))
            full = name == u"."                           ? CString(u"C:\\here")
                   : name == u"..\\..\\" || name == u"\\" ? CString(u"C:\\")
                                                          : JoinPath(u"C:\\here", name);
        return CString(WithoutEndSeparators(full));
    }
    CString HomeDirectory() override { return u"C:\\users\\me"; }
    DirectorySource& Directories(bool) override { return disk; }
    std::vector<CString> SearchFolders() override { return {u"C:\\tools"}; }
    std::vector<CString> ExecutableExtensions() override { return {u".exe", u".com", u".cmd"}; }
    std::vector<CString> Machines() override { return {u"zeus", u"ares"}; }
    std::vector<CString> Shares(std::u16string_view machine) override
    {
        return machine == u"zeus" ? std::vector<CString>{u"films", u"music"} : std::vector<CString>();
    }
    std::vector<CompletionCandidate> AskCompletionFiles(const CompletionWord& word, std::u16string_view,
                                                        std::size_t) override
    {
        if (word.command != u"git")
            return {};
        return {{u"commit", {}, false, {}}};
    }
};
