// What was found out about commands that have run before, for the commands of loops and subroutines that run
// again: which internal command it is and where it ends on its line. Filled and asked by the dispatcher
// (command_line.cpp) between taking a command's first word and expanding it.
//
// A plan is for one text to the letter and holds while nothing has changed that taking the command apart
// depends on, which is what PlanConditions says. Only texts are planned that no step before the expansion
// changes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/separators.h"
#include "engine/tables.h"
#include "text/cstring.h"
#include "text/syntax.h"

struct PlanConditions {
    Syntax syntax;
    unsigned expansionMask = 0;
    bool aliasesApply = false;
    bool pseudoVariables = false;
    std::uint64_t aliasChanges = 0;
    std::uint64_t commandChanges = 0;

    bool operator==(const PlanConditions&) const = default;
};
// Those that hold now.
PlanConditions CurrentPlanConditions(const Syntax& syntax);

struct CommandPlan {
    const BUILTIN* row = nullptr;
    Separator end; // never a pipe
};

// The plans of one thread. A text is kept from the second time that it is seen, so that a script which runs
// straight through costs nothing but its hashes.
class CommandPlans {
public:
    // What was kept for the text; null when nothing holds. `worthKeeping` tells whether Keep wants it.
    const CommandPlan* Find(std::u16string_view text, const PlanConditions& conditions, bool& worthKeeping);
    void Keep(const CString& text, const PlanConditions& conditions, const CommandPlan& plan);

private:
    static constexpr std::size_t slots = 256;
    static constexpr std::size_t longest = 512; // units

    struct Slot {
        std::size_t seen = 0; // hash of the text that was here last
        CString text;
        PlanConditions conditions;
        CommandPlan plan;
    };
    std::array<Slot, slots> table;
};
