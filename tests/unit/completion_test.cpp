#include <gtest/gtest.h>

#include <string>

#include "fake_completion_world.h"

namespace {

// The lines that the candidates make of `line`, where "|" stands for the cursor; parted by "|".
std::u16string Completed(FakeCompletionWorld& world, std::u16string_view line,
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
        if (candidate.text.front() == u'"' && !offer.forQuotes.empty())
            result.Insert(offer.quoteAt, offer.forQuotes);
        all += (all.empty() ? u"" : u"|") + std::u16string(result.view());
    }
    return all;
}

struct Case {
    const char16_t* line;
    const char16_t* expected;
};

void ExpectAll(FakeCompletionWorld& world, std::initializer_list<Case> cases)
{
    for (const Case& example : cases)
        EXPECT_EQ(Completed(world, example.line), example.expected)
            << "line " << std::string(example.line, example.line + std::u16string_view(example.line).size());
}

} // namespace

TEST(Completion, FilesAreOfferedWhereTheCursorStands)
{
    FakeCompletionWorld world;
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
    FakeCompletionWorld world;
    ExpectAll(world, {
                         {u"ru|", u"run.exe|runner.exe"},
                         {u"d|", u"doc"},
                         {u"dir & ru|", u"dir & run.exe|dir & runner.exe"},
                         {u"(echo a && run|", u"(echo a && run.exe|(echo a && runner.exe"},
                         {u"if not exist x ru|", u"if not exist x run.exe|if not exist x runner.exe"},
                         {u"if a==b (ru|", u"if a==b (run.exe|if a==b (runner.exe"},
                         {u"for %x in (*.txt) do @ed|", u"for %x in (*.txt) do @Edit.com"},
                         {u"do 3 (ru|", u"do 3 (run.exe|do 3 (runner.exe"},
                         {u"do while (be|", u"do while (beta.txt"},
                         {u"do x in (a) (if a==b (ed|", u"do x in (a) (if a==b (Edit.com"},
                         {u"for %x in (be|", u"for %x in (beta.txt"},
                         {u"for /f %i in (my|", u"for /f \"usebackq\" %i in (\"my file.txt\""},
                         {u"@for /d /f \"delims=,\" %i in (be my|",
                          u"@for /d /f \"usebackq delims=,\" %i in (be \"my file.txt\""},
                         {u"for /f \"UseBackQ\" %i in (my|", u"for /f \"UseBackQ\" %i in (\"my file.txt\""},
                         {u"for /f %i in ('type my|", u"for /f %i in ('type \"my file.txt\""},
                         {u"for /f %i in (x) do type my|", u"for /f %i in (x) do type \"my file.txt\""},
                         {u"for %i in (my|", u"for %i in (\"my file.txt\""},
                         {u"start /wait be|", u"start /wait beta.txt"},
                         {u"start /wait my|", u"start /wait \"\" \"my file.txt\""},
                         {u"start \"\" my|", u"start \"\" \"my file.txt\""},
                         {u"start be my|", u"start be \"my file.txt\""},
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
    FakeCompletionWorld world;
    ExpectAll(world, {
                         {u"cd |", u"cd doc"},
                         {u"cd\\h|", u"cd\\here"},
                         {u"cd ..|", u"cd ..\\"},
                         {u"cd doc/..|", u"cd doc/../"},
                         {u"type ...|", u"type ..\\..\\"},
                         {u"option //b|", u"option //BeepFreq"},
                         {u"option /|", u"option /d"},
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
