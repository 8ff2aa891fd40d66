#include "platform/screen_modes.h"

#include <windows.h>

#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(EnumDisplayDevicesW)> enumDevices(libraries::user32, "EnumDisplayDevicesW");
constinit LazyFunction<decltype(EnumDisplaySettingsW)> enumSettings(libraries::user32,
                                                                    "EnumDisplaySettingsW");
constinit LazyFunction<decltype(ChangeDisplaySettingsExW)>
    changeSettings(libraries::user32, "ChangeDisplaySettingsExW", DISP_CHANGE_FAILED);

const wchar_t* NameOf(const CString& monitor) { return monitor.empty() ? nullptr : monitor.w(); }

DEVMODEW EmptyMode()
{
    DEVMODEW mode = {};
    mode.dmSize = sizeof mode;
    return mode;
}

ScreenMode ModeOf(const DEVMODEW& mode)
{
    return {mode.dmPelsWidth, mode.dmPelsHeight, mode.dmBitsPerPel, mode.dmDisplayFrequency};
}

} // namespace

std::optional<CString> MonitorName(unsigned number)
{
    DISPLAY_DEVICEW device = {};
    device.cb = sizeof device;
    for (DWORD index = 0; enumDevices(nullptr, index, &device, 0); ++index)
        if ((device.StateFlags & DISPLAY_DEVICE_ATTACHED_TO_DESKTOP) != 0 && --number == 0)
            return CString(reinterpret_cast<const char16_t*>(device.DeviceName));
    return std::nullopt;
}

std::optional<ScreenMode> ReadScreenMode(const CString& monitor)
{
    DEVMODEW mode = EmptyMode();
    if (!enumSettings(NameOf(monitor), ENUM_CURRENT_SETTINGS, &mode))
        return std::nullopt;
    return ModeOf(mode);
}

std::vector<ScreenMode> ScreenModes(const CString& monitor)
{
    std::vector<ScreenMode> modes;
    DEVMODEW mode = EmptyMode();
    for (DWORD index = 0; enumSettings(NameOf(monitor), index, &mode); ++index)
        if (modes.empty() || modes.back() != ModeOf(mode))
            modes.push_back(ModeOf(mode));
    return modes;
}

bool SetScreenMode(const CString& monitor, const ScreenMode& mode, bool lasting)
{
    DEVMODEW wanted = EmptyMode();
    wanted.dmPelsWidth = mode.width;
    wanted.dmPelsHeight = mode.height;
    wanted.dmBitsPerPel = mode.bits;
    wanted.dmDisplayFrequency = mode.hertz;
    wanted.dmFields = DM_PELSWIDTH | DM_PELSHEIGHT | (mode.bits != 0 ? DWORD{DM_BITSPERPEL} : 0) |
                      (mode.hertz != 0 ? DWORD{DM_DISPLAYFREQUENCY} : 0);
    const DWORD change = lasting ? DWORD{CDS_UPDATEREGISTRY} : DWORD{0};
    return changeSettings(NameOf(monitor), &wanted, nullptr, CDS_TEST, nullptr) == DISP_CHANGE_SUCCESSFUL &&
           changeSettings(NameOf(monitor), &wanted, nullptr, change, nullptr) == DISP_CHANGE_SUCCESSFUL;
}
