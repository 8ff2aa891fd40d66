#include "platform/shortcut_files.h"

#include <objbase.h>
#include <shlobj.h>

#include "platform/com_objects.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "text/format.h"

namespace {

constexpr int room = 32768; // units

// System errors come wrapped, others are all the same to people.
unsigned ErrorOf(HRESULT result)
{
    if (SUCCEEDED(result))
        return 0;
    return HRESULT_FACILITY(result) == FACILITY_WIN32 ? static_cast<unsigned>(HRESULT_CODE(result))
                                                      : unsigned{ERROR_INVALID_DATA};
}

template <typename Ask> CString Text(Ask ask)
{
    CString text;
    auto* units = reinterpret_cast<wchar_t*>(text.Edit(room));
    units[0] = L'\0';
    if (FAILED(ask(units, room)))
        return {};
    text.SetLength(std::char_traits<wchar_t>::length(units));
    return text;
}

class LinkObject {
public:
    LinkObject()
    {
        void* object = nullptr;
        if (!CreateComObject(CLSID_ShellLink, IID_IShellLinkW, &object))
            return;
        *link.Receive() = static_cast<IShellLinkW*>(object);
        if (FAILED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(file.Receive()))))
            link.Reset();
        else
            link->QueryInterface(IID_IShellLinkDataList, reinterpret_cast<void**>(data.Receive()));
    }

    ComPointer<IShellLinkW> link;
    ComPointer<IPersistFile> file;
    ComPointer<IShellLinkDataList> data; // may be missing
};

HRESULT Fill(LinkObject& object, const ShortcutFacts& facts)
{
    IShellLinkW* link = object.link.Get();
    HRESULT result = link->SetPath(facts.target.w());
    if (SUCCEEDED(result))
        result = link->SetArguments(facts.arguments.w());
    if (SUCCEEDED(result))
        result = link->SetWorkingDirectory(facts.directory.w());
    if (SUCCEEDED(result))
        result = link->SetDescription(facts.description.w());
    if (SUCCEEDED(result) && !facts.icon.empty())
        result = link->SetIconLocation(facts.icon.w(), facts.iconNumber);
    if (SUCCEEDED(result))
        result = link->SetHotkey(facts.hotkey);
    if (SUCCEEDED(result))
        result = link->SetShowCmd(facts.showWindow);
    if (SUCCEEDED(result) && facts.elevated && object.data) {
        DWORD flags = 0;
        object.data->GetFlags(&flags);
        result = object.data->SetFlags(flags | SLDF_RUNAS_USER);
    }
    return result;
}

} // namespace

unsigned ReadShortcut(std::u16string_view name, ShortcutFacts& facts)
{
    const CString full = FullPathName(name);
    if (!ReadFileAttributes(full))
        return GetLastError();
    LinkObject object;
    if (!object.link)
        return ERROR_NOT_SUPPORTED;
    if (const unsigned failed = ErrorOf(object.file->Load(full.w(), STGM_READ)))
        return failed;
    IShellLinkW* link = object.link.Get();
    facts.target =
        Text([&](wchar_t* units, int count) { return link->GetPath(units, count, nullptr, SLGP_RAWPATH); });
    facts.arguments = Text([&](wchar_t* units, int count) { return link->GetArguments(units, count); });
    facts.directory =
        Text([&](wchar_t* units, int count) { return link->GetWorkingDirectory(units, count); });
    facts.description = Text([&](wchar_t* units, int count) { return link->GetDescription(units, count); });
    facts.icon = Text(
        [&](wchar_t* units, int count) { return link->GetIconLocation(units, count, &facts.iconNumber); });
    link->GetHotkey(&facts.hotkey);
    link->GetShowCmd(&facts.showWindow);
    DWORD flags = 0;
    facts.elevated =
        object.data && SUCCEEDED(object.data->GetFlags(&flags)) && (flags & SLDF_RUNAS_USER) != 0;
    return 0;
}

unsigned WriteShortcut(std::u16string_view name, const ShortcutFacts& facts)
{
    const CString full = FullPathName(name);
    LinkObject object;
    if (!object.link)
        return ERROR_NOT_SUPPORTED;
    if (const unsigned failed = ErrorOf(Fill(object, facts)))
        return failed;
    // Written beside it first: a shortcut that exists is replaced whole or stays.
    const CString fresh = Format(u"%s.%x.lnk", full, GetCurrentProcessId());
    unsigned failed = ErrorOf(object.file->Save(fresh.w(), FALSE));
    if (!failed)
        failed = RenameFile(fresh, full, true);
    if (failed)
        EraseFile(fresh);
    return failed;
}
