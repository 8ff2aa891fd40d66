// The road of one line: Command_S cuts it into commands and takes each through the steps below, in the order
// in which they stand in `steps`.
#include <algorithm>
#include <memory>
#include <utility>

#include "core/blocks.h"
#include "core/command_lookup.h"
#include "core/command_plans.h"
#include "core/redirection.h"
#include "core/separators.h"
#include "core/substitution.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/console_entry.h"
#include "engine/expansion_entry.h"
#include "engine/inifile.h"
#include "engine/logs.h"
#include "engine/output.h"
#include "engine/state.h"
#include "lang/errors.h"
#include "lang/messages.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/scanner.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr int mostCommands = 1000; // that one line may run
constexpr int deepestLine = 500;   // nested lines; guards the stack against endless recursion

enum class Step { Go, NextCommand, EndLine };

class CommandLine {
public:
    CommandLine(CString typedOrRead, int lineFlags) : rest(std::move(typedOrRead)), flags(lineFlags) {}

    int Run();

private:
    // Once per line.
    void NoteLine();
    void SubstituteQuickly();

    // The steps of one command, in their order. Those up to the cut are passed over for a command that has
    // been taken apart before.
    bool BeginCommand();
    bool RecallPlan();
    Step PassBlockWords();
    Step ExpandAlias();
    Step TakePrefixes();
    Step PassLabel();
    Step AskBefore();
    Step PassRemark();
    Step RunEchox();
    Step JoinContinuation();
    Step DetachTrailing();
    Step LookUp();
    Step CompleteBlocks();
    Step TakeLoopBody();
    Step ExpandWhole();
    Step Cut();
    Step Expand();
    Step EchoAndLog();
    Step Redirect();
    Step Execute();
    Step FollowConnector();

    Step TakeApart();
    Step CarryOut();
    Step Fail(int code);
    void EndPass();
    void DropFirstCommand();
    void SkipRestOfTextLine();
    bool FirstWordIs(std::u16string_view word) const;
    CString CommandsByLine() const;
    CommandShape ShapeOf(std::u16string_view text) const;
    Separator FindEnd(std::size_t from) const;
    std::size_t FindLoopEnd(std::size_t from) const;
    void CutAt(const Separator& end);
    void CutPipe();
    void KeepPlan(const Separator& end);

    CString rest;    // from the current command to the end of the line
    CString command; // the current command, once it is cut off
    CString tail;    // what stood behind it on the line, from its separator on
    CString pipedTo; // what the current command's output goes to
    Connector connector = Connector::None;
    bool pipeErrors = false;
    std::size_t unexpandedTail = npos; // units at the end of `rest` that expansion has not seen yet
    const BUILTIN* row = nullptr;
    unsigned rowFlags = command_flags::expand | command_flags::redirect;
    bool echoing = false;    // this line is to be echoed
    bool logging = false;    // this line, or each of its commands, goes to the logs
    bool echoCommand = true; // the current command has no "@"
    bool planWanted = false; // how the current command is taken apart is worth keeping
    CString planText;        // that command as it stood
    PlanConditions planConditions;
    int commandsRun = 0;
    int flags;
    int lastResult = result::success;
    Syntax syntax;
    RedirectionRecord redirections;
};

CommandPlans& Plans()
{
    std::shared_ptr<CommandPlans>& plans = Tls().commandPlans;
    if (!plans)
        plans = std::make_shared<CommandPlans>();
    return *plans;
}

bool IsPipe(Connector connector)
{
    return connector == Connector::Pipe || connector == Connector::PipeErrors;
}

bool TakesGroups(unsigned flags) { return (flags & (command_flags::block | command_flags::keepGroup)) != 0; }

using StepFunction = Step (CommandLine::*)();

int CommandLine::Run()
{
    if (rest.empty() || (rest.front() == u':' && rest.Find(u'\n') == npos))
        return result::success;
    NoteLine();
    SubstituteQuickly();
    if (aIniFile.UnixPaths)
        UnixAFStoWindows(rest, CurrentSyntax());
    Step step = Step::Go;
    while (step != Step::EndLine && BeginCommand()) {
        step = RecallPlan() ? Step::Go : TakeApart();
        if (step == Step::Go)
            step = CarryOut();
        EndPass();
    }
    return lastResult;
}

