#include "console/prompt_line.h"

#include <deque>
#include <utility>

#include "console/history.h"
#include "console/system_console.h"
#include "console/system_editor_world.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "platform/console.h"

// What one line has left for those to come.
struct LeftLines {
    std::deque<CString> pasted; // lines behind the first one of a pasted text
    CString text;               // was being edited when a key ran something else
    std::size_t cursor = 0;
    std::size_t ranPlace =
        CString::npos; // the line that came last, and its place in the history where it was
    CString ranLine;   // recalled from there
};

namespace {

LeftLines& Left()
{
    static LeftLines left;
    return left;
}

bool GivePasted(EditorAnswer& answer, const EditorRequest& request)
{
    LeftLines& left = Left();
    if (left.pasted.empty())
        return false;
    answer.line = left.pasted.front();
    left.pasted.pop_front();
    WriteToConsole(request.prompt + (request.hidden ? CString() : answer.line) + u"\r\n");
    return true;
}

void KeepFurtherLines(CString& line)
{
    std::u16string_view rest = line;
    std::size_t end = rest.find(u'\n');
    if (end == rest.npos)
        return;
    LeftLines& left = Left();
    const CString first(rest.substr(0, end));
    while (end != rest.npos) {
        rest.remove_prefix(end + 1);
        end = rest.find(u'\n');
        left.pasted.emplace_back(rest.substr(0, end));
    }
    line = first;
}

// A line that was recalled and not changed stays in the history where it is, unless a setting says otherwise.
void SettleHistory(const EditorAnswer& answer)
{
    if (!answer.recalled || answer.line.empty())
        return;
    if (aIniFile.HistMove)
        DeleteHistoryLine({ListKind::History, {}}, answer.line);
    else if (!aIniFile.HistCopy)
        Tls().lineRecalled = true;
}

} // namespace

void DropPastedLines() { Left().pasted.clear(); }

bool EditConsoleLine(EditorAnswer& answer, const EditorRequest& wanted)
{
    if (GivePasted(answer, wanted))
        return true;
    EditorRequest request = wanted;
    static bool prompted = false;
    request.clearsRow = std::exchange(prompted, true); // nothing stands there before the first prompt
    LeftLines& left = Left();
    request.ranPlace = left.ranPlace;
    request.ranLine = left.ranLine;
    if (request.command && !left.text.empty()) {
        request.text = std::exchange(left.text, CString());
        request.cursor = left.cursor;
    }
    SystemEditorWorld world;
    for (;;) {
        {
            SystemEditorConsole console;
            if (!console)
                return false;
            LineEditor editor(console, world, CurrentEditorSettings());
            answer = editor.Read(request);
        }
        if (answer.outcome != EditorOutcome::Break)
            break;
        DropPastedLines();
        MarkBreak();
        ThrowIfBroken(); // comes back when breaks are switched off
        request.prompt.Clear();
        request.text = answer.line;
    }
    if (answer.silent) {
        left.text = answer.left;
        left.cursor = answer.leftCursor;
        Tls().lineNotSaved = true;
    }
    if (request.command) {
        left.ranPlace = answer.place;
        left.ranLine = answer.line;
    }
    KeepFurtherLines(answer.line);
    SettleHistory(answer);
    return true;
}
