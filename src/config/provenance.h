// Where each setting got its value from, kept beside the settings so that a person can ask.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "config/directives.h"
#include "text/cstring.h"

enum class SettingOrigin : std::uint8_t { Default, ParentShell, File, CommandLine, Command };

struct SettingSource {
    SettingOrigin origin = SettingOrigin::Default;
    std::uint32_t file = 0; // index into SettingSources::files
    std::uint32_t line = 0; // from 1
};

struct SettingSources {
    std::array<SettingSource, nDirectives> rows; // by index of the directive
    std::vector<CString> files;                  // full names of the INI files read

    std::uint32_t FileIndex(std::u16string_view name); // adds the name when it is new
};

extern SettingSources aSettingSources;
