#include "platform/radios.h"

#include <windows.h>

#include <bluetoothapis.h>

#include "platform/handle.h"
#include "platform/lazy_library.h"
#include "platform/registry.h"

namespace {

constinit LazyLibrary bluetooth(L"bluetoothapis.dll");
constinit LazyFunction<decltype(BluetoothFindFirstRadio)> firstRadio(bluetooth, "BluetoothFindFirstRadio");
constinit LazyFunction<decltype(BluetoothFindNextRadio)> nextRadio(bluetooth, "BluetoothFindNextRadio");
constinit LazyFunction<decltype(BluetoothFindRadioClose)> closeRadios(bluetooth, "BluetoothFindRadioClose");
constinit LazyFunction<decltype(BluetoothFindFirstDevice)> firstDevice(bluetooth, "BluetoothFindFirstDevice");
constinit LazyFunction<decltype(BluetoothFindNextDevice)> nextDevice(bluetooth, "BluetoothFindNextDevice");
constinit LazyFunction<decltype(BluetoothFindDeviceClose)> closeDevices(bluetooth,
                                                                        "BluetoothFindDeviceClose");
constinit LazyFunction<decltype(BluetoothEnumerateInstalledServices)>
    installedServices(bluetooth, "BluetoothEnumerateInstalledServices", ERROR_PROC_NOT_FOUND);

void CountDevices(HANDLE radio, RadioCounts& counts)
{
    BLUETOOTH_DEVICE_SEARCH_PARAMS search = {};
    search.dwSize = sizeof search;
    search.fReturnAuthenticated = TRUE;
    search.fReturnRemembered = TRUE;
    search.fReturnConnected = TRUE;
    search.hRadio = radio;
    BLUETOOTH_DEVICE_INFO device = {};
    device.dwSize = sizeof device;
    const HBLUETOOTH_DEVICE_FIND found = firstDevice(&search, &device);
    if (!found)
        return;
    do {
        ++counts.devices;
        DWORD services = 0;
        const DWORD status = installedServices(radio, &device, &services, nullptr);
        if (status == ERROR_SUCCESS || status == ERROR_MORE_DATA)
            counts.services += services;
    } while (nextDevice(found, &device));
    closeDevices(found);
}

// The system notes every radio that it has ever seen. A machine without one is spared loading the library.
bool MayHaveRadio()
{
    const RegistryKey seen(
        RegistryRoot::LocalMachine,
        u"SYSTEM\\CurrentControlSet\\Control\\DeviceClasses\\{0850302A-B344-4fda-9BE9-90576B8D46F0}");
    return !seen.SubkeyNames().empty();
}

template <typename Visit> void ForEachRadio(Visit visit)
{
    if (!MayHaveRadio())
        return;
    BLUETOOTH_FIND_RADIO_PARAMS search = {sizeof search};
    HANDLE radio = nullptr;
    const HBLUETOOTH_RADIO_FIND found = firstRadio(&search, &radio);
    if (!found)
        return;
    do {
        const OwnedHandle owner(radio);
        visit(radio);
    } while (nextRadio(found, &radio));
    closeRadios(found);
}

} // namespace

RadioCounts CountRadios()
{
    RadioCounts counts;
    ForEachRadio([&](HANDLE radio) {
        ++counts.radios;
        CountDevices(radio, counts);
    });
    return counts;
}

unsigned CountRadiosOnly()
{
    unsigned radios = 0;
    ForEachRadio([&](HANDLE) { ++radios; });
    return radios;
}
