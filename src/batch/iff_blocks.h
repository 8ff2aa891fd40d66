// What the words IFF, ELSE, ELSEIFF and ENDIFF do to the block state, and which commands a branch that is not
// taken swallows. Pure; the entry for the dispatcher stands in blocks.cpp.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "engine/state.h"

enum class BlockWord { None, Iff, Else, ElseIff, EndIff };

// The block word that the command begins with, blanks and "@" before it aside; `end` is the place behind it.
// Only whole words count.
BlockWord ReadBlockWord(std::u16string_view command, std::size_t& end);

enum class BlockStep {
    Run,     // not a matter of blocks: the command runs
    RunRest, // what follows the word runs
    Skip,    // nothing of this command runs
};

// `condition` tests the condition of an ELSEIFF; it is called only where its answer counts.
BlockStep ActOnBlockWord(BlockState& blocks, BlockWord word, const std::function<bool()>& condition);

// IFF with its condition tested: opens one more level. False when there are too many.
bool OpenIff(BlockState& blocks, bool holds);
