#include "text/cstring.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t smallestCapacity = 15;

void CopyUnits(char16_t* to, std::u16string_view from) noexcept
{
    if (!from.empty())
        std::memcpy(to, from.data(), from.size() * sizeof(char16_t));
}

} // namespace

CString::Block* CString::Allocate(std::size_t capacity)
{
    void* memory = ::operator new(sizeof(Block) + (capacity + 1) * sizeof(char16_t));
    return new (memory) Block{{1}, 0, capacity};
}

CString::Block* CString::Copy(std::u16string_view text, std::size_t capacity)
{
    Block* copy = Allocate(std::max({text.size(), capacity, smallestCapacity}));
    CopyUnits(Units(copy), text);
    copy->length = text.size();
    Units(copy)[text.size()] = u'\0';
    return copy;
}

void CString::Release() noexcept
{
    if (block && block->owners.fetch_sub(1, std::memory_order_acq_rel) == 1)
        ::operator delete(block);
    block = nullptr;
}

CString::CString(std::u16string_view text)
{
    if (!text.empty())
        block = Copy(text, 0);
}

CString::CString(std::size_t count, char16_t unit)
{
    if (count == 0)
        return;
    block = Copy({}, count);
    std::fill_n(Units(block), count, unit);
    SetLength(count);
}

CString::CString(const CString& other) noexcept : block(other.block)
{
    if (block)
        block->owners.fetch_add(1, std::memory_order_relaxed);
}

CString& CString::operator=(const CString& other) noexcept
{
    if (block != other.block) {
        CString kept(other);
        std::swap(block, kept.block);
    }
    return *this;
}

CString& CString::operator=(CString&& other) noexcept
{
    if (this != &other) {
        Release();
        block = other.block;
        other.block = nullptr;
    }
    return *this;
}

CString& CString::operator=(std::u16string_view text) { return Replace(0, npos, text); }

char16_t* CString::Edit(std::size_t minimum)
{
    if (!block || Shared() || block->capacity < minimum) {
        // Grown by half, so that appending unit by unit stays linear.
        std::size_t wanted =
            minimum > capacity() ? std::max(minimum, capacity() + capacity() / 2) : capacity();
        Block* own = Copy(view(), wanted);
        Release();
        block = own;
    }
    return Units(block);
}

void CString::SetLength(std::size_t length)
{
    char16_t* units = Edit(length);
    block->length = length;
    units[length] = u'\0';
}

void CString::Clear() noexcept
{
    if (Shared()) {
        Release();
    } else if (block) {
        block->length = 0;
        Units(block)[0] = u'\0';
    }
}

CString& CString::Append(std::u16string_view text) { return Replace(size(), 0, text); }

CString& CString::Replace(std::size_t at, std::size_t count, std::u16string_view text)
{
    const std::size_t length = size();
    at = std::min(at, length);
    count = std::min(count, length - at);
    if (count == 0 && text.empty())
        return *this;
    const std::size_t newLength = length - count + text.size();
    const bool inside = block && text.data() >= Units(block) && text.data() <= Units(block) + length;
    if (inside && !text.empty()) {
        const CString copy(text);
        return Replace(at, count, copy.view());
    }
    char16_t* units = Edit(newLength);
    std::memmove(units + at + text.size(), units + at + count, (length - at - count) * sizeof(char16_t));
    CopyUnits(units + at, text);
    SetLength(newLength);
    return *this;
}

void CString::Set(std::size_t at, char16_t unit)
{
    if (at < size())
        Edit()[at] = unit;
}

CString CString::Substr(std::size_t at, std::size_t count) const
{
    if (at == 0 && count >= size())
        return *this;
    return at < size() ? CString(view().substr(at, count)) : CString();
}

CString& CString::TrimLeft(std::u16string_view set)
{
    const std::size_t first = view().find_first_not_of(set);
    return Erase(0, first);
}

CString& CString::TrimRight(std::u16string_view set)
{
    const std::size_t last = view().find_last_not_of(set);
    return Truncate(last == npos ? 0 : last + 1);
}
