#include "core/blocks.h"

#include "core/alias_extras.h"
#include "engine/batch_entry.h"
#include "engine/command_entry.h"
#include "engine/console_entry.h"
#include "engine/state.h"
#include "lang/errors.h"
#include "lang/messages.h"
#include "platform/environment.h"
#include "text/block_scanner.h"

CString ContinuationPrompt()
{
    CString pattern;
    CString meant;
    if (ReadEnvironment(u"PROMPT2", pattern) && PromptAliases(pattern, meant) == result::success)
        return ExpandPrompt(meant);
    return LoadMessage(message::more);
}

bool ReadFollowingLine(CString& line)
{
    if (Tls().Frame())
        return ReadBatchLine(line);
    if (!Tls().typedLine)
        return false;
    if (!ReadConsoleLine(line, ContinuationPrompt(), LinePurpose::Command))
        return false;
    AddToHistory(line);
    return true;
}

bool EndsInEscape(std::u16string_view text, const Syntax& syntax)
{
    std::size_t count = 0;
    while (count < text.size() && text[text.size() - 1 - count] == syntax.escapeChar)
        ++count;
    return syntax.escapes && count % 2 == 1;
}

int CompleteBlock(CString& text, bool forSet)
{
    const Syntax syntax = CurrentSyntax();
    const BATCH_FRAME* frame = Tls().Frame();
    const unsigned firstLine = frame ? frame->lineNumber : 0;
    BlockScanner scanner(syntax);
    auto unfinished = [&] {
        while (scanner.Feed(text) != CString::npos) {
        }
        return scanner.InBlock();
    };
    CString line;
    while (unfinished() || forSet) {
        forSet = false;
        if (!ReadFollowingLine(line))
            return BatchTextError(errors::unfinishedBlock, text.view().substr(0, text.Find(u'\n')),
                                  firstLine),
                   result::abandonBatch;
        while (EndsInEscape(line, syntax)) {
            CString next;
            if (!ReadFollowingLine(next))
                break;
            line.Truncate(line.size() - 1).Append(next);
        }
        text.Append(u'\n').Append(line);
    }
    return result::success;
}
