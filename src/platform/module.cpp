#include "platform/module.h"

#include "platform/environment.h"

Module Module::Load(std::u16string_view fileName)
{
    const CString name(fileName);
    PublishEnvironment();
    const bool hasFolder = fileName.find_first_of(u"\\/") != std::u16string_view::npos;
    return Module(LoadLibraryExW(name.w(), nullptr, hasFolder ? LOAD_WITH_ALTERED_SEARCH_PATH : 0));
}

Module Module::LoadResources(std::u16string_view fileName)
{
    const CString name(fileName);
    return Module(
        LoadLibraryExW(name.w(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
}

Module::~Module()
{
    if (module)
        FreeLibrary(module);
}

FARPROC Module::Find(const char* function) const noexcept
{
    PublishEnvironment(); // what is found is about to be called
    return module ? GetProcAddress(module, function) : nullptr;
}

CString Module::FileName() const { return module ? ModuleFileName(module) : CString(); }

CString ModuleFileName(HMODULE module)
{
    CString name;
    for (std::size_t room = 260; room <= 32768; room *= 2) {
        wchar_t* units = reinterpret_cast<wchar_t*>(name.Edit(room));
        const DWORD length = GetModuleFileNameW(module, units, static_cast<DWORD>(room));
        if (length < room) {
            name.SetLength(length);
            return name;
        }
    }
    return CString();
}
