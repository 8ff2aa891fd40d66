// Who is logged on.
#pragma once

#include "text/cstring.h"

// The name of the logged-on user, without domain; what USERNAME says when the system will not tell.
CString LoggedOnUser();
