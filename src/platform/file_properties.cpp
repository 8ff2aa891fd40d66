#include "platform/file_properties.h"

#include <utility>

#include <windows.h>

#include <initguid.h>

#include <objbase.h>
#include <propidl.h>
#include <propsys.h>
#include <shobjidl.h>

#include "platform/file_facts.h"
#include "platform/lazy_library.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

constinit LazyFunction<decltype(CoInitializeEx)> initializeCom(libraries::ole32, "CoInitializeEx", E_NOTIMPL);
constinit LazyFunction<void WINAPI()> uninitializeCom(libraries::ole32, "CoUninitialize");
constinit LazyFunction<decltype(PropVariantClear)> clearVariant(libraries::ole32, "PropVariantClear",
                                                                E_NOTIMPL);
constinit LazyFunction<decltype(StgOpenStorageEx)> openStorage(libraries::ole32, "StgOpenStorageEx",
                                                               E_NOTIMPL);
constinit LazyFunction<decltype(CoTaskMemFree)> taskMemFree(libraries::ole32, "CoTaskMemFree");
constinit LazyFunction<decltype(SHGetPropertyStoreFromParsingName)>
    propertyStore(libraries::shell32, "SHGetPropertyStoreFromParsingName", E_NOTIMPL);
constinit LazyFunction<decltype(PSGetPropertyKeyFromName)> keyFromName(libraries::propsys,
                                                                       "PSGetPropertyKeyFromName", E_NOTIMPL);
constinit LazyFunction<decltype(PSFormatForDisplayAlloc)>
    formatForDisplay(libraries::propsys, "PSFormatForDisplayAlloc", E_NOTIMPL);

const char16_t* Units(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

class ComInUse {
public:
    ComInUse() : ours(SUCCEEDED(initializeCom(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}
    ComInUse(const ComInUse&) = delete;
    ComInUse& operator=(const ComInUse&) = delete;
    ~ComInUse()
    {
        if (ours)
            uninitializeCom();
    }

private:
    bool ours;
};

template <typename Interface> class Owned {
public:
    Owned() = default;
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned()
    {
        if (object)
            object->Release();
    }
    void** Room() { return reinterpret_cast<void**>(&object); }
    Interface** Place() { return &object; }
    Interface* operator->() const { return object; }

private:
    Interface* object = nullptr;
};

struct Variant : PROPVARIANT {
    Variant() : PROPVARIANT{} {}
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { clearVariant(this); }
};

CString TimeText(const FILETIME& time)
{
    SYSTEMTIME parts;
    if ((time.dwLowDateTime | time.dwHighDateTime) == 0 || !FileTimeToSystemTime(&time, &parts))
        return {};
    return Format(u"%04d-%02d-%02d %02d:%02d:%02d", parts.wYear, parts.wMonth, parts.wDay, parts.wHour,
                  parts.wMinute, parts.wSecond);
}

CString AnsiText(const char* text)
{
    CString units;
    const int room = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    if (room <= 0)
        return {};
    MultiByteToWideChar(CP_ACP, 0, text, -1,
                        reinterpret_cast<wchar_t*>(units.Edit(static_cast<std::size_t>(room))), room);
    units.SetLength(static_cast<std::size_t>(room) - 1);
    return units;
}

CString VariantText(const PROPVARIANT& value)
{
    switch (value.vt) {
    case VT_LPSTR: return value.pszVal ? AnsiText(value.pszVal) : CString();
    case VT_LPWSTR: return Units(value.pwszVal);
    case VT_I4: return Format(u"%d", value.lVal);
    case VT_FILETIME: return TimeText(value.filetime);
    default: return {};
    }
}

struct SummaryItem {
    std::u16string_view name;
    PROPID id; // in the summary's property set
};

constexpr SummaryItem summaryItems[] = {
    {u"Title", 2},    {u"Subject", 3},    {u"Author", 4},   {u"Keywords", 5},    {u"Comments", 6},
    {u"Template", 7}, {u"LastAuthor", 8}, {u"Revision", 9}, {u"Printed", 11},    {u"Created", 12},
    {u"Saved", 13},   {u"Pages", 14},     {u"Words", 15},   {u"Characters", 16}, {u"Application", 18},
};

// {F29F85E0-4FF9-1068-AB91-08002B27B3D9}
constexpr GUID summaryFormat = {0xF29F85E0, 0x4FF9, 0x1068, {0xAB, 0x91, 0x08, 0x00, 0x2B, 0x27, 0xB3, 0xD9}};

} // namespace

CString FileProperty(std::u16string_view file, std::u16string_view property)
{
    const ComInUse com;
    const CString path = FullPathName(file);
    const CString name =
        BeginsNoCase(property, u"System.") ? CString(property) : CString(u"System.") + property;
    PROPERTYKEY key;
    Owned<IPropertyStore> store;
    if (FAILED(keyFromName(name.w(), &key)) ||
        FAILED(propertyStore(path.w(), nullptr, GPS_DEFAULT, IID_IPropertyStore, store.Room())))
        return {};
    Variant value;
    PWSTR units = nullptr;
    CString text;
    if (SUCCEEDED(store->GetValue(key, &value)) && value.vt != VT_EMPTY &&
        SUCCEEDED(formatForDisplay(key, value, PDFF_DEFAULT, &units)))
        text = Units(units);
    if (units)
        taskMemFree(units);
    return text;
}

CString SummaryProperty(std::u16string_view file, std::u16string_view item)
{
    const ComInUse com;
    const CString path = FullPathName(file);
    Owned<IPropertySetStorage> sets;
    Owned<IPropertyStorage> summary;
    constexpr DWORD mode = STGM_READ | STGM_SHARE_EXCLUSIVE;
    if (FAILED(openStorage(path.w(), STGM_READ | STGM_SHARE_DENY_WRITE, STGFMT_ANY, 0, nullptr, nullptr,
                           IID_IPropertySetStorage, sets.Room())) ||
        FAILED(sets->Open(summaryFormat, mode, summary.Place())))
        return {};
    for (const SummaryItem& known : summaryItems) {
        if (!EqualNoCase(known.name, item))
            continue;
        PROPSPEC wanted = {};
        wanted.ulKind = PRSPEC_PROPID;
        wanted.propid = known.id;
        Variant value;
        return summary->ReadMultiple(1, &wanted, &value) == S_OK ? VariantText(value) : CString();
    }
    return {};
}
