#include "commands/unbuilt.h"

#include "engine/results.h"
#include "engine/state.h"

const CommandHelp unbuiltHelp = {u"Not available yet.", u"", u"", u""};

int Unbuilt_Command(CString&) { return MVError(errors::unbuiltCommand, Tls().commandName); }
