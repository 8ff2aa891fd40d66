// Reading the registry. Nothing here writes, and nothing reports: a key or value that is missing, not
// readable or of another kind simply has no value.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <windows.h>

#include "text/cstring.h"

enum class RegistryRoot { CurrentUser, LocalMachine, ClassesRoot, Users };

class RegistryKey {
public:
    // Opens a key for reading; empty when it does not exist or may not be read.
    RegistryKey(RegistryRoot root, std::u16string_view path);
    RegistryKey(RegistryKey&& other) noexcept : key(std::exchange(other.key, nullptr)) {}
    RegistryKey& operator=(RegistryKey&& other) noexcept
    {
        std::swap(key, other.key);
        return *this;
    }
    ~RegistryKey();

    explicit operator bool() const noexcept { return key != nullptr; }

    // A text value ("" for the key's default value); variables in it are replaced when it is of the
    // expandable kind.
    std::optional<CString> Text(std::u16string_view name) const;
    std::optional<std::uint32_t> Number(std::u16string_view name) const;
    std::vector<CString> SubkeyNames() const;
    std::vector<CString> ValueNames() const;

private:
    HKEY key = nullptr;
};

// One text value, for those who need no more of the key.
std::optional<CString> ReadRegistryText(RegistryRoot root, std::u16string_view path,
                                        std::u16string_view name = {});
