// Functions of system libraries that are bound on their first call.
//
// Start-up is a budget: a library that the first command does not need must not be loaded with the shell
// (user32 alone costs 40 ms). Whoever calls into such a library declares the function once,
//
//     LazyFunction<decltype(ShellExecuteW)> shellExecute(libraries::shell32, "ShellExecuteW");
//
// and calls it as usual. Libraries come from the system folder only and stay loaded.
#pragma once

#include <atomic>
#include <utility>

#include <windows.h>

#include "platform/environment.h"

class LazyLibrary {
public:
    constexpr explicit LazyLibrary(const wchar_t* fileName) noexcept : name(fileName) {}
    LazyLibrary(const LazyLibrary&) = delete;
    LazyLibrary& operator=(const LazyLibrary&) = delete;

    // Null when the library or the function does not exist here; the reason is the thread's last error.
    FARPROC Find(const char* function) noexcept;

private:
    const wchar_t* name;
    std::atomic<HMODULE> module{nullptr};
};

namespace libraries {
extern LazyLibrary user32;
extern LazyLibrary shell32;
extern LazyLibrary advapi32;
extern LazyLibrary shlwapi;
extern LazyLibrary ole32;
extern LazyLibrary propsys;
extern LazyLibrary version;
extern LazyLibrary mpr;
extern LazyLibrary rstrtmgr;
} // namespace libraries

// What is bound on first use.
class LazyPointer {
public:
    constexpr LazyPointer(LazyLibrary& from, const char* functionName) noexcept
        : library(from), name(functionName)
    {}

    void* Find() noexcept
    {
        PublishEnvironment(); // what is found is about to be called
        void* found = function.load(std::memory_order_acquire);
        if (!found) {
            found = reinterpret_cast<void*>(library.Find(name));
            function.store(found, std::memory_order_release);
        }
        return found;
    }

private:
    LazyLibrary& library;
    const char* name;
    std::atomic<void*> function{nullptr};
};

template <typename Function> class LazyFunction;

// A function that this system lacks answers `missing` (0 unless told) with ERROR_PROC_NOT_FOUND as the
// thread's last error; ask Get() where that is no proper answer.
template <typename Result, typename... Parameters> class LazyFunction<Result WINAPI(Parameters...)> {
public:
    using Pointer = Result(WINAPI*)(Parameters...);

    constexpr LazyFunction(LazyLibrary& from, const char* functionName, Result ifMissing = Result()) noexcept
        : function(from, functionName), missing(ifMissing)
    {}

    Pointer Get() noexcept { return reinterpret_cast<Pointer>(function.Find()); }

    Result operator()(Parameters... parameters)
    {
        const Pointer pointer = Get();
        if (!pointer) {
            SetLastError(ERROR_PROC_NOT_FOUND);
            return missing;
        }
        return pointer(parameters...);
    }

private:
    LazyPointer function;
    Result missing;
};

// One without an answer does nothing where it is missing.
template <typename... Parameters> class LazyFunction<void WINAPI(Parameters...)> {
public:
    constexpr LazyFunction(LazyLibrary& from, const char* functionName) noexcept
        : function(from, functionName)
    {}

    void operator()(Parameters... parameters)
    {
        using Pointer = void(WINAPI*)(Parameters...);
        if (const Pointer pointer = reinterpret_cast<Pointer>(function.Find()))
            pointer(parameters...);
    }

private:
    LazyPointer function;
};
