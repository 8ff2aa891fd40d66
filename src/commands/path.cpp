#include "commands/path.h"

#include "engine/output.h"
#include "engine/results.h"
#include "expand/lists.h"
#include "lang/messages.h"
#include "platform/environment.h"

const CommandHelp pathHelp = {
    u"Shows or sets the directories that programs are searched in.",
    u"PATH [directory;...]\n"
    u"PATH ;",
    u";  search the current directory only\n"
    u"The list replaces the old one; name %PATH% in it to add to that.",
    u"path\n"
    u"path c:\\tools;%path%\n"
    u"path ;",
};

int Path_Command(CString& arguments)
{
    arguments.TrimLeft(u" \t=").TrimRight();
    if (arguments.empty()) {
        CString path;
        const bool known = ReadEnvironment(u"PATH", path);
        const CString line = known ? CString(u"PATH=") + path : LoadMessage(message::noPath);
        return PrintLine(line) ? result::success : MVError(0);
    }
    return SetEVariable(arguments == u";" ? CString(u"PATH=") : CString(u"PATH=") + arguments);
}
