// Making UUIDs, for the function and the command.
#pragma once

#include <optional>

#include "text/uuid.h"

// Of version 1, 4 or 7; nothing for any other, or when the system has no random bytes (the reason is the
// thread's last error then).
std::optional<Uuid> NewUuid(std::int64_t version);
// Of version 3 (MD5) or 5 (SHA-1), always the same for a name in a name space.
Uuid NamedUuid(int version, const Uuid& space, std::u16string_view name);
