// Libraries loaded while the shell runs: plug-ins, LIBRARY functions, text resources. System libraries that
// are merely bound late go through lazy_library.h.
#pragma once

#include <string_view>
#include <utility>

#include <windows.h>

#include "text/cstring.h"

class Module {
public:
    Module() noexcept = default;
    // Loads a library to call into it; its own folder is searched first for what it needs. Empty on failure,
    // with the reason in the thread's last error.
    static Module Load(std::u16string_view fileName);
    // Maps a library for its resources only: none of its code runs.
    static Module LoadResources(std::u16string_view fileName);

    Module(Module&& other) noexcept : module(std::exchange(other.module, nullptr)) {}
    Module& operator=(Module&& other) noexcept
    {
        std::swap(module, other.module);
        return *this;
    }
    ~Module();

    explicit operator bool() const noexcept { return module != nullptr; }
    HMODULE Get() const noexcept { return module; }
    FARPROC Find(const char* function) const noexcept;
    CString FileName() const;

private:
    explicit Module(HMODULE taken) noexcept : module(taken) {}

    HMODULE module = nullptr;
};

// Full name of a loaded module's file; null stands for the program itself.
CString ModuleFileName(HMODULE module);
