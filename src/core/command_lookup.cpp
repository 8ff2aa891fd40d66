#include "core/command_lookup.h"

#include <algorithm>
#include <array>
#include <vector>

#include "core/path_search.h"
#include "engine/command_state.h"
#include "engine/state.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::size_t longestName = 15;

struct CommandState {
    unsigned flags;
    bool enabled;
};

std::vector<CommandState>& States()
{
    static std::vector<CommandState> states = [] {
        std::vector<CommandState> initial;
        for (int i = 0; i < nInternalCommands; ++i)
            initial.push_back({aInternalCommands[i].flags, aInternalCommands[i].enabled != 0});
        return initial;
    }();
    return states;
}

// How often a state was changed.
std::uint64_t& StateChanges()
{
    static std::uint64_t changes = 0;
    return changes;
}

CommandState& StateOf(const BUILTIN& row)
{
    return States()[static_cast<std::size_t>(&row - aInternalCommands)];
}

// Where the names of each first letter begin in the table; names of other first characters are few and stand
// in front of "A" or behind "Z".
int FirstRowFrom(char16_t letter)
{
    static const auto firstRows = [] {
        std::array<int, 27> rows{};
        for (int i = 0, at = 0; i < static_cast<int>(rows.size()); ++i) {
            while (at < nInternalCommands && UpperCase(aInternalCommands[at].name[0]) < u'A' + i)
                ++at;
            rows[static_cast<std::size_t>(i)] = at;
        }
        return rows;
    }();
    return firstRows[static_cast<std::size_t>(letter - u'A')];
}

int FindCommandRow(std::u16string_view name)
{
    const char16_t letter = name.empty() ? u'\0' : UpperCase(name[0]);
    if (letter < u'A' || letter > u'Z')
        return FindRow(aInternalCommands, nInternalCommands, name);
    const int first = FirstRowFrom(letter);
    const int found =
        FindRow(aInternalCommands + first, FirstRowFrom(static_cast<char16_t>(letter + 1)) - first, name);
    return found < 0 ? found : first + found;
}

bool EndsName(char16_t unit, const Syntax& syntax)
{
    static constexpr auto ends = [] {
        std::array<bool, 128> marks{};
        for (const char16_t mark : std::u16string_view(u" \t\n:;,.\"`\\+=<>|&()"))
            marks[mark] = true;
        return marks;
    }();
    return unit == syntax.commandSep || unit == syntax.switchChar || (unit < ends.size() && ends[unit]);
}

// A first word that is the whole line and names an existing program file is that program.
bool IsProgramFile(std::u16string_view line)
{
    const std::size_t period = line.rfind(u'.');
    if (period == npos || period + 1 == line.size() || line.find_first_of(u" \t;\"[") != npos)
        return false;
    return IsExecutableExtension(line.substr(period)) && QueryIsFile(line);
}

CommandState* FindState(std::u16string_view name)
{
    const int index = FindCommandRow(name);
    return index < 0 ? nullptr : &States()[static_cast<std::size_t>(index)];
}

// For changing it.
CommandState* TouchState(std::u16string_view name)
{
    ++StateChanges();
    return FindState(name);
}

// The name at `start`: at most 15 units up to a character that cannot stand in a name.
std::u16string_view ReadName(std::u16string_view line, std::size_t start, const Syntax& syntax)
{
    std::size_t end = start;
    while (end < line.size() && end - start < longestName && !EndsName(line[end], syntax))
        ++end;
    std::u16string_view name = line.substr(start, end - start);
    if (name.size() > 4 && BeginsNoCase(name, u"ECHO") && (name[4] == u'[' || name[4] == u']'))
        name = name.substr(0, 4);
    return name;
}

} // namespace

int FindInternalCommand(std::u16string_view line, bool includeDisabled, const BUILTIN** row,
                        std::size_t* nameEnd)
{
    const Syntax syntax = CurrentSyntax();
    const std::size_t start = std::min(line.find_first_not_of(u" \t"), line.size());
    const std::u16string_view name = ReadName(line, start, syntax);
    const int index = name.empty() ? -1 : FindCommandRow(name);
    if (index < 0)
        return -1;
    const BUILTIN& found = aInternalCommands[index];
    const CommandState& state = StateOf(found);
    const std::size_t end = start + name.size();
    const char16_t behind = end < line.size() ? line[end] : u'\0';
    if (behind == u'\\' && (state.flags & command_flags::backslash) == 0)
        return -1;
    if (behind == u'.' && (state.flags & command_flags::period) == 0)
        return -1;
    if (line.substr(end, 3) == u"://" || (!includeDisabled && !state.enabled))
        return -1;
    if (behind == u'.' && IsProgramFile(line.substr(start)))
        return -1;
    if (row)
        *row = &found;
    if (nameEnd)
        *nameEnd = end;
    return index;
}

std::uint64_t CommandStateChanges() { return StateChanges(); }

unsigned CommandFlags(const BUILTIN& row) { return StateOf(row).flags; }

bool IsCommandEnabled(const BUILTIN& row) { return StateOf(row).enabled; }

int QueryIsCommandEnabled(std::u16string_view name)
{
    const CommandState* state = FindState(name);
    return state && state->enabled ? 1 : 0;
}

unsigned QueryInternalCommandFlags(std::u16string_view name)
{
    const CommandState* state = FindState(name);
    return state ? state->flags & ~command_flags::oursAlone : 0;
}

int SetInternalCommandFlags(std::u16string_view name, unsigned flags)
{
    CommandState* state = TouchState(name);
    if (!state)
        return result::error;
    state->flags = (flags & ~command_flags::oursAlone) | (state->flags & command_flags::oursAlone);
    return result::success;
}

int EnableInternalCommand(std::u16string_view name)
{
    if (name.empty()) {
        SelectCommandSet(true);
        return result::success;
    }
    CommandState* state = TouchState(name);
    if (!state)
        return result::error;
    state->enabled = true;
    return result::success;
}

int DisableInternalCommand(std::u16string_view name)
{
    if (CommandState* state = TouchState(name))
        state->enabled = false;
    return result::success;
}

void SelectCommandSet(bool all)
{
    ++StateChanges();
    for (int i = 0; i < nInternalCommands; ++i)
        States()[static_cast<std::size_t>(i)].enabled =
            all || (aInternalCommands[i].flags & command_flags::basic) != 0;
}
