#include "core/alias_substitution.h"
#include "core/separators.h"
#include "engine/expansion_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "text/scanner.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr int deepestNesting = 16; // expansions that may have been made before one more is refused

// The value of the alias that the name stands for. "name:rest" and "name/rest" find "name" as well, unless
// the name is a drive's; `end` is then moved to where the arguments begin.
bool LookUpAlias(const AliasName& name, std::u16string_view command, const Syntax& syntax, CString& value,
                 std::size_t& end)
{
    end = name.end;
    if (GetAlias(name.name, value))
        return true;
    const std::size_t nameStart = name.end - name.name.size();
    const bool colon = name.name.size() > 2 && name.name[1] == u':' && command.substr(name.end, 2) != u"//";
    const std::size_t switchAt = name.name.find(syntax.switchChar);
    const std::size_t cut = colon ? 1 : switchAt;
    if (cut == npos || cut == 0)
        return false;
    end = nameStart + cut;
    return GetAlias(name.name.substr(0, cut), value);
}

bool AliasesApply(const AliasName& name)
{
    if (name.name.empty())
        return false;
    return aIniFile.BatchAliases || !Tls().Frame() || name.name.find(u':') != npos;
}

} // namespace

int ExpandAliases(CString& command)
{
    const unsigned mask = aGlobals.expansionMask;
    if ((mask & expansion_mask::noAliases) != 0)
        return result::success;
    const Syntax syntax = CurrentSyntax();
    for (int nesting = 0;; ++nesting) {
        const AliasName name = ReadAliasName(command, syntax);
        if (name.bypassed) {
            command.Erase(name.start, 1);
            Tls().aliasBypass = true;
            return result::success;
        }
        CString value;
        std::size_t end = 0;
        if (!AliasesApply(name) || !LookUpAlias(name, command, syntax, value, end))
            return result::success;
        if (nesting > deepestNesting)
            return MVError(errors::aliasLoop, name.name);
        const Separator stop = FindSeparator(command, end, CommandShape::Plain, syntax);
        const std::size_t length = stop.at == npos ? npos : stop.at - end;
        const CString prefix = command.Substr(name.start, name.end - name.name.size() - name.start);
        const CString expanded =
            prefix + SubstituteAliasParameters(value, command.view().substr(end, length), syntax);
        command.Replace(0, stop.at, expanded);
        if ((mask & expansion_mask::noNestedAliases) != 0)
            return result::success;
    }
}
