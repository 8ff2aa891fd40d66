// The registry by full names, for those who look at and change any place of it.
//
// A name is "HKLM\path\value" or "HKEY_LOCAL_MACHINE\path\value" (HKCR, HKCU, HKLM, HKU, HKCC), with "_32" or
// "_64" behind the root for the registry of 32-bit or 64-bit programs (64 unless told), and "\\machine\" in
// front for another machine's. All answer 0 or a Windows error number.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "text/cstring.h"

// A place taken apart. A value's name is what stands behind the last backslash; it is empty for the default
// value.
struct RegistryName {
    CString machine;
    CString root;
    CString key;
    CString value;
    bool isVolatile = false; // a key that is made for it is forgotten at log-off
};
// `withValue` tells that the last part names a value. ERROR_INVALID_NAME for an unknown root.
unsigned ReadRegistryName(std::u16string_view text, bool withValue, RegistryName& name);

struct RegistryData {
    unsigned type = 0; // REG_SZ and its like
    std::vector<std::byte> bytes;
};
unsigned ReadRegistryValue(const RegistryName& name, RegistryData& data);
// Makes the key when it does not exist.
unsigned WriteRegistryValue(const RegistryName& name, const RegistryData& data);
unsigned DeleteRegistryValue(const RegistryName& name);

unsigned FindRegistryKey(const RegistryName& name);
unsigned CreateRegistryKey(const RegistryName& name);
// With all that is in it. A root itself is refused.
unsigned DeleteRegistryKey(const RegistryName& name);
// Everything in the first key into the second, which is made when it does not exist.
unsigned CopyRegistryKey(const RegistryName& from, const RegistryName& to);

// "REG_SZ" and its like, with or without the "REG_"; a number for types that have no name.
CString RegistryTypeName(unsigned type);
bool ReadRegistryType(std::u16string_view name, unsigned& type);
// Numbers are decimal, bytes two hexadecimal digits each parted by blanks, and the texts of a list are parted
// by ";".
CString RegistryDataText(const RegistryData& data);
// The other way; false when the text does not fit the type.
bool ReadRegistryData(std::u16string_view text, RegistryData& data);
