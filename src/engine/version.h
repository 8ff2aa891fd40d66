// The version of the shell's language, which scripts ask for; the version of the program itself comes from
// the build (movacore_version.h).
#pragma once

namespace shell_version {
constexpr int major = 33;
constexpr int minor = 0;
constexpr char16_t text[] = u"33.0";
} // namespace shell_version
