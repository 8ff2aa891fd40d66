#include "engine/language_library.h"

#include <windows.h>

#include "engine/inifile.h"
#include "engine/results.h"
#include "text/encoding.h"

namespace {

HMODULE languageModule = nullptr;

HMODULE LoadAsData(const CString& path)
{
    return LoadLibraryExW(path.w(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
}

// The folder of the module that this code is part of, with a backslash at its end.
CString EngineFolder()
{
    HMODULE engine = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&languageModule), &engine);
    CString path;
    wchar_t* buffer = reinterpret_cast<wchar_t*>(path.Edit(32767));
    path.SetLength(GetModuleFileNameW(engine, buffer, 32767));
    const std::size_t slash = path.view().find_last_of(u"\\/");
    return path.Truncate(slash == CString::npos ? 0 : slash + 1);
}

bool Install(HMODULE loaded)
{
    if (!loaded)
        return false;
    if (languageModule)
        FreeLibrary(languageModule);
    languageModule = loaded;
    return true;
}

// Adds a page, which is UTF-8, to the vector behind `pages`.
BOOL CALLBACK AddPage(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR pages)
{
    const HRSRC found = FindResourceW(module, name, type);
    const HGLOBAL block = found ? LoadResource(module, found) : nullptr;
    if (const auto* bytes = static_cast<const char*>(block ? LockResource(block) : nullptr)) {
        const std::string_view page(bytes, SizeofResource(module, found));
        reinterpret_cast<std::vector<CString>*>(pages)->push_back(FromUtf8(page));
    }
    return TRUE;
}

} // namespace

bool LoadLanguageLibrary(const CString& path) { return Install(LoadAsData(path)); }

bool LoadEnglish() { return Install(LoadAsData(EngineFolder() + u"English.dll")); }

CString LoadMessage(unsigned number)
{
    if (!languageModule && !LoadEnglish())
        return CString();
    // String resources stand in blocks of sixteen, each text behind its length.
    const HRSRC found = FindResourceW(languageModule, MAKEINTRESOURCEW(number / 16 + 1), RT_STRING);
    const HGLOBAL block = found ? LoadResource(languageModule, found) : nullptr;
    const auto* units = static_cast<const char16_t*>(block ? LockResource(block) : nullptr);
    if (!units)
        return CString();
    for (unsigned i = 0; i < number % 16; ++i)
        units += 1 + units[0];
    return CString(std::u16string_view(units + 1, units[0]));
}

void LoadLanguageOfSettings()
{
    if (aIniFile.LanguageDLL) {
        const CString path(aIniFile.LanguageDLL);
        if (LoadLanguageLibrary(path))
            return;
        const DWORD code = GetLastError();
        LoadEnglish();
        ErrorMsgBox(code, path);
    } else if (languageModule) {
        LoadEnglish();
    }
}

std::vector<CString> ReferencePages()
{
    constexpr const wchar_t* type = L"REFERENCE";
    std::vector<CString> pages;
    const auto receiver = reinterpret_cast<LONG_PTR>(&pages);
    if (languageModule || LoadEnglish())
        EnumResourceNamesW(languageModule, type, AddPage, receiver);
    if (pages.empty())
        if (const HMODULE english = LoadAsData(EngineFolder() + u"English.dll")) {
            EnumResourceNamesW(english, type, AddPage, receiver);
            FreeLibrary(english);
        }
    return pages;
}
