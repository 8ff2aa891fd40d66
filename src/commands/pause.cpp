#include "commands/pause.h"

#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "lang/messages.h"

const CommandHelp pauseHelp = {
    u"Shows a text and waits for a key.",
    u"PAUSE [text]",
    u"Without text a message asks for any key. Nothing is waited for when standard input is no console.",
    u"pause\n"
    u"pause Put the next disk in and press a key... ",
};

int Pause_Command(CString& arguments)
{
    Print(arguments.empty() ? LoadMessage(message::pressKey) : arguments);
    WaitForKey();
    return Print(u"\r\n") ? result::success : MVError(0);
}
