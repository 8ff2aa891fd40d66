#include "commands/unbuilt.h"

#include "core/external.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/format.h"

const CommandHelp unbuiltHelp = {u"Not available yet.", u"", u"", u""};

int Unbuilt_Command(CString& arguments)
{
    // A program of that name does the work until then: TAR and TASKLIST come with Windows.
    const CString name(Tls().commandName);
    int code = result::success;
    const bool ran = RunExternal(Format(u"%s %s", name, arguments), name, true, code);
    return ran ? code : MVError(errors::unbuiltCommand, name);
}
