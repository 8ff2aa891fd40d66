#include "platform/recycle_bin.h"

#include <cmath>

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include "platform/com.h"
#include "platform/com_objects.h"
#include "platform/file_facts.h"
#include "platform/lazy_library.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

constinit LazyFunction<decltype(SHQueryRecycleBinW)> queryBin(libraries::shell32, "SHQueryRecycleBinW",
                                                              E_NOTIMPL);
constinit LazyFunction<decltype(SHEmptyRecycleBinW)> emptyBin(libraries::shell32, "SHEmptyRecycleBinW",
                                                              E_NOTIMPL);
constinit LazyFunction<decltype(SHGetDesktopFolder)> desktopFolder(libraries::shell32, "SHGetDesktopFolder",
                                                                   E_NOTIMPL);
constinit LazyFunction<decltype(SHGetSpecialFolderLocation)>
    folderLocation(libraries::shell32, "SHGetSpecialFolderLocation", E_NOTIMPL);
constinit LazyLibrary oleaut32(L"oleaut32.dll");
constinit LazyFunction<decltype(VariantClear)> clearVariant(oleaut32, "VariantClear", E_NOTIMPL);
constinit LazyFunction<decltype(VariantChangeType)> changeVariant(oleaut32, "VariantChangeType", E_NOTIMPL);

// Columns of the bin's view.
constexpr GUID displacedSet = {0x9B174B33, 0x40FF, 0x11D2, {0xA2, 0x7E, 0x00, 0xC0, 0x4F, 0xC3, 0x08, 0x71}};
constexpr GUID storageSet = {0xB725F130, 0x47EF, 0x101A, {0xA5, 0xF1, 0x02, 0x60, 0x8C, 0x9E, 0xEB, 0xAC}};
constexpr SHCOLUMNID originalFolder = {displacedSet, 2};
constexpr SHCOLUMNID deletionDate = {displacedSet, 3};
constexpr SHCOLUMNID sizeColumn = {storageSet, 12};

unsigned ErrorOf(HRESULT result)
{
    if (SUCCEEDED(result))
        return 0;
    return HRESULT_FACILITY(result) == FACILITY_WIN32 ? static_cast<unsigned>(HRESULT_CODE(result))
                                                      : unsigned{ERROR_NOT_SUPPORTED};
}

class Value {
public:
    Value() = default;
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { clearVariant(&variant); }

    bool As(VARTYPE type)
    {
        return variant.vt == type || SUCCEEDED(changeVariant(&variant, &variant, 0, type));
    }

    VARIANT variant = {};
};

// Days since 30 December 1899 as a file time.
std::uint64_t FileTimeOfDays(double days)
{
    constexpr double ticksPerDay = 864e9;
    constexpr double daysTo1601 = 109205; // back from that day
    const double ticks = (days + daysTo1601) * ticksPerDay;
    return ticks > 0 ? static_cast<std::uint64_t>(std::llround(ticks)) : 0;
}

} // namespace

std::optional<BinTotals> ReadBinTotals(const CString& root)
{
    SHQUERYRBINFO info = {};
    info.cbSize = sizeof info;
    if (queryBin(root.w(), &info) != S_OK)
        return std::nullopt;
    return BinTotals{static_cast<std::uint64_t>(info.i64NumItems), static_cast<std::uint64_t>(info.i64Size)};
}

unsigned EmptyBin(const CString& root)
{
    return ErrorOf(emptyBin(nullptr, root.w(), SHERB_NOCONFIRMATION | SHERB_NOPROGRESSUI | SHERB_NOSOUND));
}

struct RecycleBin::State {
    ComPointer<IShellFolder2> folder;
    std::vector<ITEMIDLIST*> ids;

    ~State()
    {
        for (ITEMIDLIST* id : ids)
            FreeComMemory(id);
    }

