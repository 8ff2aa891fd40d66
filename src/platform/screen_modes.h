// The resolutions of the monitors.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct ScreenMode {
    unsigned width = 0;
    unsigned height = 0;
    unsigned bits = 0;  // of a pixel's colour; 0 keeps what is
    unsigned hertz = 0; // 0 keeps what is
    friend bool operator==(const ScreenMode&, const ScreenMode&) = default;
};

// The system's name of monitor `number` from 1, "" for the first; nothing when there are fewer.
std::optional<CString> MonitorName(unsigned number);
std::optional<ScreenMode> ReadScreenMode(const CString& monitor);
std::vector<ScreenMode> ScreenModes(const CString& monitor);
// For this session, or with `lasting` for later ones too. False when the screen refuses it.
bool SetScreenMode(const CString& monitor, const ScreenMode& mode, bool lasting);
