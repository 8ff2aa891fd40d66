#include "platform/jump_list.h"

#include <windows.h>

#include <shlobj.h>
#include <shobjidl.h>

#include "platform/com_objects.h"
#include "platform/file_facts.h"
#include "platform/lazy_library.h"

namespace {

constinit LazyFunction<decltype(SHAddToRecentDocs)> addToRecentDocs(libraries::shell32, "SHAddToRecentDocs");

// "Title" of a link in the list.
constexpr PROPERTYKEY titleKey = {
    {0xF29F85E0, 0x4FF9, 0x1068, {0xAB, 0x91, 0x08, 0x00, 0x2B, 0x27, 0xB3, 0xD9}}, 2};

template <typename Interface>
bool Create(const GUID& classId, const GUID& interfaceId, ComPointer<Interface>& object)
{
    return CreateComObject(classId, interfaceId, reinterpret_cast<void**>(object.Receive()));
}

unsigned ErrorOf(HRESULT result)
{
    if (SUCCEEDED(result))
        return 0;
    return HRESULT_FACILITY(result) == FACILITY_WIN32 ? static_cast<unsigned>(HRESULT_CODE(result))
                                                      : unsigned{ERROR_NOT_SUPPORTED};
}

bool AddTask(const JumpTask& task, IObjectCollection& collection)
{
    ComPointer<IShellLinkW> link;
    ComPointer<IPropertyStore> properties;
    if (!Create(CLSID_ShellLink, IID_IShellLinkW, link))
        return false;
    const bool filled =
        SUCCEEDED(link->SetPath(task.program.w())) && SUCCEEDED(link->SetArguments(task.arguments.w())) &&
        SUCCEEDED(link->SetWorkingDirectory(task.directory.w())) &&
        SUCCEEDED(link->SetIconLocation(task.icon.empty() ? task.program.w() : task.icon.w(), 0)) &&
        SUCCEEDED(link->QueryInterface(IID_IPropertyStore, reinterpret_cast<void**>(properties.Receive())));
    if (!filled)
        return false;
    PROPVARIANT title = {}; // the store copies it
    title.vt = VT_LPWSTR;
    title.pwszVal = const_cast<wchar_t*>(task.title.w());
    return SUCCEEDED(properties->SetValue(titleKey, title)) && SUCCEEDED(properties->Commit()) &&
           SUCCEEDED(collection.AddObject(link.Get()));
}

} // namespace

unsigned SetJumpTasks(const std::vector<JumpTask>& tasks)
{
    ComPointer<ICustomDestinationList> list;
    ComPointer<IObjectCollection> collection;
    ComPointer<IObjectArray> removed;
    ComPointer<IObjectArray> array;
    if (!Create(CLSID_DestinationList, IID_ICustomDestinationList, list))
        return ERROR_NOT_SUPPORTED;
    if (tasks.empty())
        return ErrorOf(list->DeleteList(nullptr));
    UINT slots = 0;
    HRESULT result = list->BeginList(&slots, IID_IObjectArray, reinterpret_cast<void**>(removed.Receive()));
    if (FAILED(result))
        return ErrorOf(result);
    if (!Create(CLSID_EnumerableObjectCollection, IID_IObjectCollection, collection))
        return ERROR_NOT_SUPPORTED;
    for (const JumpTask& task : tasks)
        if (!AddTask(task, *collection.Get()))
            return ERROR_INVALID_DATA;
    result = collection->QueryInterface(IID_IObjectArray, reinterpret_cast<void**>(array.Receive()));
    if (SUCCEEDED(result))
        result = list->AddUserTasks(array.Get());
    if (SUCCEEDED(result))
        list->AppendKnownCategory(KDC_RECENT); // refused where the user has switched recent files off
    if (SUCCEEDED(result))
        result = list->CommitList();
    return ErrorOf(result);
}

void AddRecentFile(std::u16string_view name)
{
    const CString full = FullPathName(name);
    addToRecentDocs(SHARD_PATHW, full.w());
}

std::vector<CString> RecentFiles()
{
    std::vector<CString> names;
    ComPointer<IApplicationDocumentLists> lists;
    ComPointer<IObjectArray> array;
    UINT count = 0;
    if (!Create(CLSID_ApplicationDocumentLists, IID_IApplicationDocumentLists, lists) ||
        FAILED(lists->GetList(ADLT_RECENT, 0, IID_IObjectArray, reinterpret_cast<void**>(array.Receive()))) ||
        FAILED(array->GetCount(&count)))
        return names;
    for (UINT i = 0; i < count; ++i) {
        ComPointer<IShellItem> item;
        LPWSTR name = nullptr;
        if (FAILED(array->GetAt(i, IID_IShellItem, reinterpret_cast<void**>(item.Receive()))) ||
            FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &name)))
            continue;
        names.emplace_back(reinterpret_cast<const char16_t*>(name));
        FreeComMemory(name);
    }
    return names;
}

unsigned ForgetRecentFiles()
{
    ComPointer<IApplicationDestinations> destinations;
    if (!Create(CLSID_ApplicationDestinations, IID_IApplicationDestinations, destinations))
        return ERROR_NOT_SUPPORTED;
    return ErrorOf(destinations->RemoveAllDestinations());
}
