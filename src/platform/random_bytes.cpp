#include "platform/random_bytes.h"

#include "platform/lazy_library.h"

namespace {

// As ntsecapi.h declares it under the name RtlGenRandom; that name is not exported.
using GenerateRandom = BOOLEAN WINAPI(void* buffer, ULONG length);
LazyFunction<GenerateRandom> generateRandom(libraries::advapi32, "SystemFunction036");

} // namespace

bool SystemRandomBytes(void* bytes, std::size_t count)
{
    return generateRandom(bytes, static_cast<ULONG>(count)) != 0;
}
