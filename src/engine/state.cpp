#include "engine/state.h"

#include <windows.h>

#include "engine/inifile.h"
#include "text/compare.h"

GLOBAL_VARIABLES aGlobals;
GlobalTexts aTexts;
GlobalRooms aRooms;

BATCH_FRAME::BATCH_FRAME() = default;
BATCH_FRAME::BATCH_FRAME(BATCH_FRAME&&) noexcept = default;
BATCH_FRAME& BATCH_FRAME::operator=(BATCH_FRAME&&) noexcept = default;
BATCH_FRAME::~BATCH_FRAME() = default;

// Asked several times for every command: the last unit tells most names apart.
bool BATCH_FRAME::EndsInCmd() const
{
    switch (fileName.back()) {
    case u'd':
    case u'D': return EndsNoCase(fileName, u".cmd");
    case u't':
    case u'T': return EndsNoCase(fileName, u".bat");
    default: return false;
    }
}

namespace {

// Frees the record of a thread that ends; the main thread's lives until the process ends.
void WINAPI FreeThreadState(void* state) { delete static_cast<TLS_VARIABLES*>(state); }

DWORD StateSlot()
{
    static const DWORD slot = FlsAlloc(FreeThreadState);
    return slot;
}

} // namespace

TLS_VARIABLES* GetTLSVariables()
{
    const DWORD slot = StateSlot();
    auto* state = static_cast<TLS_VARIABLES*>(FlsGetValue(slot));
    if (!state) {
        state = new TLS_VARIABLES;
        FlsSetValue(slot, state);
    }
    return state;
}

Syntax CurrentSyntax()
{
    Syntax syntax;
    syntax.commandSep = aIniFile.CommandSep;
    syntax.escapeChar = aIniFile.EscapeChar;
    syntax.switchChar = aIniFile.SwitchChar;
    syntax.parameterChar = aIniFile.ParameterChar;
    syntax.escapes = (aGlobals.expansionMask & expansion_mask::noEscapes) == 0;
    syntax.duplicateBugs = aIniFile.DuplicateBugs != 0;
    const BATCH_FRAME* frame = Tls().Frame();
    syntax.openQuotes = frame && frame->EndsInCmd();
    syntax.cmdDelimiters = syntax.openQuotes && aIniFile.CMDBatchDelimiters != 0;
    return syntax;
}

bool QueryEcho()
{
    const BATCH_FRAME* frame = Tls().Frame();
    return frame ? frame->echo : aGlobals.echo != 0;
}
