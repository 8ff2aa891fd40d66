#include "platform/registry_editing.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

#include <windows.h>

#include "platform/lazy_library.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

constexpr LSTATUS missing = ERROR_PROC_NOT_FOUND;
constinit LazyFunction<decltype(RegConnectRegistryW)> connectRegistry(libraries::advapi32,
                                                                      "RegConnectRegistryW", missing);
constinit LazyFunction<decltype(RegOpenKeyExW)> openKey(libraries::advapi32, "RegOpenKeyExW", missing);
constinit LazyFunction<decltype(RegCreateKeyExW)> createKey(libraries::advapi32, "RegCreateKeyExW", missing);
constinit LazyFunction<decltype(RegCloseKey)> closeKey(libraries::advapi32, "RegCloseKey", missing);
constinit LazyFunction<decltype(RegQueryValueExW)> queryValue(libraries::advapi32, "RegQueryValueExW",
                                                              missing);
constinit LazyFunction<decltype(RegSetValueExW)> setValue(libraries::advapi32, "RegSetValueExW", missing);
constinit LazyFunction<decltype(RegDeleteValueW)> deleteValue(libraries::advapi32, "RegDeleteValueW",
                                                              missing);
constinit LazyFunction<decltype(RegDeleteKeyExW)> deleteKey(libraries::advapi32, "RegDeleteKeyExW", missing);
constinit LazyFunction<decltype(RegDeleteTreeW)> deleteTree(libraries::advapi32, "RegDeleteTreeW", missing);
constinit LazyFunction<decltype(RegCopyTreeW)> copyTree(libraries::advapi32, "RegCopyTreeW", missing);

struct Root {
    const char16_t* name;
    const char16_t* shortName;
    HKEY key;
};
const Root roots[] = {
    {u"HKEY_CLASSES_ROOT", u"HKCR", HKEY_CLASSES_ROOT},
    {u"HKEY_CURRENT_USER", u"HKCU", HKEY_CURRENT_USER},
    {u"HKEY_LOCAL_MACHINE", u"HKLM", HKEY_LOCAL_MACHINE},
    {u"HKEY_USERS", u"HKU", HKEY_USERS},
    {u"HKEY_CURRENT_CONFIG", u"HKCC", HKEY_CURRENT_CONFIG},
};

constexpr const char16_t* typeNames[] = {
    u"NONE",
    u"SZ",
    u"EXPAND_SZ",
    u"BINARY",
    u"DWORD",
    u"DWORD_BIG_ENDIAN",
    u"LINK",
    u"MULTI_SZ",
    u"RESOURCE_LIST",
    u"FULL_RESOURCE_DESCRIPTOR",
    u"RESOURCE_REQUIREMENTS_LIST",
    u"QWORD",
};

// Cuts "_32" or "_64" off the root's name; the view that it asks for.
REGSAM TakeView(std::u16string_view& root)
{
    const bool narrow = root.ends_with(u"_32");
    if (narrow || root.ends_with(u"_64"))
        root.remove_suffix(3);
    return narrow ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
}

const Root* FindRoot(std::u16string_view name)
{
    TakeView(name);
    const auto* found = std::find_if(std::begin(roots), std::end(roots), [&](const Root& root) {
        return EqualNoCase(name, root.name) || EqualNoCase(name, root.shortName);
    });
    return found == std::end(roots) ? nullptr : found;
}

class OpenedKey {
public:
    enum class Way { Open, Create };

    OpenedKey(const RegistryName& name, REGSAM rights, Way way = Way::Open)
    {
        std::u16string_view rootName = name.root;
        view = TakeView(rootName);
        root = FindRoot(name.root)->key;
        if (!name.machine.empty()) {
            error = static_cast<unsigned>(connectRegistry(name.machine.w(), root, &connection));
            root = connection;
            if (error != ERROR_SUCCESS)
                return;
        }
        const DWORD kept = name.isVolatile ? REG_OPTION_VOLATILE : REG_OPTION_NON_VOLATILE;
        error =
            static_cast<unsigned>(way == Way::Create ? createKey(root, name.key.w(), 0, nullptr, kept,
                                                                 rights | view, nullptr, &key, nullptr)
                                                     : openKey(root, name.key.w(), 0, rights | view, &key));
        if (error != ERROR_SUCCESS)
            key = nullptr;
    }
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;
    ~OpenedKey()
    {
        if (key)
            closeKey(key);
        if (connection)
            closeKey(connection);
    }

