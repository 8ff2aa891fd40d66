// Any sequence of definitions and deletions, some of them cut short in the middle and repaired, keeps the
// list well formed and inside its block, and never changes entries that it was not about.
#include "expand/packed_list.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr std::size_t capacity = 160;
constexpr std::size_t guard = 32; // units around the block that must stay as they are
constexpr char16_t guardUnit = 0xBEEF;

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

struct Input {
    const std::uint8_t* data;
    std::size_t left;

    unsigned Next()
    {
        if (left == 0)
            return 0;
        --left;
        return *data++;
    }
};

using Entries = std::map<std::u16string, std::u16string>;

Entries Read(const ListBlock& block)
{
    Entries entries;
    const std::u16string_view list = block.View();
    std::size_t at = 0;
    for (; !EntryAt(list, at).empty(); at = NextListEntry(list, at)) {
        const std::u16string_view entry = EntryAt(list, at);
        Check(!EntryName(entry).empty() && !EntryValue(entry).empty());
        Check(entries.emplace(EntryName(entry), EntryValue(entry)).second);
    }
    Check(at == EndOfList(list) && at + listHeadroom < capacity - listReserve);
    return entries;
}

void CutShort(const ListBlock& block, std::u16string_view entry, unsigned steps)
{
    const std::size_t found = FindListEntry(block.View(), entry, NameMatch::Plain);
    const std::size_t start = found == std::u16string_view::npos ? EndOfList(block.View()) : found;
    const std::size_t oldLength = EntryAt(block.View(), start).size();
    CString text(entry);
    text.Append(u'\0');
    const auto growth = static_cast<std::ptrdiff_t>(text.size()) - static_cast<std::ptrdiff_t>(oldLength);
    if (!ListHasRoom(block, growth))
        return;
    ListChange change(block, start, start, oldLength == 0 ? 0 : oldLength + 1, text);
    while (steps-- > 0 && change.Step()) {
    }
    RepairList(block);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input{data, size};
    std::vector<char16_t> memory(capacity + 2 * guard, guardUnit);
    char16_t* units = memory.data() + guard;
    std::fill_n(units, capacity, u'\0');
    ListControl control{};
    const ListBlock block{units, capacity, &control};
    while (input.left > 0) {
        const unsigned what = input.Next();
        const std::u16string name(1 + what % 3, static_cast<char16_t>(u'a' + what % 5));
        const std::u16string value(input.Next() % 48, static_cast<char16_t>(u'0' + input.Next() % 10));
        const std::u16string entry = name + u"=" + value;
        Entries expected = Read(block);
        if ((what & 0x80) != 0 && !value.empty()) {
            CutShort(block, entry, input.Next());
        } else if (UpdateList(block, entry, NameMatch::Plain)) {
            if (value.empty())
                expected.erase(name);
            else
                expected[name] = value;
            Check(Read(block) == expected);
        } else {
            Check(Read(block) == expected);
        }
        Entries now = Read(block);
        const auto changed = now.find(name);
        Check(changed == now.end() || changed->second == value || changed->second == expected[name]);
        now.erase(name);
        expected.erase(name);
        Check(now == expected && !NeedsRepair(block));
        Check(std::count(memory.begin(), memory.begin() + guard, guardUnit) == guard);
        Check(std::count(memory.end() - guard, memory.end(), guardUnit) == guard);
    }
    return 0;
}
