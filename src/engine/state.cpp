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

void BATCH_FRAME::SetFileName(const CString& name)
{
    fileName = name;
    endsInCmd = EndsNoCase(name, u".cmd") || EndsNoCase(name, u".bat");
}

namespace {

// Frees the record of a thread that ends; the main thread's lives until the process ends.
void WINAPI FreeThreadState(void* state) { delete static_cast<TLS_VARIABLES*>(state); }

// The record is asked for all the time, which the one slot answers faster; only the other one says when a
// thread ends.
struct StateSlots {
    DWORD record = TlsAlloc();
    DWORD end = FlsAlloc(FreeThreadState);
};

} // namespace

TLS_VARIABLES* GetTLSVariables()
{
    static const StateSlots slots;
    auto* state = static_cast<TLS_VARIABLES*>(TlsGetValue(slots.record));
    if (!state) {
        state = new TLS_VARIABLES;
        TlsSetValue(slots.record, state);
        FlsSetValue(slots.end, state);
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
