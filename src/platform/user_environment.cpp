#include "platform/user_environment.h"

#include <windows.h>

#include <userenv.h>

#include "platform/handle.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyLibrary userenv(L"userenv.dll");
constinit LazyFunction<decltype(CreateEnvironmentBlock)> createBlock(userenv, "CreateEnvironmentBlock");
constinit LazyFunction<decltype(DestroyEnvironmentBlock)> destroyBlock(userenv, "DestroyEnvironmentBlock");
constinit LazyFunction<decltype(OpenProcessToken)> openToken(libraries::advapi32, "OpenProcessToken");

} // namespace

CString LogOnEnvironment()
{
    HANDLE token = nullptr;
    if (!openToken(GetCurrentProcess(), TOKEN_QUERY | TOKEN_DUPLICATE, &token))
        return CString();
    const OwnedHandle owned(token);
    void* block = nullptr;
    if (!createBlock(&block, token, FALSE) || !block)
        return CString();
    const auto* units = static_cast<const char16_t*>(block);
    std::size_t length = 0;
    while (units[length] != 0)
        length += std::char_traits<char16_t>::length(units + length) + 1;
    CString environment(std::u16string_view(units, length));
    destroyBlock(block);
    return environment;
}
