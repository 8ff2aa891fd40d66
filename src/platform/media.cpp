#include "platform/media.h"

#include <iterator>

#include <windows.h>

#include <mmsystem.h>

#include "platform/lazy_library.h"

namespace {

constinit LazyLibrary winmm(L"winmm.dll");
constinit LazyFunction<decltype(mciSendStringW)> sendString(winmm, "mciSendStringW", MMSYSERR_NODRIVER);
constinit LazyFunction<decltype(mciGetErrorStringW)> errorString(winmm, "mciGetErrorStringW");
constinit LazyFunction<decltype(PlaySoundW)> playSound(winmm, "PlaySoundW");
constinit LazyFunction<decltype(PeekMessageW)> peekMessage(libraries::user32, "PeekMessageW");
constinit LazyFunction<decltype(DispatchMessageW)> dispatchMessage(libraries::user32, "DispatchMessageW");

CString TextOf(const wchar_t* units) { return CString(reinterpret_cast<const char16_t*>(units)); }

} // namespace

bool MediaCommand(const CString& command, CString& answer, CString& failure)
{
    wchar_t text[512] = L"";
    const MCIERROR error = sendString(command.w(), text, static_cast<UINT>(std::size(text)), nullptr);
    answer = TextOf(text);
    wchar_t reason[256] = L"";
    if (error != 0 && errorString(error, reason, static_cast<UINT>(std::size(reason))))
        failure = TextOf(reason);
    return error == 0;
}

bool PlayNamedSound(const CString& name, bool wait)
{
    return playSound(name.w(), nullptr,
                     SND_ALIAS | SND_NODEFAULT | (wait ? DWORD{SND_SYNC} : DWORD{SND_ASYNC})) != FALSE;
}

void RunWindowMessages()
{
    MSG message;
    while (peekMessage(&message, nullptr, 0, 0, PM_REMOVE))
        dispatchMessage(&message);
}
