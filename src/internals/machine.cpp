// The machine: power, processor, sound, radios, ports, and what kind of machine it is.
#include "internals/families.h"

#include <windows.h>

#include "internals/values.h"
#include "platform/account_names.h"
#include "platform/hardware_profile.h"
#include "platform/hypervisor.h"
#include "platform/loudspeaker.h"
#include "platform/radios.h"
#include "platform/registry.h"
#include "platform/system_version.h"

namespace {

constexpr BYTE unknownPower = 255;
constexpr BYTE noBattery = 128;
constexpr DWORD unknownLife = 0xFFFFFFFF;

// Nothing when there is no battery.
std::optional<SYSTEM_POWER_STATUS> ReadBattery()
{
    SYSTEM_POWER_STATUS power = {};
    if (!GetSystemPowerStatus(&power) || power.BatteryFlag == unknownPower ||
        (power.BatteryFlag & noBattery) != 0)
        return std::nullopt;
    return power;
}

const char16_t* BatteryState(BYTE flags)
{
    constexpr BYTE high = 1, low = 2, critical = 4, charging = 8;
    if (flags & charging)
        return u"Charging";
    if (flags & critical)
        return u"Critical";
    if (flags & low)
        return u"Low";
    return flags & high ? u"High" : u"Normal";
}

struct ProcessorTimes {
    std::uint64_t idle = 0;
    std::uint64_t all = 0;
};

ProcessorTimes ReadProcessorTimes()
{
    auto join = [](const FILETIME& time) {
        return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    };
    FILETIME idle = {}, kernel = {}, user = {};
    GetSystemTimes(&idle, &kernel, &user);
    return {join(idle), join(kernel) + join(user)}; // the kernel's time holds the idle one
}

bool AnswerHypervisor(CString& value, std::string_view name)
{
    return AnswerFlag(value, HypervisorName() == name);
}

} // namespace

// 1 on mains, 0 on the battery; empty when the machine cannot tell.
bool Acstatus_Variable(CString& value)
{
    SYSTEM_POWER_STATUS power = {};
    return !GetSystemPowerStatus(&power) || power.ACLineStatus == unknownPower ||
           AnswerNumber(value, unsigned{power.ACLineStatus});
}

bool Battery_Variable(CString& value)
{
    const auto power = ReadBattery();
    return !power || AnswerText(value, BatteryState(power->BatteryFlag));
}

// Seconds that it will last.
bool Batterylife_Variable(CString& value)
{
    const auto power = ReadBattery();
    return !power || power->BatteryLifeTime == unknownLife ||
           AnswerNumber(value, static_cast<unsigned>(power->BatteryLifeTime));
}

bool Batterypercent_Variable(CString& value)
{
    const auto power = ReadBattery();
    return !power || power->BatteryLifePercent == unknownPower ||
           AnswerNumber(value, unsigned{power->BatteryLifePercent});
}

// How busy all processors were during the last tenth of a second, in percent.
bool Cpuusage_Variable(CString& value)
{
    constexpr DWORD span = 100; // milliseconds
    const ProcessorTimes before = ReadProcessorTimes();
    Sleep(span);
    const ProcessorTimes after = ReadProcessorTimes();
    const std::uint64_t all = after.all - before.all;
    const std::uint64_t idle = std::min(after.idle - before.idle, all);
    return AnswerNumber(value, static_cast<unsigned>(all == 0 ? 0 : (all - idle) * 100 / all));
}

bool Hyperv_Variable(CString& value) { return AnswerHypervisor(value, "Microsoft Hv"); }
bool Virtualbox_Variable(CString& value) { return AnswerHypervisor(value, "VBoxVBoxVBox"); }
bool Virtualpc_Variable(CString& value) { return AnswerHypervisor(value, "ConnectixCPU"); }
bool Vmware_Variable(CString& value) { return AnswerHypervisor(value, "VMwareVMware"); }
bool Xen_Variable(CString& value) { return AnswerHypervisor(value, "XenVMMXenVMM"); }

bool Btradiocount_Variable(CString& value) { return AnswerNumber(value, CountRadiosOnly()); }
bool Btdevicecount_Variable(CString& value) { return AnswerNumber(value, CountRadios().devices); }
bool Btservicecount_Variable(CString& value) { return AnswerNumber(value, CountRadios().services); }

bool Hwprofile_Variable(CString& value) { return AnswerText(value, HardwareProfileName()); }

bool Serialports_Variable(CString& value)
{
    const RegistryKey key(RegistryRoot::LocalMachine, u"HARDWARE\\DEVICEMAP\\SERIALCOMM");
    for (const CString& name : key.ValueNames()) {
        if (!value.empty())
            value.Append(u' ');
        value.Append(key.Text(name).value_or(CString()));
    }
    return true;
}

// The loudness of the sound, 0 to 100.
bool Volume_Variable(CString& value)
{
    const auto loudness = ReadLoudness();
    return !loudness || AnswerNumber(value, *loudness);
}

// Whether the user belongs to the administrators, even if the shell does not run with their rights.
bool Admin_Variable(CString& value) { return AnswerFlag(value, IsAdministrator()); }
bool Service_Variable(CString& value) { return AnswerFlag(value, RunsAsService()); }

bool Winname_Variable(CString& value)
{
    const RegistryKey key(RegistryRoot::LocalMachine, u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion");
    value = key.Text(u"ProductName").value_or(CString());
    // The registry keeps the old number for the sake of old programs.
    constexpr unsigned firstEleven = 22000;
    const std::size_t ten = value.Find(u"Windows 10");
    const SystemVersion system = ReadSystemVersion();
    if (ten != CString::npos && !system.server && system.build >= firstEleven)
        value.Replace(ten, 10, u"Windows 11");
    return true;
}

// The country's telephone code.
bool Country_Variable(CString& value)
{
    DWORD code = 0;
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_IDIALINGCODE | LOCALE_RETURN_NUMBER,
                    reinterpret_cast<wchar_t*>(&code), sizeof code / sizeof(wchar_t));
    return AnswerNumber(value, static_cast<unsigned>(code));
}

// The shared file system AFS: whether its client is installed, and the cell that this machine belongs to.
bool Openafs_Variable(CString& value)
{
    const RegistryKey key(RegistryRoot::LocalMachine,
                          u"SYSTEM\\CurrentControlSet\\Services\\TransarcAFSDaemon");
    return AnswerFlag(value, static_cast<bool>(key));
}

bool Afswcell_Variable(CString& value)
{
    constexpr std::size_t longest = 260;
    const RegistryKey key(RegistryRoot::LocalMachine,
                          u"SYSTEM\\CurrentControlSet\\Services\\TransarcAFSDaemon\\Parameters");
    value = key.Text(u"Cell").value_or(CString());
    value.Truncate(longest);
    return true;
}
