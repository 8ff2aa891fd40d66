#include "batch/iff_blocks.h"

#include <limits>

#include "text/compare.h"

namespace {

constexpr unsigned deepest = std::numeric_limits<decltype(BlockState::iffNesting)>::max();

// A branch of the innermost level has run. Levels share the 32 bits, which is enough: all levels around one
// that runs have theirs set.
std::uint32_t TakenBit(const BlockState& blocks) { return 1u << ((blocks.iffNesting - 1) & 31); }

void CloseLevel(BlockState& blocks)
{
    if (blocks.iffSkipped > 0)
        --blocks.iffSkipped;
    blocks.iffTaken |= TakenBit(blocks);
    --blocks.iffNesting;
}

// The branch of the innermost level ends and the next begins; `enters` tells whether it may run.
BlockStep ChangeBranch(BlockState& blocks, const std::function<bool()>& enters)
{
    if (blocks.iffSkipped > 1)
        return BlockStep::Skip;
    const bool taken = (blocks.iffTaken & TakenBit(blocks)) != 0;
    blocks.iffSkipped = 1;
    if (taken || !enters())
        return BlockStep::Skip;
    blocks.iffSkipped = 0;
    blocks.iffTaken |= TakenBit(blocks);
    return BlockStep::RunRest;
}

bool EndsWord(char16_t unit)
{
    return !IsLetterOrDigit(unit) && std::u16string_view(u"._$\\:").find(unit) == std::u16string_view::npos;
}

} // namespace

BlockWord ReadBlockWord(std::u16string_view command, std::size_t& end)
{
    struct Row {
        std::u16string_view name;
        BlockWord word;
    };
    static constexpr Row rows[] = {{u"IFF", BlockWord::Iff},
                                   {u"ELSE", BlockWord::Else},
                                   {u"ELSEIFF", BlockWord::ElseIff},
                                   {u"ENDIFF", BlockWord::EndIff}};
    const std::size_t start = command.find_first_not_of(u" \t@");
    if (start == command.npos)
        return BlockWord::None;
    for (const Row& row : rows) {
        end = start + row.name.size();
        if (BeginsNoCase(command.substr(start), row.name) &&
            (end == command.size() || EndsWord(command[end])))
            return row.word;
    }
    return BlockWord::None;
}

BlockStep ActOnBlockWord(BlockState& blocks, BlockWord word, const std::function<bool()>& condition)
{
    const bool skipping = blocks.iffSkipped > 0;
    if (word == BlockWord::Iff && skipping) {
        // A level inside a skipped branch: its condition is not even looked at.
        if (blocks.iffNesting < deepest) {
            ++blocks.iffNesting;
            ++blocks.iffSkipped;
        }
        return BlockStep::Skip;
    }
    if (word == BlockWord::None || word == BlockWord::Iff)
        return skipping ? BlockStep::Skip : BlockStep::Run;
    if (blocks.iffNesting == 0)
        return BlockStep::Run; // an unknown command
    if (word == BlockWord::EndIff) {
        CloseLevel(blocks);
        return BlockStep::Skip;
    }
    if (word == BlockWord::Else)
        return ChangeBranch(blocks, [] { return true; });
    return ChangeBranch(blocks, condition);
}

bool OpenIff(BlockState& blocks, bool holds)
{
    if (blocks.iffNesting == deepest)
        return false;
    ++blocks.iffNesting;
    if (holds) {
        blocks.iffTaken |= TakenBit(blocks);
    } else {
        blocks.iffTaken &= ~TakenBit(blocks);
        ++blocks.iffSkipped;
    }
    return true;
}