    HKEY root = nullptr;
    HKEY key = nullptr;
    REGSAM view = 0;
    unsigned error = ERROR_SUCCESS;

private:
    HKEY connection = nullptr;
};

std::u16string_view TextOf(const std::vector<std::byte>& bytes)
{
    return {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)};
}

template <typename Number> Number NumberOf(const std::vector<std::byte>& bytes)
{
    Number number = 0;
    std::memcpy(&number, bytes.data(), std::min(bytes.size(), sizeof number));
    return number;
}

void PutBytes(RegistryData& data, const void* from, std::size_t count)
{
    const auto* first = static_cast<const std::byte*>(from);
    data.bytes.assign(first, first + count);
}

CString ListText(std::u16string_view list)
{
    CString text;
    while (!list.empty() && list.front() != u'\0') {
        const std::size_t end = std::min(list.find(u'\0'), list.size());
        if (!text.empty())
            text.Append(u';');
        text.Append(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return text;
}

bool ReadBytes(std::u16string_view text, RegistryData& data)
{
    int digits = 0;
    unsigned value = 0;
    for (const char16_t unit : text) {
        const char16_t upper = UpperCase(unit);
        const bool letter = upper >= u'A' && upper <= u'F';
        if (IsBlank(unit) && digits % 2 == 0)
            continue;
        if (!letter && !IsDigit(unit))
            return false;
        value = value << 4 | static_cast<unsigned>(letter ? upper - u'A' + 10 : unit - u'0');
        if (++digits % 2 == 0)
            data.bytes.push_back(static_cast<std::byte>(value & 0xFF));
    }
    return digits % 2 == 0;
}

} // namespace

unsigned ReadRegistryName(std::u16string_view text, bool withValue, RegistryName& name)
{
    if (text.starts_with(u"\\\\")) {
        const std::size_t end = std::min(text.find(u'\\', 2), text.size());
        name.machine = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    const std::size_t end = std::min(text.find(u'\\'), text.size());
    name.root = text.substr(0, end);
    if (!FindRoot(name.root))
        return ERROR_INVALID_NAME;
    text.remove_prefix(std::min(end + 1, text.size()));
    if (withValue) {
        const std::size_t slash = text.rfind(u'\\');
        const std::size_t start = slash == std::u16string_view::npos ? 0 : slash + 1;
        name.value = text.substr(start);
        text = text.substr(0, start);
    }
    name.key = text;
    name.key.TrimRight(u"\\");
    // Windows itself would cut a name at a NUL.
    const bool cut = name.key.Find(u'\0') != CString::npos || name.value.Find(u'\0') != CString::npos;
    return cut ? ERROR_INVALID_NAME : ERROR_SUCCESS;
}

unsigned ReadRegistryValue(const RegistryName& name, RegistryData& data)
{
    const OpenedKey open(name, KEY_QUERY_VALUE);
    if (!open.key)
        return open.error;
    LSTATUS status = ERROR_MORE_DATA;
    for (DWORD room = 256; status == ERROR_MORE_DATA && room <= (1u << 26); room *= 8) {
        data.bytes.resize(room);
        DWORD bytes = room;
        DWORD type = 0;
        status = queryValue(open.key, name.value.w(), nullptr, &type,
                            reinterpret_cast<BYTE*>(data.bytes.data()), &bytes);
        if (status == ERROR_SUCCESS)
            data.bytes.resize(bytes);
        data.type = type;
    }
    return static_cast<unsigned>(status);
}

unsigned WriteRegistryValue(const RegistryName& name, const RegistryData& data)
{
    const OpenedKey open(name, KEY_SET_VALUE, OpenedKey::Way::Create);
    if (!open.key)
        return open.error;
    return static_cast<unsigned>(setValue(open.key, name.value.w(), 0, data.type,
                                          reinterpret_cast<const BYTE*>(data.bytes.data()),
                                          static_cast<DWORD>(data.bytes.size())));
}

unsigned DeleteRegistryValue(const RegistryName& name)
{
    const OpenedKey open(name, KEY_SET_VALUE);
    return open.key ? static_cast<unsigned>(deleteValue(open.key, name.value.w())) : open.error;
}

unsigned FindRegistryKey(const RegistryName& name) { return OpenedKey(name, KEY_QUERY_VALUE).error; }

unsigned CreateRegistryKey(const RegistryName& name)
{
    return OpenedKey(name, KEY_QUERY_VALUE, OpenedKey::Way::Create).error;
}

unsigned DeleteRegistryKey(const RegistryName& name)
{
    if (name.key.empty())
        return ERROR_ACCESS_DENIED;
    const OpenedKey open(name, DELETE | KEY_ENUMERATE_SUB_KEYS | KEY_QUERY_VALUE | KEY_SET_VALUE);
    if (!open.key)
        return open.error;
    const LSTATUS status = deleteTree(open.key, nullptr);
    if (status != ERROR_SUCCESS)
        return static_cast<unsigned>(status);
    return static_cast<unsigned>(deleteKey(open.root, name.key.w(), open.view, 0));
}

unsigned CopyRegistryKey(const RegistryName& from, const RegistryName& to)
{
    const OpenedKey source(from, KEY_READ);
    if (!source.key)
        return source.error;
    const OpenedKey target(to, KEY_WRITE | KEY_READ, OpenedKey::Way::Create);
    return target.key ? static_cast<unsigned>(copyTree(source.key, nullptr, target.key)) : target.error;
}

CString RegistryTypeName(unsigned type)
{
    return type < std::size(typeNames) ? Format(u"REG_%s", typeNames[type]) : Format(u"%u", type);
}

bool ReadRegistryType(std::u16string_view name, unsigned& type)
{
    if (BeginsNoCase(name, u"REG_"))
        name.remove_prefix(4);
    for (unsigned n = 0; n < std::size(typeNames); ++n) {
        type = n;
        if (EqualNoCase(name, typeNames[n]))
            return true;
    }
    return false;
}

CString RegistryDataText(const RegistryData& data)
{
    switch (data.type) {
    case REG_SZ:
    case REG_EXPAND_SZ:
    case REG_LINK: return TextOf(data.bytes).substr(0, TextOf(data.bytes).find(u'\0'));
    case REG_MULTI_SZ: return ListText(TextOf(data.bytes));
    case REG_DWORD: return Format(u"%u", NumberOf<std::uint32_t>(data.bytes));
    case REG_DWORD_BIG_ENDIAN:
        return Format(u"%u", static_cast<unsigned>(_byteswap_ulong(NumberOf<std::uint32_t>(data.bytes))));
    case REG_QWORD: return Format(u"%I64u", NumberOf<std::uint64_t>(data.bytes));
    default: break;
    }
    CString text;
    for (const std::byte unit : data.bytes)
        FormatInto(text, text.empty() ? u"%02X" : u" %02X", {static_cast<unsigned>(unit)});
    return text;
}

bool ReadRegistryData(std::u16string_view text, RegistryData& data)
{
    data.bytes.clear();
    switch (data.type) {
    case REG_SZ:
    case REG_EXPAND_SZ: {
        const CString copy(text);
        PutBytes(data, copy.c_str(), (copy.size() + 1) * sizeof(char16_t));
        return true;
    }
    case REG_MULTI_SZ: {
        CString list(text);
        std::replace(list.Edit(), list.Edit() + list.size(), u';', u'\0');
        list.Append(u'\0');
        PutBytes(data, list.c_str(), (list.size() + (text.empty() ? 0 : 1)) * sizeof(char16_t));
        return true;
    }
    case REG_DWORD:
    case REG_QWORD: {
        const auto number = ParseInteger(text);
        const std::int64_t limit = data.type == REG_DWORD ? 0xFFFFFFFFll : INT64_MAX;
        if (!number || *number > limit || (data.type == REG_DWORD && *number < INT32_MIN))
            return false;
        PutBytes(data, &*number, data.type == REG_DWORD ? sizeof(std::uint32_t) : sizeof(std::uint64_t));
        return true;
    }
    case REG_NONE:
    case REG_BINARY: return ReadBytes(text, data);
    default: return false;
    }
}