    CString Text(const ITEMIDLIST* id, const SHCOLUMNID& column)
    {
        Value value;
        if (FAILED(folder->GetDetailsEx(id, &column, &value.variant)) || !value.As(VT_BSTR) ||
            !value.variant.bstrVal)
            return {};
        return CString(reinterpret_cast<const char16_t*>(value.variant.bstrVal));
    }

    CString DisplayName(const ITEMIDLIST* id, SHGDNF kind)
    {
        STRRET text = {};
        CString name;
        if (FAILED(folder->GetDisplayNameOf(id, kind, &text)))
            return name;
        if (text.uType == STRRET_WSTR && text.pOleStr) {
            name = reinterpret_cast<const char16_t*>(text.pOleStr);
            FreeComMemory(text.pOleStr);
        }
        return name;
    }

    RecycledItem Describe(std::size_t number)
    {
        const ITEMIDLIST* id = ids[number];
        RecycledItem item;
        item.number = number;
        item.folder = Text(id, originalFolder);
        item.name = FileNamePart(DisplayName(id, SHGDN_NORMAL | SHGDN_INFOLDER));
        // The desktop may be set to hide extensions; the bin's own file has kept it.
        const CString kept = DisplayName(id, SHGDN_FORPARSING);
        const std::u16string_view extension = ExtensionPart(kept);
        if (!EqualNoCase(ExtensionPart(item.name), extension))
            item.name += extension;
        Value size;
        if (SUCCEEDED(folder->GetDetailsEx(id, &sizeColumn, &size.variant)) && size.As(VT_UI8))
            item.size = size.variant.ullVal;
        Value date;
        if (SUCCEEDED(folder->GetDetailsEx(id, &deletionDate, &date.variant)) && date.As(VT_DATE))
            item.deleted = FileTimeOfDays(date.variant.date);
        item.isFolder = QueryIsDirectory(kept);
        return item;
    }
};

RecycleBin::RecycleBin() : state(std::make_unique<State>())
{
    ComPointer<IShellFolder> desktop;
    ITEMIDLIST* place = nullptr;
    if (!StartCom() || FAILED(desktopFolder(desktop.Receive())) ||
        FAILED(folderLocation(nullptr, CSIDL_BITBUCKET, &place)))
        return;
    desktop->BindToObject(place, nullptr, IID_IShellFolder2,
                          reinterpret_cast<void**>(state->folder.Receive()));
    FreeComMemory(place);
}

RecycleBin::~RecycleBin() = default;

bool RecycleBin::IsOpen() const { return static_cast<bool>(state->folder); }

std::vector<RecycledItem> RecycleBin::Items()
{
    constexpr SHCONTF all = SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN;
    std::vector<RecycledItem> items;
    ComPointer<IEnumIDList> walk;
    if (!state->folder || FAILED(state->folder->EnumObjects(nullptr, all, walk.Receive())) || !walk)
        return items;
    ITEMIDLIST* id = nullptr;
    while (walk->Next(1, &id, nullptr) == S_OK) {
        state->ids.push_back(id);
        items.push_back(state->Describe(state->ids.size() - 1));
    }
    return items;
}

unsigned RecycleBin::Restore(const RecycledItem& item)
{
    if (ReadFileAttributes(JoinPath(item.folder, item.name)))
        return ERROR_FILE_EXISTS; // the desktop would put up a box
    const ITEMIDLIST* id = state->ids[item.number];
    ComPointer<IContextMenu> menu;
    HRESULT outcome = state->folder->GetUIObjectOf(nullptr, 1, &id, IID_IContextMenu, nullptr,
                                                   reinterpret_cast<void**>(menu.Receive()));
    if (FAILED(outcome))
        return ErrorOf(outcome);
    CMINVOKECOMMANDINFO command = {};
    command.cbSize = sizeof command;
    command.fMask = CMIC_MASK_FLAG_NO_UI;
    command.lpVerb = "undelete";
    outcome = menu->InvokeCommand(&command);
    if (FAILED(outcome))
        return ErrorOf(outcome);
    return ReadFileAttributes(JoinPath(item.folder, item.name)) ? 0u : unsigned{ERROR_CANCELLED};
}
