// The short name of the Windows release that %_dos shows.
#pragma once

// `version` is major x 100 + minor. "" for systems older than any that we run on.
const char16_t* DosName(unsigned version, unsigned build, bool server);
