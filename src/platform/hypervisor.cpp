#include "platform/hypervisor.h"

#include <array>
#include <cstring>

#include <cpuid.h>

namespace {

constexpr unsigned featureLeaf = 1;
constexpr unsigned hypervisorBit = 1u << 31; // of ECX
constexpr unsigned nameLeaf = 0x40000000;
constexpr unsigned privilegeLeaf = 0x40000003;
constexpr unsigned createPartitions = 1; // of EBX: only the root may
constexpr std::string_view rootedName = "Microsoft Hv";

} // namespace

std::string_view HypervisorName()
{
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    if (!__get_cpuid(featureLeaf, &a, &b, &c, &d) || (c & hypervisorBit) == 0)
        return {};
    static std::array<char, 12> name;
    __cpuid(nameLeaf, a, b, c, d);
    const unsigned words[] = {b, c, d};
    std::memcpy(name.data(), words, name.size());
    std::string_view text(name.data(), name.size());
    text = text.substr(0, text.find('\0'));
    if (text == rootedName) {
        __cpuid(privilegeLeaf, a, b, c, d);
        if ((b & createPartitions) != 0)
            return {};
    }
    return text;
}
