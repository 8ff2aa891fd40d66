#include "platform/shell_folders.h"

#include <windows.h>

#include <initguid.h>

#include <knownfolders.h>
#include <shlobj.h>

#include "platform/lazy_library.h"
#include "text/compare.h"

namespace {

constinit LazyFunction<decltype(SHGetKnownFolderPath)> getKnownFolderPath(libraries::shell32,
                                                                          "SHGetKnownFolderPath", E_NOTIMPL);
constinit LazyFunction<decltype(SHGetFolderPathW)> getFolderPath(libraries::shell32, "SHGetFolderPathW",
                                                                 E_NOTIMPL);
constinit LazyFunction<decltype(CoTaskMemFree)> taskMemFree(libraries::ole32, "CoTaskMemFree");

struct NamedFolder {
    std::u16string_view name;
    const KNOWNFOLDERID& id;
};

const NamedFolder folders[] = {
    {u"AppData", FOLDERID_RoamingAppData},
    {u"CommonAppData", FOLDERID_ProgramData},
    {u"CommonDesktop", FOLDERID_PublicDesktop},
    {u"CommonDocuments", FOLDERID_PublicDocuments},
    {u"CommonPrograms", FOLDERID_CommonPrograms},
    {u"CommonStartMenu", FOLDERID_CommonStartMenu},
    {u"CommonStartup", FOLDERID_CommonStartup},
    {u"Desktop", FOLDERID_Desktop},
    {u"Documents", FOLDERID_Documents},
    {u"Downloads", FOLDERID_Downloads},
    {u"Favorites", FOLDERID_Favorites},
    {u"Fonts", FOLDERID_Fonts},
    {u"LocalAppData", FOLDERID_LocalAppData},
    {u"LocalAppDataLow", FOLDERID_LocalAppDataLow},
    {u"Music", FOLDERID_Music},
    {u"Pictures", FOLDERID_Pictures},
    {u"Profile", FOLDERID_Profile},
    {u"ProgramData", FOLDERID_ProgramData},
    {u"ProgramFiles", FOLDERID_ProgramFiles},
    {u"ProgramFilesX86", FOLDERID_ProgramFilesX86},
    {u"Programs", FOLDERID_Programs},
    {u"Public", FOLDERID_Public},
    {u"Recent", FOLDERID_Recent},
    {u"SavedGames", FOLDERID_SavedGames},
    {u"SendTo", FOLDERID_SendTo},
    {u"StartMenu", FOLDERID_StartMenu},
    {u"Startup", FOLDERID_Startup},
    {u"System", FOLDERID_System},
    {u"Templates", FOLDERID_Templates},
    {u"Videos", FOLDERID_Videos},
    {u"Windows", FOLDERID_Windows},
};

CString WithoutBlanks(std::u16string_view name)
{
    CString bare;
    for (const char16_t unit : name)
        if (unit != u' ')
            bare.Append(unit);
    return bare;
}

CString PathOf(const KNOWNFOLDERID& id)
{
    wchar_t* units = nullptr;
    CString path;
    if (SUCCEEDED(getKnownFolderPath(id, KF_FLAG_DONT_VERIFY, nullptr, &units)))
        path = reinterpret_cast<const char16_t*>(units);
    if (units)
        taskMemFree(units);
    return path;
}

} // namespace

CString ShellFolder(std::u16string_view name)
{
    const CString wanted = WithoutBlanks(name);
    for (const NamedFolder& folder : folders)
        if (EqualNoCase(folder.name, wanted))
            return PathOf(folder.id);
    return {};
}

CString ShellFolder(int number)
{
    CString path;
    wchar_t* units = reinterpret_cast<wchar_t*>(path.Edit(MAX_PATH));
    if (FAILED(getFolderPath(nullptr, number, nullptr, SHGFP_TYPE_CURRENT, units)))
        return {};
    path.SetLength(std::char_traits<wchar_t>::length(units));
    return path;
}
