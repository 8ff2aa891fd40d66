#include "text/cstring.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t smallestCapacity = 15;

void CopyUnits(char16_t* to, std::u16string_view from) noexcept
{
    if (!from.empty())
        std::memcpy(to, from.data(), from.size() * sizeof(char16_t));
}

// Blocks of the commonest sizes, kept for the next text instead of being given back: a line of a script makes
// and drops dozens of short texts, and the heap was a fifth of what it cost. Threads share the stock.
class Stock {
public:
    // Null when there is none.
    void* Take() noexcept
    {
        const Holder holder(busy);
        return count > 0 ? kept[--count] : nullptr;
    }

    bool Keep(void* block) noexcept
    {
        const Holder holder(busy);
        if (count == kept.size())
            return false;
        kept[count++] = block;
        return true;
    }

private:
    struct Holder {
        explicit Holder(std::atomic_flag& of) noexcept : flag(of)
        {
            while (flag.test_and_set(std::memory_order_acquire)) {
            }
        }
        ~Holder() { flag.clear(std::memory_order_release); }
        std::atomic_flag& flag;
    };

    std::atomic_flag busy;
    std::size_t count = 0;
    std::array<void*, 128> kept{};
};

#if defined(__SANITIZE_ADDRESS__)
constexpr std::array<std::size_t, 0> stockedCapacities{}; // the sanitizer watches blocks that are given back
#else
constexpr std::array<std::size_t, 2> stockedCapacities{smallestCapacity, 63};
#endif

constinit std::array<Stock, stockedCapacities.size()> stocks;

std::size_t RoundedCapacity(std::size_t capacity) noexcept
{
    const auto found = std::lower_bound(stockedCapacities.begin(), stockedCapacities.end(), capacity);
    return found == stockedCapacities.end() ? capacity : *found;
}

// Null when blocks of that capacity are not kept.
Stock* StockOf(std::size_t capacity) noexcept
{
    for (std::size_t i = 0; i < stocks.size(); ++i)
        if (stockedCapacities[i] == capacity)
            return &stocks[i];
    return nullptr;
}

} // namespace

CString::Block* CString::Allocate(std::size_t capacity)
{
    capacity = RoundedCapacity(capacity);
    Stock* stock = StockOf(capacity);
    void* memory = stock ? stock->Take() : nullptr;
    if (!memory)
        memory = ::operator new(sizeof(Block) + (capacity + 1) * sizeof(char16_t));
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
    if (block && block->owners.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        Stock* stock = StockOf(block->capacity);
        if (!stock || !stock->Keep(block))
            ::operator delete(block);
    }
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
