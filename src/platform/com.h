// COM for this process, started by the first who needs it: it costs more than the whole start-up of the
// shell.
#pragma once

// Makes the calling thread an apartment of its own and sets the process's security: default authentication,
// impersonation, no further capabilities. False when COM cannot be had on this thread. Further calls on the
// thread cost nothing.
bool StartCom();

// Gives COM up again, if StartCom was called on this thread.
void EndCom();