Step CommandLine::TakeApart()
{
    static constexpr StepFunction steps[] = {
        &CommandLine::PassBlockWords, &CommandLine::ExpandAlias,
        &CommandLine::TakePrefixes,   &CommandLine::PassLabel,
        &CommandLine::AskBefore,      &CommandLine::PassRemark,
        &CommandLine::RunEchox,       &CommandLine::JoinContinuation,
        &CommandLine::DetachTrailing, &CommandLine::LookUp,
        &CommandLine::CompleteBlocks, &CommandLine::TakeLoopBody,
        &CommandLine::ExpandWhole,    &CommandLine::Cut,
    };
    Step step = Step::Go;
    for (const StepFunction take : steps)
        if (step = (this->*take)(); step != Step::Go)
            break;
    return step;
}

Step CommandLine::CarryOut()
{
    static constexpr StepFunction steps[] = {
        &CommandLine::Expand,  &CommandLine::EchoAndLog,      &CommandLine::Redirect,
        &CommandLine::Execute, &CommandLine::FollowConnector,
    };
    Step step = Step::Go;
    for (const StepFunction take : steps)
        if (step = (this->*take)(); step != Step::Go)
            break;
    return step;
}

void CommandLine::NoteLine()
{
    echoing = (flags & line_flags::echo) != 0 && QueryEcho();
    const bool fromOutside = (flags & (line_flags::typed | line_flags::echo)) != 0 || Tls().lineDepth == 1;
    logging = fromOutside && (aIniFile.LogOn || aIniFile.LogAll);
    if (fromOutside && rest.front() != u'@')
        WriteEnvironment(u"CMDLINE2", rest);
}

void CommandLine::SubstituteQuickly()
{
    // With delayed expansion "!name! ..." is a reference, but not at the prompt's own line start.
    const bool reference = aGlobals.delayedExpansion != 0 && (flags & line_flags::typed) == 0;
    if (!reference)
        QuickSubstitution(rest, aTexts.substitutionLine);
}

// Leaves `rest` at the next command; false at the end of the line.
bool CommandLine::BeginCommand()
{
    EnableSignals();
    ThrowIfBroken();
    syntax = CurrentSyntax();
    // A batch file that is told to end runs no more of its line.
    const BATCH_FRAME* frame = Tls().Frame();
    if (EndsLine(lastResult) || (frame && frame->readOffset < 0))
        return false;
    rest.TrimLeft(u"= \t\r\n,;");
    if (rest.empty())
        return false;
    if (commandsRun++ == mostCommands) {
        Fail(MVError(errors::tooManyCommands, rest));
        return false;
    }
    command.Clear();
    tail.Clear();
    pipedTo.Clear();
    connector = Connector::None;
    pipeErrors = false;
    echoCommand = true;
    return true;
}

bool CommandLine::RecallPlan()
{
    planWanted = false;
    const TLS_VARIABLES& tls = Tls();
    if (unexpandedTail != npos || tls.blocks.iffSkipped > 0)
        return false;
    planConditions = CurrentPlanConditions(syntax);
    const CommandPlan* plan = Plans().Find(rest, planConditions, planWanted);
    if (!plan) {
        if (planWanted)
            planText = rest;
        return false;
    }
    row = plan->row;
    rowFlags = CommandFlags(*row);
    CutAt(plan->end);
    return true;
}

// Only what depends on nothing but the text and the conditions of plans.
void CommandLine::KeepPlan(const Separator& end)
{
    if (!std::exchange(planWanted, false) || !row || IsPipe(end.connector) || !(rest == planText))
        return;
    const bool asksDisk = rest[std::u16string_view(row->name).size()] == u'.';
    if (asksDisk || rest.front() == u'?' || EqualNoCase(row->name, u"DO") ||
        EqualNoCase(row->name, u"ENDLOCAL"))
        return;
    Plans().Keep(planText, planConditions, {row, end});
}

