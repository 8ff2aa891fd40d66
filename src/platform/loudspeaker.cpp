#include "platform/loudspeaker.h"

#include <cmath>

#include "platform/com_objects.h"

#include <initguid.h>

#include <endpointvolume.h>
#include <mmdeviceapi.h>

std::optional<unsigned> ReadLoudness()
{
    ComPointer<IMMDeviceEnumerator> devices;
    ComPointer<IMMDevice> device;
    ComPointer<IAudioEndpointVolume> volume;
    float level = 0;
    if (!CreateComObject(__uuidof(MMDeviceEnumerator), __uuidof(IMMDeviceEnumerator),
                         reinterpret_cast<void**>(devices.Receive())) ||
        FAILED(devices->GetDefaultAudioEndpoint(eRender, eMultimedia, device.Receive())) ||
        FAILED(device->Activate(__uuidof(IAudioEndpointVolume), CLSCTX_ALL, nullptr,
                                reinterpret_cast<void**>(volume.Receive()))) ||
        FAILED(volume->GetMasterVolumeLevelScalar(&level)))
        return std::nullopt;
    return static_cast<unsigned>(std::lround(level * 100));
}
