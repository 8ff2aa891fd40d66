#include "platform/com_objects.h"

#include "platform/com.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(CoCreateInstance)> createInstance(libraries::ole32, "CoCreateInstance",
                                                                  E_NOTIMPL);
constinit LazyFunction<decltype(CoTaskMemFree)> freeMemory(libraries::ole32, "CoTaskMemFree");
constinit LazyFunction<decltype(PropVariantClear)> clearValue(libraries::ole32, "PropVariantClear");

} // namespace

bool CreateComObject(const GUID& classId, const GUID& interfaceId, void** object) noexcept
{
    return StartCom() && SUCCEEDED(createInstance(classId, nullptr, CLSCTX_ALL, interfaceId, object));
}

void ClearComValue(PROPVARIANT& value) noexcept { clearValue(&value); }

void FreeComMemory(void* memory) noexcept { freeMemory(memory); }
