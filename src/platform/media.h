// Sounds and films, played by the system's media control: one command, as text, at a time.
#pragma once

#include <string_view>

#include "text/cstring.h"

// `answer` and `failure` receive what the system says to it. False when it refused.
bool MediaCommand(const CString& command, CString& answer, CString& failure);

// A sound that the user has given a name to, such as "SystemExclamation". False when there is none.
bool PlayNamedSound(const CString& name, bool wait);

// Lets the windows of films live while they are waited for.
void RunWindowMessages();
