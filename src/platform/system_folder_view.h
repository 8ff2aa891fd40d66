// Which system folder a 32-bit process on a 64-bit Windows sees under the name System32.
#pragma once

// Its own kind's (as Windows does unless told otherwise) or the system's own; for the calling thread. Nothing
// happens in a process for which there is one folder only.
void RedirectSystemFolder(bool redirected);
