#include "platform/account_names.h"

#include <cstddef>
#include <vector>

#include <sddl.h>

#include "platform/handle.h"
#include "platform/lazy_library.h"
#include "text/compare.h"

namespace {

constinit LazyFunction<decltype(OpenProcessToken)> openToken(libraries::advapi32, "OpenProcessToken");
constinit LazyFunction<decltype(GetTokenInformation)> tokenInformation(libraries::advapi32,
                                                                       "GetTokenInformation");
constinit LazyFunction<decltype(LookupAccountSidW)> lookupSid(libraries::advapi32, "LookupAccountSidW");
constinit LazyFunction<decltype(LookupAccountNameW)> lookupName(libraries::advapi32, "LookupAccountNameW");
constinit LazyFunction<decltype(ConvertStringSidToSidW)> textToSid(libraries::advapi32,
                                                                   "ConvertStringSidToSidW");
constinit LazyFunction<decltype(EqualSid)> equalSid(libraries::advapi32, "EqualSid");
constinit LazyFunction<decltype(CreateWellKnownSid)> wellKnownSid(libraries::advapi32, "CreateWellKnownSid");

using Bytes = std::vector<std::byte>;

Bytes ReadToken(HANDLE token, TOKEN_INFORMATION_CLASS kind)
{
    DWORD bytes = 0;
    tokenInformation(token, kind, nullptr, 0, &bytes);
    Bytes memory(bytes);
    if (bytes == 0 || !tokenInformation(token, kind, memory.data(), bytes, &bytes))
        return {};
    return memory;
}

bool SidOfGroup(std::u16string_view group, Bytes& sid)
{
    const CString name(group);
    if (BeginsNoCase(group, u"S-1-")) {
        PSID converted = nullptr;
        if (!textToSid(name.w(), &converted))
            return false;
        const auto* first = static_cast<const std::byte*>(converted);
        sid.assign(first, first + 8 + 4 * static_cast<const SID*>(converted)->SubAuthorityCount);
        LocalFree(converted);
        return true;
    }
    wchar_t domain[256];
    DWORD domainLength = 256;
    DWORD bytes = SECURITY_MAX_SID_SIZE;
    SID_NAME_USE use = SidTypeUnknown;
    sid.resize(bytes);
    return lookupName(nullptr, name.w(), sid.data(), &bytes, domain, &domainLength, &use) != 0;
}

bool IsInToken(PSID group)
{
    HANDLE opened = nullptr;
    openToken(GetCurrentProcess(), TOKEN_QUERY, &opened);
    const OwnedHandle token(opened);
    const Bytes memory = token ? ReadToken(token.Get(), TokenGroups) : Bytes();
    if (memory.empty())
        return false;
    const auto* groups = reinterpret_cast<const TOKEN_GROUPS*>(memory.data());
    for (DWORD n = 0; n < groups->GroupCount; ++n)
        if (equalSid(groups->Groups[n].Sid, group))
            return true;
    return false;
}

bool IsInWellKnown(WELL_KNOWN_SID_TYPE kind)
{
    Bytes sid(SECURITY_MAX_SID_SIZE);
    DWORD bytes = SECURITY_MAX_SID_SIZE;
    return wellKnownSid(kind, nullptr, sid.data(), &bytes) && IsInToken(sid.data());
}

} // namespace

CString UserOfToken(HANDLE token)
{
    const Bytes memory = ReadToken(token, TokenUser);
    wchar_t name[257];
    wchar_t domain[257];
    DWORD nameLength = 257;
    DWORD domainLength = 257;
    SID_NAME_USE use = SidTypeUnknown;
    if (memory.empty() || !lookupSid(nullptr, reinterpret_cast<const TOKEN_USER*>(memory.data())->User.Sid,
                                     name, &nameLength, domain, &domainLength, &use))
        return {};
    CString user(reinterpret_cast<const char16_t*>(domain));
    return user.Append(u'\\').Append(reinterpret_cast<const char16_t*>(name));
}

std::optional<bool> IsGroupMember(std::u16string_view group)
{
    Bytes sid;
    if (!SidOfGroup(group, sid))
        return std::nullopt;
    return IsInToken(sid.data());
}

bool IsAdministrator() { return IsInWellKnown(WinBuiltinAdministratorsSid); }
bool RunsAsService() { return IsInWellKnown(WinServiceSid); }
