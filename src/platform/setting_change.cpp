#include "platform/setting_change.h"

#include "platform/lazy_library.h"

namespace {

constexpr unsigned patience = 1000; // milliseconds for a window that does not answer

constinit LazyFunction<decltype(SendMessageTimeoutW)> sendMessageTimeout(libraries::user32,
                                                                         "SendMessageTimeoutW");

} // namespace

void BroadcastEnvironmentChange(bool machine)
{
    DWORD_PTR answer = 0;
    sendMessageTimeout(HWND_BROADCAST, WM_SETTINGCHANGE, machine ? 1 : 0,
                       reinterpret_cast<LPARAM>(L"Environment"), SMTO_ABORTIFHUNG, patience, &answer);
}
