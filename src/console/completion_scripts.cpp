#include "console/completion_scripts.h"

#include <algorithm>

#include "console/completion_files.h"
#include "console/completion_hint.h"
#include "core/output_capture.h"
#include "engine/command_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "files/text_lines.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

std::vector<CompletionScript>& Registered()
{
    static std::vector<CompletionScript> scripts;
    return scripts;
}

// A variable has a value while this lives.
class PassingVariable {
public:
    PassingVariable(std::u16string_view variable, std::u16string_view value)
        : name(variable), existed(ReadEnvironment(variable, before))
    {
        WriteEnvironment(name, value);
    }
    ~PassingVariable()
    {
        if (existed)
            WriteEnvironment(name, before);
        else
            RemoveEnvironment(name);
    }
    PassingVariable(const PassingVariable&) = delete;
    PassingVariable& operator=(const PassingVariable&) = delete;

private:
    std::u16string_view name;
    CString before;
    bool existed;
};

// Completing a word must not change what the next command sees of the last one.
class KeptErrorLevel {
public:
    KeptErrorLevel() : before(Tls().errorLevel) {}
    ~KeptErrorLevel() { Tls().errorLevel = before; }
    KeptErrorLevel(const KeptErrorLevel&) = delete;
    KeptErrorLevel& operator=(const KeptErrorLevel&) = delete;

private:
    decltype(Tls().errorLevel) before;
};

// Nothing but what the file writes comes out, in any language, for as long as this lives.
class ScriptOutput {
public:
    ScriptOutput() : echo(aIniFile.BatchEcho), utf8(aIniFile.UTF8Output)
    {
        aIniFile.BatchEcho = 0;
        aIniFile.UTF8Output = 1;
    }
    ~ScriptOutput()
    {
        aIniFile.BatchEcho = echo;
        aIniFile.UTF8Output = utf8;
    }
    ScriptOutput(const ScriptOutput&) = delete;
    ScriptOutput& operator=(const ScriptOutput&) = delete;

private:
    SettingChoice echo;
    SettingChoice utf8;
};

// As one argument of a batch file, whatever it holds.
CString AsArgument(std::u16string_view text)
{
    CString argument(u"\"");
    for (const char16_t unit : text)
        if (unit == u'%')
            argument += u"%%";
        else if (unit != u'"')
            argument += unit;
    return argument += u'"';
}

std::vector<CompletionCandidate> ReadCandidates(const CString& file, const CompletionWord& word)
{
    std::vector<CompletionCandidate> candidates;
    TextLines lines;
    std::u16string_view line;
    if (!lines.Open(file))
        return candidates;
    while (lines.Next(line)) {
        const std::size_t tab = std::min(line.find(u'\t'), line.size());
        const CString text(line.substr(0, tab));
        if (text.empty() || !BeginsNoCase(text, word.text))
            continue;
        const CString hint(line.substr(std::min(tab + 1, line.size())));
        candidates.push_back({SpellCandidate(text, word), text, false, hint});
    }
    return candidates;
}

std::vector<CompletionCandidate> Ask(const CompletionScript& script, const CompletionWord& word,
                                     std::u16string_view line, std::size_t cursor)
{
    const bool isCommand = word.place == WordPlace::Command;
    const CString argument = Format(u"%d", isCommand ? 0 : static_cast<int>(word.before.size()) + 1);
    const CString at = Format(u"%d", static_cast<int>(cursor));
    const PassingVariable variables[] = {{u"COMPLETE_LINE", line},
                                         {u"COMPLETE_CURSOR", at},
                                         {u"COMPLETE_COMMAND", word.command},
                                         {u"COMPLETE_WORD", word.text},
                                         {u"COMPLETE_ARGUMENT", argument}};
    const KeptErrorLevel kept;
    const ScriptOutput plain;
    CString call(u"*call ");
    call.Append(AsArgument(script.file)).Append(u' ').Append(AsArgument(word.command)).Append(u' ');
    call.Append(AsArgument(word.text)).Append(u' ').Append(argument).Append(u" 2>nul");
    OutputCapture capture;
    bool ran = false;
    capture.Run(call, ran);
    return ran ? ReadCandidates(capture.File(), word) : std::vector<CompletionCandidate>();
}

} // namespace

const std::vector<CompletionScript>& CompletionScripts() { return Registered(); }

void RegisterCompletionScript(CompletionScript script)
{
    RemoveCompletionScript(script.file);
    Registered().insert(Registered().begin(), std::move(script));
}

bool RemoveCompletionScript(std::u16string_view file)
{
    return std::erase_if(Registered(),
                         [&](const CompletionScript& script) { return EqualNoCase(script.file, file); }) != 0;
}

void RemoveCompletionScripts() { Registered().clear(); }

std::vector<CompletionCandidate> AskCompletionScripts(const CompletionWord& word, std::u16string_view line,
                                                      std::size_t cursor)
{
    if (word.place != WordPlace::Command && word.place != WordPlace::Argument)
        return {};
    // A file may register others while it runs.
    const std::vector<CompletionScript> scripts = Registered();
    for (const CompletionScript& script : scripts) {
        const bool asked = script.commands.empty() || FitsCommandNames(script.commands, word.command);
        if (!asked)
            continue;
        if (std::vector<CompletionCandidate> found = Ask(script, word, line, cursor); !found.empty())
            return found;
    }
    return {};
}
