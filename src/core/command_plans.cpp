#include "core/command_plans.h"

#include <functional>

#include "core/command_lookup.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "expand/lists.h"

PlanConditions CurrentPlanConditions(const Syntax& syntax)
{
    PlanConditions conditions;
    conditions.syntax = syntax;
    conditions.expansionMask = aGlobals.expansionMask;
    conditions.aliasesApply = aIniFile.BatchAliases != 0 || !Tls().Frame();
    conditions.pseudoVariables = aIniFile.ExpandPseudovariables != 0;
    conditions.aliasChanges = ListChanges(ListKind::Aliases);
    conditions.commandChanges = CommandStateChanges();
    return conditions;
}

const CommandPlan* CommandPlans::Find(std::u16string_view text, const PlanConditions& conditions,
                                      bool& worthKeeping)
{
    worthKeeping = false;
    if (text.size() > longest)
        return nullptr;
    const std::size_t hash = std::hash<std::u16string_view>()(text);
    Slot& slot = table[hash % slots];
    if (slot.seen != hash) {
        slot.seen = hash;
        return nullptr;
    }
    if (slot.plan.row && slot.text == text && slot.conditions == conditions)
        return &slot.plan;
    worthKeeping = true;
    return nullptr;
}

void CommandPlans::Keep(const CString& text, const PlanConditions& conditions, const CommandPlan& plan)
{
    const std::size_t hash = std::hash<std::u16string_view>()(text);
    // A copy of its own: the dispatcher goes on editing the line.
    table[hash % slots] = {hash, CString(text.view()), conditions, plan};
}