// IFF, ELSE, ENDDO and their like are looked at before anything is expanded, so that nothing in a branch that
// is skipped can fail.
Step CommandLine::PassBlockWords()
{
    const BlockState& blocks = Tls().blocks;
    const bool inBlock = blocks.iffNesting > 0 || blocks.doRunning > 0;
    if (!inBlock && std::u16string_view(u"ELI").find(UpperCase(rest.front())) == npos)
        return Step::Go;
    bool consumed = false;
    const Separator end = FindEnd(0);
    CString first = end.at == npos ? rest : rest.Substr(0, end.at);
    const std::size_t length = first.size();
    const int code = ActOnBlockWords(first, consumed);
    if (!consumed) {
        // Behind an ELSE or ELSEIFF that was taken stands a command.
        if (first.size() != length)
            rest.Replace(0, length, first);
        return Step::Go;
    }
    if (EndsLine(code)) {
        lastResult = code;
        return Step::EndLine;
    }
    const std::u16string_view word(first);
    const bool comment = BeginsNoCase(word, u"REM") && !IsLetterOrDigit(first[3]);
    if (comment || rest.front() == u':')
        SkipRestOfTextLine();
    else
        DropFirstCommand();
    return Step::NextCommand;
}

Step CommandLine::ExpandAlias()
{
    const std::size_t length = rest.size();
    const CString before(rest);
    const int code = ExpandAliases(rest);
    if (code != 0)
        return Fail(code);
    if (rest.size() != length || !(rest == before))
        unexpandedTail = npos;
    return Step::Go;
}

Step CommandLine::TakePrefixes()
{
    if (rest.front() == u'*' && rest[1] == u'@') {
        Tls().aliasBypass = true;
        rest.Erase(0, 1);
    }
    if (rest.front() == u'@') {
        echoCommand = false;
        rest.TrimLeft(u"@").TrimLeft();
    }
    return Step::Go;
}

Step CommandLine::PassLabel()
{
    if (rest.front() != u':' && !rest.empty())
        return Step::Go;
    SkipRestOfTextLine();
    return Step::NextCommand;
}

Step CommandLine::AskBefore()
{
    const std::u16string_view text = rest;
    if (text.front() != u'?' || text.substr(0, 2) == u"??" || !IsConsole(0))
        return Step::Go;
    const std::size_t next = text.find_first_not_of(u" \t", 1);
    if (next == npos || text[next] == u'>' || text[next] == u'|' || text[next] == u'/' ||
        text[next] == syntax.commandSep)
        return Step::Go;
    rest.Erase(0, 1).TrimLeft();
    CString question = rest;
    if (rest.front() == u'"') {
        const std::size_t closing = rest.Find(u'"', 1);
        question = rest.Substr(1, closing == npos ? npos : closing - 1);
        rest.Erase(0, closing == npos ? npos : closing + 1).TrimLeft();
    }
    if (QueryInputChar(message::confirm, question, u"YN", u'N') == u'Y')
        return Step::Go;
    lastResult = result::success;
    return Step::EndLine;
}

Step CommandLine::PassRemark()
{
    if (!FirstWordIs(u"REM"))
        return Step::Go;
    const std::size_t text = rest.view().find_first_not_of(u" \t", 3);
    if (text != npos && rest[text] == u'>') {
        const std::size_t name = rest.view().find_first_not_of(u" \t", text + 1);
        if (name != npos && IsLetterOrDigit(rest[name]))
            return Step::Go; // creates an empty file
    }
    const std::size_t lineEnd = rest.Find(u'\n');
    if (echoing && echoCommand)
        PrintLine(rest.view().substr(0, lineEnd));
    lastResult = result::success;
    SkipRestOfTextLine();
    return Step::NextCommand;
}

