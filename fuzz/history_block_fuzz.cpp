// Any sequence of changes keeps a history well formed, inside its block, and equal to a plain list of lines
// that is changed by the same rules one line at a time; a block of rubbish does no harm once it is repaired.
#include "console/history_block.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "text/compare.h"

namespace {

constexpr std::size_t capacity = 600;
constexpr std::size_t guard = 32; // units around the block that must stay as they are
constexpr char16_t guardUnit = 0xBEEF;

using Model = std::vector<std::u16string>;

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

Model Read(const ListBlock& block)
{
    Model lines;
    for (const CString& line : AllHistoryLines(block.View()))
        lines.emplace_back(line.view());
    return lines;
}

std::size_t Used(const Model& model)
{
    std::size_t units = 0;
    for (const std::u16string& line : model)
        units += line.size() + 1;
    return units;
}

void AddToModel(Model& model, const std::u16string& line, EqualLines equalLines)
{
    auto equal = [&](const std::u16string& other) { return EqualNoCase(other, line); };
    if (line.empty() || line.size() + 1 + listHeadroom + listReserve >= capacity)
        return;
    if (equalLines == EqualLines::KeepFirst && std::any_of(model.begin(), model.end(), equal))
        return;
    if (equalLines == EqualLines::KeepLast)
        std::erase_if(model, equal);
    while (!model.empty() && Used(model) + historySlack + line.size() >= capacity)
        model.erase(model.begin());
    model.push_back(line);
}

std::u16string MakeLine(Input& input)
{
    const unsigned what = input.Next();
    const std::size_t length = (what & 0x80) != 0 ? what & 7 : input.Next() * 5 / 2;
    return std::u16string(length, static_cast<char16_t>(u"abAB"[what & 3]));
}

void CheckSteps(const ListBlock& block, const Model& model)
{
    const std::u16string_view list = block.View();
    std::size_t at = std::u16string_view::npos;
    for (std::size_t i = model.size(); i-- > 0;) {
        const std::size_t behind = at;
        at = OlderHistoryLine(list, at, false);
        Check(EntryAt(list, at) == model[i]);
        Check(behind == std::u16string_view::npos || NewerHistoryLine(list, at, true) == behind);
    }
    Check(OlderHistoryLine(list, at, false) == at);
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
    if ((input.Next() & 1) != 0) {
        for (std::size_t i = 0; i < capacity; ++i)
            units[i] = static_cast<char16_t>(input.Next() & 3 ? u'a' + (i & 1) : 0);
        if (NeedsRepair(block))
            RepairList(block);
    }
    Model model = Read(block);
    while (input.left > 0) {
        const unsigned what = input.Next();
        const auto equalLines = static_cast<EqualLines>(what >> 4 & 1 ? 1 + (what >> 5 & 1) : 0);
        if (what % 16 == 0) {
            ClearHistoryLines(block);
            model.clear();
        } else if (what % 16 < 4 && !model.empty()) {
            const std::size_t victim = input.Next() % model.size();
            std::size_t at = 0;
            for (std::size_t i = 0; i < victim; ++i)
                at = NextListEntry(block.View(), at);
            Check(DeleteHistoryLine(block, at));
            model.erase(model.begin() + static_cast<std::ptrdiff_t>(victim));
        } else if (what % 16 < 6) {
            std::vector<CString> lines;
            for (unsigned i = input.Next() % 8; i > 0; --i)
                lines.emplace_back(MakeLine(input));
            AppendHistoryLines(block, lines, equalLines);
            for (const CString& line : lines)
                AddToModel(model, std::u16string(line.view()), equalLines);
        } else {
            const std::u16string line = MakeLine(input);
            const CString added[] = {CString(line)};
            AppendHistoryLines(block, added, equalLines);
            AddToModel(model, line, equalLines);
        }
        Check(Read(block) == model && !NeedsRepair(block));
        CheckSteps(block, model);
        Check(std::count(memory.begin(), memory.begin() + guard, guardUnit) == guard);
        Check(std::count(memory.end() - guard, memory.end(), guardUnit) == guard);
    }
    return 0;
}
