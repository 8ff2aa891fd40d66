#include "batch/label_search.h"

#include "batch/labels.h"
#include "batch/reader.h"
#include "core/command_lookup.h"
#include "engine/batch_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/words.h"

namespace {

constexpr std::size_t labelsKept = 32;
constexpr std::size_t levelsWithParameters = 23;
constexpr std::u16string_view emptyParameter = u"\u0001"; // the variable exists, its value is empty

// The kinds of lines that a search cares about, told by their first unit without converting them.
bool MayMatter(const BATCH_FRAME& frame, std::string_view bytes)
{
    const std::size_t unitSize = frame.flags & frame_flags::utf16 ? 2 : 1;
    std::size_t at = 0;
    while (at < bytes.size() && (bytes[at] == ' ' || bytes[at] == '\t'))
        at += unitSize;
    return at < bytes.size() && std::string_view(":#cCtT").find(bytes[at]) != std::string_view::npos;
}

class Search {
public:
    Search(BATCH_FRAME& over, std::u16string_view label, bool hashLabels)
        : frame(over), wanted(label), hashes(hashLabels), syntax(CurrentSyntax()),
          comments(QueryIsCommandEnabled(u"COMMENT")), texts(QueryIsCommandEnabled(u"TEXT"))
    {}

    // From the frame's offset to the end of the file.
    bool ToTheEnd()
    {
        RawLine raw;
        while (NextRawLine(frame, raw)) {
            ++frame.lineNumber;
            if (!MayMatter(frame, raw.bytes))
                continue;
            DecodeBatchText(frame, raw.bytes, line);
            line.TrimLeft();
            if (ReadLabelLine(line, hashes, syntax, found)) {
                if (EqualNoCase(found.label, wanted))
                    return true;
            } else {
                SkipHiddenLines();
            }
        }
        return false;
    }

    std::u16string_view Parameters() const { return found.parameters; }

private:
    void SkipHiddenLines()
    {
        const CString word = GetNthArgument(line, 0, syntax);
        if (comments && EqualNoCase(word, u"COMMENT"))
            SkipTo(u"ENDCOMMENT");
        else if (texts && EqualNoCase(word, u"TEXT"))
            SkipTo(u"ENDTEXT");
    }

    void SkipTo(std::u16string_view closing)
    {
        RawLine raw;
        while (NextRawLine(frame, raw)) {
            ++frame.lineNumber;
            DecodeBatchText(frame, raw.bytes, line);
            if (EqualNoCase(line.Trim(), closing))
                return;
        }
    }

    BATCH_FRAME& frame;
    std::u16string_view wanted;
    bool hashes;
    Syntax syntax;
    bool comments;
    bool texts;
    CString line;
    LabelLine found;
};

// Binds name i of the list to argument i + 1, "*" to all from there on.
void BindParameters(BATCH_FRAME& frame, std::u16string_view names, std::u16string_view arguments)
{
    const Syntax syntax = CurrentSyntax();
    frame.parameterNames = CString(names);
    int number = 1;
    for (const CString& name : SplitArguments(names, false, syntax)) {
        CString value = name == u"*" ? CString(TailFromArgument(arguments, number, syntax))
                                     : GetNthArgument(arguments, number, syntax);
        if (value.empty())
            value = emptyParameter;
        WriteEnvironment(ParameterVariable(Tls().batchIndex, name), value);
        ++number;
    }
}

void EnterSubroutine(BATCH_FRAME& frame, std::u16string_view label, std::u16string_view names,
                     std::u16string_view arguments)
{
    if (frame.labels.size() < labelsKept) {
        frame.labels.emplace_back(label);
        frame.callerLines.push_back(0);
    }
    if (!names.empty() && frame.labels.size() < levelsWithParameters)
        BindParameters(frame, names, arguments);
}

} // namespace

int FindLabel(std::u16string_view arguments, LabelSearch mode)
{
    const std::u16string_view wanted = WantedLabel(arguments, CurrentSyntax());
    if (wanted.empty())
        return noLabelGiven;
    if (!OpenBatchFile())
        return result::abandonBatch;
    BATCH_FRAME& frame = *Tls().Frame();
    // CALL of a label looks for it before the new frame has read a line.
    const int caller = Tls().batchIndex - 1;
    const bool called = frame.lineNumber == 0 && caller >= 0;
    const unsigned line =
        called ? Tls().frames[static_cast<std::size_t>(caller)].lineNumber : frame.lineNumber;
    Search search(frame, wanted, mode != LabelSearch::Silent);
    bool found = search.ToTheEnd();
    if (!found) {
        RewindFrame(frame);
        found = search.ToTheEnd();
    }
    if (!found && !EqualNoCase(wanted, u"EOF"))
        return mode == LabelSearch::Silent ? result::error
                                           : BatchTextError(errors::labelNotFound, wanted, line);
    if (mode == LabelSearch::Subroutine)
        EnterSubroutine(frame, wanted, found ? search.Parameters() : std::u16string_view(), arguments);
    return result::success;
}

CString ParameterVariable(int frameIndex, std::u16string_view parameter)
{
    const BATCH_FRAME& frame = Tls().frames[static_cast<std::size_t>(frameIndex)];
    CString name;
    name.Append(static_cast<char16_t>(frameIndex + 1));
    name.Append(static_cast<char16_t>(frame.labels.size() + 1));
    return name.Append(parameter);
}

void RemoveParameters(int frameIndex)
{
    BATCH_FRAME& frame = Tls().frames[static_cast<std::size_t>(frameIndex)];
    for (const CString& name : SplitArguments(frame.parameterNames, false, CurrentSyntax()))
        RemoveEnvironment(ParameterVariable(frameIndex, name));
    frame.parameterNames.Clear();
}
