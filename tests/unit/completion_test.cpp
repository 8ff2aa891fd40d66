#include <gtest/gtest.h>

#include <map>
#include <string>

#include "console/completion.h"
#include "files/directory_name.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

const CommandHelp dirHelp = {u"", u"",
                             u"/A  all\n/-C  plain\n/S, /P  more\n/Onames:x  order\nNo switch  here", u""};

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

class FakeWorld : public CompletionWorld {
public:
    CompletionSettings settings;
    Syntax syntax;
    FakeDirectories disk;
    std::vector<BUILTIN> rows = {
        {u"ALIAS", nullptr, 0, 1, u"[/r] * [1] aliases [2*] *", nullptr},
        {u"CD", nullptr, 0, 1, u"dirs", nullptr},
        {u"COPY", nullptr, 0, 1, u"", nullptr},
        {u"DIR", nullptr, 0, 1, u"", &dirHelp},
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
        case CompletionNames::Aliases: return {u"dirty"};
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

// The lines that the candidates make of `line`, where "|" stands for the cursor; parted by "|".
std::u16string Completed(FakeWorld& world, std::u16string_view line,
                         CompletionKind kind = CompletionKind::Files)
{
    const std::size_t cursor = line.find(u'|');
    CString plain(line);
    plain.Erase(cursor, 1);
    const CompletionOffer offer = Complete(plain, cursor, kind, world);
    std::u16string all;
    for (const CompletionCandidate& candidate : offer.candidates) {
        CString result(plain);
        result.Replace(offer.from, offer.to - offer.from, candidate.text);
        all += (all.empty() ? u"" : u"|") + std::u16string(result.view());
    }
    return all;
}

struct Case {
    const char16_t* line;
    const char16_t* expected;
};

void ExpectAll(FakeWorld& world, std::initializer_list<Case> cases)
{
    for (const Case& example : cases)
        EXPECT_EQ(Completed(world, example.line), example.expected)
            << "line " << std::string(example.line, example.line + std::u16string_view(example.line).size());
}

} // namespace

TEST(Completion, FilesAreOfferedWhereTheCursorStands)
{
    FakeWorld world;
    ExpectAll(
        world,
        {
            {u"type |", u"type 50%%off.txt|type \"a,b.zip\"|type Alpha.txt|type beta.txt|type doc|type \"my "
                        u"file.txt\"|type run.exe"},
            {u"type my|", u"type \"my file.txt\""},
            {u"type \"my|", u"type \"my file.txt\""},
            {u"type \"be|", u"type \"beta.txt\""},
            {u"type be|xx.txt /p", u"type beta.txt /p"},
            {u"type \"be|xx yy\" /p", u"type \"beta.txt\" /p"},
            {u"type |doc\\x",
             u"type 50%%off.txt doc\\x|type \"a,b.zip\" doc\\x|type Alpha.txt doc\\x|type beta.txt doc\\x|"
             u"type doc doc\\x|type \"my file.txt\" doc\\x|type run.exe doc\\x"},
            {u"type doc\\m|", u"type \"doc\\More docs\""},
            {u"type doc/d|", u"type doc/deep.txt"},
            {u"type \"doc\\\"de|", u"type \"doc\\deep.txt\""},
            {u"type *.t?t|", u"type 50%%off.txt|type Alpha.txt|type beta.txt|type \"my file.txt\""},
            {u"type ~\\no|", u"type C:\\users\\me\\notes.txt"},
            {u"type ...\\ho|", u"type ..\\..\\hot.cmd"},
            {u"type %root%\\ho|", u"type %root%\\hot.cmd"},
            {u"copy al|+be", u"copy Alpha.txt+be"},
            {u"copy be+al|", u"copy be+Alpha.txt"},
            {u"type a^,b|", u"type \"a,b.zip\""},
            {u"type be;al|", u"type be;Alpha.txt"},
            {u"echo x>be|", u"echo x>beta.txt"},
            {u"echo x 2>> \"my|", u"echo x 2>> \"my file.txt\""},
            {u"dir /f:be|", u"dir /f:beta.txt"},
            {u"echo %@line[be|,0]", u"echo %@line[beta.txt,0]"},
            {u"type \\\\|", u"type \\\\ares|type \\\\zeus"},
            {u"type \\\\zeus\\f|", u"type \\\\zeus\\films"},
            {u"type nothing|", u""},
        });
    world.settings.appendToDir = world.settings.completeHiddenDirs = world.settings.filesCaseSensitive = true;
    ExpectAll(world, {{u"type d|", u"type den\\|type doc\\"}, {u"type a|", u"type \"a,b.zip\""}});
    world.settings.completePaths = true;
    ExpectAll(world, {{u"type den|", u"type C:\\here\\den\\"}});
}

TEST(Completion, CommandsAreOfferedWhereOneBegins)
{
    FakeWorld world;
    ExpectAll(world, {
                         {u"ru|", u"run.exe|runner.exe"},
                         {u"d|", u"doc"},
                         {u"dir & ru|", u"dir & run.exe|dir & runner.exe"},
                         {u"(echo a && run|", u"(echo a && run.exe|(echo a && runner.exe"},
                         {u"if not exist x ru|", u"if not exist x run.exe|if not exist x runner.exe"},
                         {u"if a==b (ru|", u"if a==b (run.exe|if a==b (runner.exe"},
                         {u"for %x in (*.txt) do @ed|", u"for %x in (*.txt) do @Edit.com"},
                         {u"for %x in (be|", u"for %x in (beta.txt"},
                         {u"start /wait be|", u"start /wait beta.txt"},
                         {u"start \"title\" ed|", u"start \"title\" Edit.com"},
                         {u"C:\\ho|", u"C:\\hot.cmd"},
                         {u"alias e=ed|", u"alias e=Edit.com"},
                     });
    EXPECT_EQ(Completed(world, u"ru|", CompletionKind::SearchPath), u"runner.exe");
    world.settings.completeInternals = world.settings.completeAliases = true;
    ExpectAll(world, {{u"di|", u"dir|dirs|dirty"}, {u"DI|", u"DIR|DIRS|dirty"}});
    world.settings.completeAllFiles = true;
    ExpectAll(world, {{u"be|", u"beta.txt"}});
}

TEST(Completion, ArgumentsAreWhatTheCommandTakes)
{
    FakeWorld world;
    ExpectAll(world, {
                         {u"cd |", u"cd doc"},
                         {u"cd\\h|", u"cd\\here"},
                         {u"set pa|", u"set Pad(1)|set PATH"},
                         {u"set x=be|", u"set x=beta.txt"},
                         {u"set /r be|", u"set /r beta.txt"},
                         {u"alias di|", u"alias dirty"},
                         {u"unzip a|", u"unzip \"a,b.zip\""},
                         {u"unzip a al|", u"unzip a Alpha.txt"},
                         {u"dir /|", u"dir /a|dir /-c|dir /s|dir /p|dir /onames"},
                         {u"dir/s/P|", u"dir/s/P"},
                         {u"dir /S/|", u"dir /S/a|dir /S/-c|dir /S/s|dir /S/p|dir /S/onames"},
                         {u"git co|", u"git commit"},
                         {u"echo %pa|", u""},
                         {u"call cd do|", u"call cd doc"},
                     });
    EXPECT_EQ(Completed(world, u"type |", CompletionKind::Directories), u"type doc");
    world.settings.fileCompletion = u"edit.com view:txt; run: exe [2*] dirs";
    ExpectAll(world, {{u"edit b|", u"edit beta.txt"}, {u"c:\\x\\view.exe d|", u"c:\\x\\view.exe doc"}});
    world.settings.completePercents = true;
    ExpectAll(world, {
                         {u"echo %pa|", u"echo %Pad(1)%|echo %PATH%"},
                         {u"echo %pa|th% x", u"echo %Pad(1)% x|echo %PATH% x"},
                         {u"echo \"%[pr|", u"echo \"%[PROMPT]"},
                         {u"echo %_c|", u"echo %_cwd%|echo %_cwds%"},
                         {u"echo %@le|", u"echo %@left[|echo %@len[|echo %@leftmost["},
                         {u"echo %path%\\%pr|", u"echo %path%\\%PROMPT%"},
                     });
    world.settings.tabX = ArgumentKnowledge::None;
    ExpectAll(world, {{u"cd be|", u"cd beta.txt"}});
}
