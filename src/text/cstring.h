// The shell's text type: UTF-16, reference-counted, copied on write and edited in place.
//
// Every floor uses it for text that is kept or changed; functions that only read take std::u16string_view.
// Copying is one atomic increment, so strings may cross threads; one object must not be changed by two
// threads at once. The text is always followed by a NUL, which its length does not count, and may itself
// hold NULs. Positions beyond the end are clamped, never an error.
#pragma once

#include <atomic>
#include <cstddef>
#include <string_view>

class CString {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    CString() noexcept = default;
    CString(std::u16string_view text);
    CString(const char16_t* text) : CString(text ? std::u16string_view(text) : std::u16string_view()) {}
    CString(std::size_t count, char16_t unit);
    CString(const CString& other) noexcept;
    CString(CString&& other) noexcept : block(other.block) { other.block = nullptr; }
    ~CString() { Release(); }

    CString& operator=(const CString& other) noexcept;
    CString& operator=(CString&& other) noexcept;
    CString& operator=(std::u16string_view text);
    CString& operator=(const char16_t* text) { return *this = CString(text); }

    std::size_t size() const noexcept { return block ? block->length : 0; }
    bool empty() const noexcept { return size() == 0; }
    std::size_t capacity() const noexcept { return block ? block->capacity : 0; }

    // NUL-terminated, valid until the next change.
    const char16_t* c_str() const noexcept { return block ? Units(block) : u""; }
    std::u16string_view view() const noexcept { return {c_str(), size()}; }
    operator std::u16string_view() const noexcept { return view(); }
    char16_t operator[](std::size_t at) const noexcept { return at < size() ? Units(block)[at] : u'\0'; }
    char16_t front() const noexcept { return (*this)[0]; }
    char16_t back() const noexcept { return empty() ? u'\0' : Units(block)[size() - 1]; }

#ifdef _WIN32
    // The same units as the Windows interface spells them.
    const wchar_t* w() const noexcept { return reinterpret_cast<const wchar_t*>(c_str()); }
#endif

    // Writable units; detaches from other owners. `minimum` units are made available; the length stays.
    char16_t* Edit(std::size_t minimum = 0);
    // After writing through Edit: the new length, at most capacity().
    void SetLength(std::size_t length);

    void Reserve(std::size_t units) { Edit(units); }
    void Clear() noexcept;
    CString& Append(std::u16string_view text);
    CString& Append(char16_t unit) { return Append(std::u16string_view(&unit, 1)); }
    CString& operator+=(std::u16string_view text) { return Append(text); }
    CString& operator+=(const char16_t* text) { return Append(std::u16string_view(text)); }
    CString& operator+=(char16_t unit) { return Append(unit); }
    CString& Insert(std::size_t at, std::u16string_view text) { return Replace(at, 0, text); }
    CString& Erase(std::size_t at, std::size_t count = npos) { return Replace(at, count, {}); }
    // Puts `text` in place of `count` units at `at`; `text` may be part of this very string.
    CString& Replace(std::size_t at, std::size_t count, std::u16string_view text);
    CString& Truncate(std::size_t length) { return Erase(length); }
    void Set(std::size_t at, char16_t unit);

    std::size_t Find(char16_t unit, std::size_t from = 0) const noexcept { return view().find(unit, from); }
    std::size_t Find(std::u16string_view text, std::size_t from = 0) const noexcept
    {
        return view().find(text, from);
    }
    CString Substr(std::size_t at, std::size_t count = npos) const;

    // Remove units of the set from one end.
    CString& TrimLeft(std::u16string_view set = u" \t");
    CString& TrimRight(std::u16string_view set = u" \t");
    CString& Trim(std::u16string_view set = u" \t") { return TrimRight(set).TrimLeft(set); }

    // Equality of the very units; see compare.h for comparisons that mind no case.
    friend bool operator==(const CString& a, const CString& b) noexcept { return a.view() == b.view(); }
    friend bool operator==(const CString& a, std::u16string_view b) noexcept { return a.view() == b; }
    friend bool operator==(const CString& a, const char16_t* b) noexcept
    {
        return a.view() == std::u16string_view(b);
    }

private:
    struct Block {
        std::atomic<int> owners;
        std::size_t length;
        std::size_t capacity; // units behind the header, the NUL not counted
    };

    static char16_t* Units(Block* b) noexcept { return reinterpret_cast<char16_t*>(b + 1); }
    static const char16_t* Units(const Block* b) noexcept { return reinterpret_cast<const char16_t*>(b + 1); }
    static Block* Allocate(std::size_t capacity);
    static Block* Copy(std::u16string_view text, std::size_t capacity);
    bool Shared() const noexcept { return block && block->owners.load(std::memory_order_acquire) > 1; }
    void Release() noexcept;

    Block* block = nullptr;
};

inline CString operator+(const CString& a, std::u16string_view b)
{
    CString sum(a);
    sum.Append(b);
    return sum;
}