// These two print the rest of the line as it stands.
Step CommandLine::RunEchox()
{
    if (!FirstWordIs(u"ECHOX") && !FirstWordIs(u"ECHOXERR"))
        return Step::Go;
    const BUILTIN* echox = nullptr;
    std::size_t nameEnd = 0;
    if (FindInternalCommand(rest, false, &echox, &nameEnd) < 0)
        return Step::Go;
    const std::size_t lineEnd = rest.Find(u'\n');
    CString text(rest.view().substr(nameEnd, lineEnd == npos ? npos : lineEnd - nameEnd));
    RunInternalCommand(*echox, text);
    lastResult = result::success;
    SkipRestOfTextLine();
    return Step::NextCommand;
}

Step CommandLine::JoinContinuation()
{
    for (;;) {
        std::size_t marks = EndsInEscape(rest, syntax) ? 1 : 0;
        if (marks == 0 && aIniFile.ExpandPseudovariables && EndsNoCase(rest, u"%="))
            marks = 2;
        CString next;
        if (marks == 0 || !ReadFollowingLine(next))
            return Step::Go;
        if (Tls().Frame() && !syntax.duplicateBugs)
            next.TrimLeft();
        rest.Truncate(rest.size() - marks).Append(next);
    }
}

Step CommandLine::DetachTrailing()
{
    const std::size_t size = rest.size();
    if (size >= 2 && rest.back() == u'&' && IsBlank(rest[size - 2])) {
        rest.Truncate(size - 1).TrimRight();
        rest.Insert(0, u"DETACH ");
    }
    return Step::Go;
}

Step CommandLine::LookUp()
{
    row = nullptr;
    FindInternalCommand(rest, false, &row);
    rowFlags = row ? CommandFlags(*row) : command_flags::expand | command_flags::redirect;
    return Step::Go;
}

Step CommandLine::CompleteBlocks()
{
    const bool group = rest.front() == u'(';
    if (!group && !TakesGroups(rowFlags))
        return Step::Go;
    rest.TrimRight(u" \t\r\n");
    const int code = CompleteBlock(rest);
    return code == result::success ? Step::Go : Fail(code);
}

// The commands between DO and ENDDO on the same line, or typed on the lines behind it, are the loop's body.
// In a batch file the loop reads the lines that follow by itself.
Step CommandLine::TakeLoopBody()
{
    if (!row || !EqualNoCase(row->name, u"DO") ||
        QueryLoopPart(rest.view().substr(0, FindEnd(0).at)) != LoopPart::Opens)
        return Step::Go;
    std::size_t end = npos;
    CString line;
    while ((end = FindLoopEnd(FindEnd(0).Behind())) == npos) {
        if (Tls().Frame())
            return Step::Go;
        if (!ReadFollowingLine(line))
            return Fail(MVError(errors::unfinishedBlock, u"DO"));
        rest.Append(u'\n').Append(line);
    }
    const Separator behindHeader = FindEnd(0);
    const std::size_t start = behindHeader.Behind();
    Tls().loopBody = rest.Substr(start, end - start);
    rest.Erase(behindHeader.at, end - behindHeader.at);
    return Step::Go;
}

// A line that begins with ENDLOCAL is expanded as a whole before the old environment comes back, so that
// "endlocal & set x=%x%" carries x out.
Step CommandLine::ExpandWhole()
{
    if (!row || !EqualNoCase(row->name, u"ENDLOCAL") || unexpandedTail == 0)
        return Step::Go;
    unexpandedTail = 0;
    const int code = VariableExpansion(rest);
    return code == 0 ? Step::Go : Fail(result::error);
}

// Parts the first command from what follows it; a pipe takes everything up to the next other connector.
Step CommandLine::Cut()
{
    Separator end;
    if ((rowFlags & command_flags::wholeLine) == 0)
        end = FindEnd(0);
    KeepPlan(end);
    CutAt(end);
    if (IsPipe(connector))
        CutPipe();
    return Step::Go;
}

void CommandLine::CutAt(const Separator& end)
{
    connector = end.connector;
    if (end.at == npos) {
        command = std::exchange(rest, CString());
        tail.Clear();
        return;
    }
    command = rest.Substr(0, end.at);
    tail = rest.Substr(end.at);
    rest.Erase(0, end.Behind());
}

