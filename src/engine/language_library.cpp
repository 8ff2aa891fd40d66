#include "engine/language_library.h"

#include <windows.h>

#include "engine/inifile.h"
#include "engine/results.h"
#include "text/encoding.h"

namespace {

HMODULE translation = nullptr; // of the setting; null while it is English

HMODULE LoadAsData(const CString& path)
{
    return LoadLibraryExW(path.w(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
}

// The folder of the module that this code is part of, with a backslash at its end.
CString EngineFolder()
{
    HMODULE engine = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&translation), &engine);
    CString path;
    wchar_t* buffer = reinterpret_cast<wchar_t*>(path.Edit(32767));
    path.SetLength(GetModuleFileNameW(engine, buffer, 32767));
    const std::size_t slash = path.view().find_last_of(u"\\/");
    return path.Truncate(slash == CString::npos ? 0 : slash + 1);
}

HMODULE English()
{
    static const HMODULE library = LoadAsData(EngineFolder() + u"English.dll");
    return library;
}

// The text, empty when the library has none of that number.
std::u16string_view FindText(HMODULE library, unsigned number)
{
    // String resources stand in blocks of sixteen, each text behind its length.
    const HRSRC found =
        library ? FindResourceW(library, MAKEINTRESOURCEW(number / 16 + 1), RT_STRING) : nullptr;
    const HGLOBAL block = found ? LoadResource(library, found) : nullptr;
    const auto* units = static_cast<const char16_t*>(block ? LockResource(block) : nullptr);
    if (!units)
        return {};
    for (unsigned i = 0; i < number % 16; ++i)
        units += 1 + units[0];
    return {units + 1, units[0]};
}

void UseTranslation(HMODULE library)
{
    if (translation)
        FreeLibrary(translation);
    translation = library;
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

bool LoadLanguageLibrary(const CString& path)
{
    const HMODULE library = LoadAsData(path);
    if (library && FindText(library, MessageNumber(errors::syntax)).empty()) {
        FreeLibrary(library);
        SetLastError(ERROR_RESOURCE_LANG_NOT_FOUND);
        return false;
    }
    if (library)
        UseTranslation(library);
    return library != nullptr;
}

CString LoadMessage(unsigned number)
{
    const std::u16string_view text = FindText(translation, number);
    return CString(text.empty() ? FindText(English(), number) : text);
}

void LoadLanguageOfSettings()
{
    if (!aIniFile.LanguageDLL)
        return UseTranslation(nullptr);
    const CString path(aIniFile.LanguageDLL);
    if (LoadLanguageLibrary(path))
        return;
    const DWORD code = GetLastError();
    UseTranslation(nullptr);
    ErrorMsgBox(code, path);
}

std::vector<CString> ReferencePages()
{
    std::vector<CString> pages;
    for (const HMODULE library : {translation, English()})
        if (library && pages.empty())
            EnumResourceNamesW(library, L"REFERENCE", AddPage, reinterpret_cast<LONG_PTR>(&pages));
    return pages;
}
