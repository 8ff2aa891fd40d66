// Names of users and groups, and who belongs to which.
#pragma once

#include <optional>
#include <string_view>

#include <windows.h>

#include "text/cstring.h"

// "DOMAIN\name" of the user whose token it is; empty with the reason in the last error.
CString UserOfToken(HANDLE token);
// Whether the user of this process belongs to the group, named "Administrators", "DOMAIN\Staff" or
// "S-1-5-32-544". Groups that count only when the process is elevated count, too. Nothing when there is no
// such group, the reason in the last error.
std::optional<bool> IsGroupMember(std::u16string_view group);
// Whether the user may become an administrator, or is one.
bool IsAdministrator();
// Whether the process runs as a service.
bool RunsAsService();
