#include "platform/version_resource.h"

#include <vector>

#include <windows.h>

#include "platform/file_facts.h"
#include "platform/lazy_library.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

constinit LazyFunction<decltype(GetFileVersionInfoSizeW)> infoSize(libraries::version,
                                                                   "GetFileVersionInfoSizeW");
constinit LazyFunction<decltype(GetFileVersionInfoW)> readInfo(libraries::version, "GetFileVersionInfoW");
constinit LazyFunction<decltype(VerQueryValueW)> queryValue(libraries::version, "VerQueryValueW");

class VersionResource {
public:
    explicit VersionResource(std::u16string_view name)
    {
        const CString file = SystemPath(name);
        DWORD unused = 0;
        bytes.resize(infoSize(file.w(), &unused));
        if (!bytes.empty() && !readInfo(file.w(), 0, static_cast<DWORD>(bytes.size()), bytes.data()))
            bytes.clear();
    }

    CString Text(std::u16string_view name) const
    {
        struct Language {
            WORD language, codePage;
        };
        const Language usual[] = {{0x409, 1200}, {0x409, 1252}, {0, 1200}};
        const Language* languages = usual;
        UINT size = 0;
        std::size_t count = std::size(usual);
        if (const void* found = Value(u"\\VarFileInfo\\Translation", size);
            found && size >= sizeof(Language)) {
            languages = static_cast<const Language*>(found);
            count = size / sizeof(Language);
        }
        for (std::size_t i = 0; i < count; ++i) {
            const void* text = Value(
                Format(u"\\StringFileInfo\\%04x%04x\\%s", languages[i].language, languages[i].codePage, name),
                size);
            if (text && size > 0)
                return static_cast<const char16_t*>(text);
        }
        return {};
    }

    CString Number(bool ofProduct) const
    {
        UINT size = 0;
        const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(Value(u"\\", size));
        if (!fixed || size < sizeof *fixed)
            return {};
        const DWORD high = ofProduct ? fixed->dwProductVersionMS : fixed->dwFileVersionMS;
        const DWORD low = ofProduct ? fixed->dwProductVersionLS : fixed->dwFileVersionLS;
        return Format(u"%u.%u.%u.%u", high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF);
    }

private:
    const void* Value(const CString& path, UINT& size) const
    {
        void* found = nullptr;
        return !bytes.empty() && queryValue(bytes.data(), path.w(), &found, &size) ? found : nullptr;
    }

    std::vector<char> bytes;
};

} // namespace

CString VersionText(std::u16string_view file, std::u16string_view name)
{
    const VersionResource resource(file);
    CString text = resource.Text(name);
    if (text.empty() && EqualNoCase(name, u"FileVersion"))
        text = resource.Number(false);
    if (text.empty() && EqualNoCase(name, u"ProductVersion"))
        text = resource.Number(true);
    return text.Trim();
}