void CommandLine::CutPipe()
{
    pipeErrors = connector == Connector::PipeErrors;
    Separator end;
    do
        end = FindEnd(end.at == npos ? 0 : end.Behind());
    while (IsPipe(end.connector));
    connector = end.connector;
    pipedTo = rest.Substr(0, end.at);
    rest = end.at == npos ? CString() : rest.Substr(end.Behind());
}

Step CommandLine::Expand()
{
    const bool expanded = unexpandedTail <= tail.size();
    if (expanded || (rowFlags & command_flags::expand) == 0)
        return Step::Go;
    const CString before(command);
    if (VariableExpansion(command) != 0)
        return Fail(result::error);
    if (command == before)
        return Step::Go;
    // A value may have brought a separator, a prefix or another command with it.
    rest = command + tail;
    unexpandedTail = tail.size();
    rest.TrimLeft();
    TakePrefixes();
    LookUp();
    return Cut();
}

// Shown once per line, before its first command; without the compatibility switch command by command.
Step CommandLine::EchoAndLog()
{
    if (!echoing && !logging)
        return Step::Go;
    const bool shows = echoing && echoCommand;
    if (!syntax.duplicateBugs) {
        if (shows && !command.empty())
            PrintLine(command);
        if (logging)
            LogCommand(command);
        return Step::Go;
    }
    const CString text = shows || logging ? CommandsByLine() : CString();
    if (shows)
        PrintLine(text);
    if (logging)
        LogCommand(text);
    echoing = false;
    logging = false;
    return Step::Go;
}

// What is left of the line, each command separator as a line end.
CString CommandLine::CommandsByLine() const
{
    const CString line = command + tail;
    CString shown;
    std::size_t from = 0;
    for (;;) {
        const Separator end = FindSeparator(line, from, CommandShape::Plain, syntax);
        const std::size_t stop = end.connector == Connector::Sequence ? end.at : end.Behind();
        shown.Append(line.view().substr(from, end.at == npos ? npos : stop - from));
        if (end.at == npos)
            break;
        if (end.connector == Connector::Sequence)
            shown.Append(u"\r\n");
        from = end.Behind();
    }
    return shown;
}

Step CommandLine::Redirect()
{
    if ((aGlobals.expansionMask & expansion_mask::noRedirection) != 0)
        return Step::Go;
    int code = pipedTo.empty() ? result::success : redirections.StartPipe(pipedTo, pipeErrors);
    if (code == result::success && (rowFlags & command_flags::redirect) != 0)
        code = redirections.Apply(command, command.front() == u'(' || TakesGroups(rowFlags), syntax);
    return code == result::success ? Step::Go : Fail(code);
}

Step CommandLine::Execute()
{
    command.TrimLeft(u", \t\n\f\r");
    // Scripts end the question of SET /P in a blank.
    const bool question = syntax.openQuotes && BeginsNoCase(command, u"set /p");
    command.TrimRight(question ? u"\r\n" : u" \t\r\n");
    if (command.front() == u'`') {
        // A command in back-quotes is taken as written; the marks have protected it until here.
        const std::size_t closing = command.Find(u'`', 1);
        command.Erase(closing, closing == npos ? 0 : 1).Erase(0, 1);
    }
    lastResult = Runp(command, echoCommand);
    if (lastResult == result::handled)
        lastResult = result::success;
    if ((flags & line_flags::typed) != 0 && echoCommand)
        UpdateTitleAndIcon({});
    tty_yield();
    return Step::Go;
}

// Passes over the commands that "&&" and "||" rule out.
Step CommandLine::FollowConnector()
{
    redirections.Finish(lastResult);
    if (EndsLine(lastResult))
        return Step::EndLine;
    const bool succeeded = lastResult == result::success;
    auto ruledOut = [&] { return succeeded ? connector == Connector::Or : connector == Connector::And; };
    while (ruledOut()) {
        Separator end = FindEnd(0);
        while (IsPipe(end.connector))
            end = FindEnd(end.Behind());
        connector = end.connector;
        rest = end.at == npos ? CString() : rest.Substr(end.Behind());
    }
    return Step::Go;
}

// The command cannot run; its error, which was reported, ends the line.
Step CommandLine::Fail(int code)
{
    lastResult = code;
    Tls().errorLevel = result::error;
    return Step::EndLine;
}

void CommandLine::EndPass()
{
    redirections.Finish(lastResult);
    ResetParsingFlags();
    // Jumps of an ON command end the line as those of the line itself do.
    const BATCH_FRAME* frame = Tls().Frame();
    if (frame && frame->onSet != 0)
        if (const int code = RunOnCommands(); EndsLine(code))
            lastResult = code;
}

void CommandLine::DropFirstCommand()
{
    const Separator end = FindEnd(0);
    rest = end.at == npos ? CString() : rest.Substr(end.Behind());
}

// Comments and labels take the rest of their line, which inside a block is one of several.
void CommandLine::SkipRestOfTextLine()
{
    const std::size_t lineEnd = rest.Find(u'\n');
    rest.Erase(0, lineEnd == npos ? npos : lineEnd + 1);
}

bool CommandLine::FirstWordIs(std::u16string_view word) const
{
    const char16_t behind = rest[word.size()];
    return BeginsNoCase(rest, word) && !IsLetterOrDigit(behind) && behind != u'_' && behind != u'.';
}

CommandShape CommandLine::ShapeOf(std::u16string_view text) const
{
    const std::size_t start = text.find_first_not_of(u" \t\n@,;=");
    if (start == npos)
        return CommandShape::Plain;
    if (text[start] == u'(')
        return CommandShape::Parentheses;
    const BUILTIN* found = nullptr;
    FindInternalCommand(text.substr(start), false, &found);
    if (!found || !TakesGroups(CommandFlags(*found)))
        return CommandShape::Plain;
    const bool isIf = EqualNoCase(found->name, u"IF");
    // Older scripts rely on it: "if errorlevel 1 echo failed & exit /b".
    if (syntax.openQuotes && (isIf || EqualNoCase(found->name, u"FOR")))
        return CommandShape::TextLine;
    return isIf ? CommandShape::If : CommandShape::Parentheses;
}

// The end of the command that begins at `from`.
Separator CommandLine::FindEnd(std::size_t from) const
{
    const CommandShape shape = ShapeOf(rest.view().substr(from));
    Separator end = FindSeparator(rest, from, shape, syntax);
    if ((aGlobals.expansionMask & expansion_mask::noRedirection) != 0) {
        while (IsPipe(end.connector))
            end = FindSeparator(rest, end.Behind(), shape, syntax);
    }
    return end;
}

// Where the ENDDO ends that closes the loop whose lines begin at `from`; npos when it is not on the line.
std::size_t CommandLine::FindLoopEnd(std::size_t from) const
{
    for (int depth = 1; from < rest.size();) {
        const Separator end = FindEnd(from);
        const std::size_t stop = std::min(end.at, rest.size());
        const LoopPart part = QueryLoopPart(rest.view().substr(from, stop - from));
        depth += part == LoopPart::Opens ? 1 : part == LoopPart::Closes ? -1 : 0;
        if (depth == 0)
            return stop;
        if (end.at == npos)
            break;
        from = end.Behind();
    }
    return npos;
}

// Counts nested lines for as long as one runs.
class LineDepth {
public:
    LineDepth() { ++Tls().lineDepth; }
    LineDepth(const LineDepth&) = delete;
    LineDepth& operator=(const LineDepth&) = delete;
    ~LineDepth() { --Tls().lineDepth; }
};

} // namespace

int Command_S(CString line, int flags)
{
    const LineDepth depth;
    if (Tls().lineDepth > deepestLine)
        return MVError(errors::nestedTooDeep);
    if ((flags & line_flags::typed) != 0) {
        if (!line.empty())
            WriteLogLine(Log::TypedLines, line);
        Tls().typedLine = true;
    }
    return CommandLine(std::move(line), flags).Run();
}

void ResetParsingFlags()
{
    TLS_VARIABLES& tls = Tls();
    tls.aliasBypass = false;
    tls.loopBody.Clear();
}
